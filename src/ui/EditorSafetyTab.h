// The editor's fifth tab: what is kept of deleted and replaced files, when a run asks first, and the drives that it
// keeps to. The drives are looked at beside the window's own thread; what is not known yet is not shown.
#pragma once

#include "RecordBindings.h"
#include <QList>
#include <QWidget>
#include <utility>

class DriveLine;
class QGroupBox;
class QSpinBox;
class StringTable;
struct EditorServices;

class EditorSafetyTab final : public QWidget {
    Q_OBJECT
  public:
    explicit EditorSafetyTab(const EditorServices& services);

    void Show(const ActivityRecord& record);
    /// An activity that is not tied to its drives names none.
    void Store(ActivityRecord& record) const;

    /// Shows the drives of these directories, and whether they are there.
    void LookAtDrives(const ActivityRecord& record);

  private:
    [[nodiscard]] QGroupBox* buildNumbers(Text title, const QList<std::pair<Text, QSpinBox*>>& boxes, Text hint);
    [[nodiscard]] QGroupBox* buildDrives();
    [[nodiscard]] QSpinBox* number(const char* name, int most, const QString& unit, Text none, ActivityField field);

    const StringTable& m_texts;
    DriveLine* m_source;
    DriveLine* m_target;
    ActivityRecord m_shown; ///< whose drives are known
    RecordBindings m_bindings;
};
