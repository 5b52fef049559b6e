#include "EditorSafetyTab.h"

#include "DriveLine.h"
#include "FormParts.h"
#include "FormServices.h"
#include "KeptRun.h"
#include "StringTable.h"
#include <QGridLayout>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int mostFiles = 1'000'000;
constexpr int mostPercent = 100;

} // namespace

EditorSafetyTab::EditorSafetyTab(const EditorServices& services)
    : m_texts(services.texts), m_source(new DriveLine("lblSourceDrive", services.texts)),
      m_target(new DriveLine("lblTargetDrive", services.texts)) {
    auto* all = new QVBoxLayout(this);
    QSpinBox* days =
        number("spnKeepDays", KeptRun::MostDays, m_texts[Text::DaysUnit], Text::KeepNot, ActivityField::KeepDays);
    QSpinBox* files =
        number("spnAskFiles", mostFiles, m_texts[Text::FilesUnit], Text::AskNever, ActivityField::AskFiles);
    QSpinBox* percent =
        number("spnAskPercent", mostPercent, QStringLiteral("%"), Text::AskNever, ActivityField::AskPercent);
    all->addWidget(buildNumbers(Text::KeptFiles, {{Text::KeepFor, days}}, Text::KeepHint));
    all->addWidget(buildNumbers(Text::BrakeGroup, {{Text::AskFilesCaption, files}, {Text::AskPercentCaption, percent}},
                                Text::AskHint));
    all->addWidget(buildDrives());
    all->addStretch(1);
}

QSpinBox* EditorSafetyTab::number(const char* name, int most, const QString& unit, Text none, ActivityField field) {
    auto* box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(0, most);
    box->setSuffix(u' ' + unit);
    box->setSpecialValueText(m_texts[none]);
    m_bindings.Number(*box, field);
    return box;
}

QGroupBox* EditorSafetyTab::buildNumbers(Text title, const QList<std::pair<Text, QSpinBox*>>& boxes, Text hint) {
    QGroupBox* group = FormParts::Group(m_texts[title]);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    for (const auto& [caption, box] : boxes) {
        const int row = grid->rowCount();
        grid->addWidget(FormParts::Label(m_texts[caption], *box), row, 0);
        grid->addWidget(box, row, 1);
    }
    grid->addWidget(FormParts::Explanation(m_texts[hint]), grid->rowCount(), 0, 1, 3);
    return group;
}

QGroupBox* EditorSafetyTab::buildDrives() {
    QGroupBox* group = FormParts::Group(m_texts[Text::DrivesGroup]);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_bindings.NewSwitch({ActivityField::OnlyOnDrives, "chkOnlyOnDrives", Text::OnlyOnDrives}, m_texts),
                    0, 0, 1, 2);
    grid->addWidget(FormParts::Label(m_texts[Text::SourceColumn], *m_source), 1, 0);
    grid->addWidget(m_source, 1, 1);
    grid->addWidget(FormParts::Label(m_texts[Text::DestinationColumn], *m_target), 2, 0);
    grid->addWidget(m_target, 2, 1);
    grid->addWidget(FormParts::Explanation(m_texts[Text::DrivesHint]), 3, 0, 1, 2);
    return group;
}

void EditorSafetyTab::Show(const ActivityRecord& record) {
    // Opening the editor must not lower a higher number.
    const std::pair<const char*, ActivityField> numbers[] = {{"spnKeepDays", ActivityField::KeepDays},
                                                             {"spnAskFiles", ActivityField::AskFiles}};
    for (const auto& [name, field] : numbers) {
        auto* box = findChild<QSpinBox*>(QLatin1String(name));
        box->setMaximum(std::max(box->maximum(), record.Number(field)));
    }
    m_bindings.Show(record);
    m_shown = record;
}

void EditorSafetyTab::Store(ActivityRecord& record) const {
    m_bindings.Store(record);
    if (record.IsOn(ActivityField::OnlyOnDrives))
        return;
    record.SetText(ActivityField::SourceDrive, {});
    record.SetText(ActivityField::TargetDrive, {});
}

void EditorSafetyTab::LookAtDrives(const ActivityRecord& record) {
    const auto look = [&](DriveLine& line, ActivityField directory, ActivityField drive) {
        const QString& path = record.Text(directory);
        line.Look(path, path == m_shown.Text(directory) ? m_shown.Text(drive) : QString());
    };
    look(*m_source, ActivityField::SourceDir, ActivityField::SourceDrive);
    look(*m_target, ActivityField::TargetDir, ActivityField::TargetDrive);
}
