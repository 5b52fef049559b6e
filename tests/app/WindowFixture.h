// The real main window over a real program; the test chooses and edits.
#pragma once

#include "ActivityEditor.h"
#include "ActivityListView.h"
#include "CommandLine.h"
#include "DialogHost.h"
#include "FakeFilePicker.h"
#include "ProgramFixture.h"
#include "frmMain.h"

#include <QAction>
#include <QTest>

class FakeEditor final : public ActivityEditor {
  public:
    bool Edit(const QString& name, const ActivityRecord& record, const Writer& write) override {
        opened.append(name);
        shown = record;
        return onEdit && onEdit(write);
    }
    QStringList opened;
    ActivityRecord shown;
    std::function<bool(const Writer&)> onEdit; ///< none: cancelled
};

struct Window {
    explicit Window(ProgramFixture& fixture) : program(fixture.Build()) {
        QCOMPARE(form.Start({}), StartUpResult::Running);
    }
    QAction& Command(const char* name) { return *form.findChild<QAction*>(QLatin1String(name)); }
    ActivityListView& View() { return *form.findChild<ActivityListView*>(QStringLiteral("lvwActivities")); }
    QWidget& Hint() { return *form.findChild<QWidget*>(QStringLiteral("emptyListHint")); }
    void Select(const QStringList& names) {
        View().clearSelection();
        const QAbstractItemModel& shown = *View().model();
        for (const QString& name : names)
            for (int row = 0; row < shown.rowCount(); ++row)
                if (shown.index(row, 0).data() == name)
                    View().selectionModel()->setCurrentIndex(shown.index(row, 0),
                                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QStringList Names() {
        QStringList names;
        for (int row = 0; row < program.List().Rows(); ++row)
            names.append(program.List().NameAt(row));
        return names;
    }
    DialogHost dialogs;
    FakeFilePicker picker;
    FakeEditor editor;
    Program& program;
    frmMain form{program, {dialogs, picker, editor}};
};
