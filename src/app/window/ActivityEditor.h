// Lets the user edit one activity: an interface, so that tests can answer in its place, and the dialog that the program
// uses. Holds nothing between two edits.
#pragma once

#include "ActivityRecord.h"
#include <functional>

class DialogHost;
class FilePicker;
class Program;

class ActivityEditor {
  public:
    virtual ~ActivityEditor() = default;

    /// Takes the edited activity; false keeps the editor open (the user has seen why).
    using Writer = std::function<bool(const QString& name, const ActivityRecord& record)>;

    /// Shows the activity ("" for a new one) until it is written or the user gives up. True when it was written.
    [[nodiscard]] virtual bool Edit(const QString& name, const ActivityRecord& record, const Writer& write) = 0;
};

/// The activity editor as a window of the running program.
class EditorDialog final : public ActivityEditor {
  public:
    EditorDialog(Program& program, DialogHost& dialogs, FilePicker& picker)
        : m_program(program), m_dialogs(dialogs), m_picker(picker) {}

    bool Edit(const QString& name, const ActivityRecord& record, const Writer& write) override;

  private:
    Program& m_program;
    DialogHost& m_dialogs;
    FilePicker& m_picker;
};
