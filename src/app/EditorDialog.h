// The activity editor as a window of the running program. Owns nothing between two edits.
#pragma once

#include "ActivityEditor.h"

class DialogHost;
class FilePicker;
class Program;

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
