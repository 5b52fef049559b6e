// The command that edits the general options: shows their dialog and stores the result. When the options cannot be
// stored, the old ones stay in force and a box says why.
#pragma once

class DialogHost;
class FilePicker;
class HelpCommands;
class Program;

class OptionsCommand final {
  public:
    OptionsCommand(Program& program, DialogHost& dialogs, FilePicker& picker, HelpCommands& help)
        : m_program(program), m_dialogs(dialogs), m_picker(picker), m_help(help) {}

    /// mnuPreferences, mnuPreferencesTray. Writes the options in every case, after Cancel as they were before.
    void ShowOptions();

  private:
    Program& m_program;
    DialogHost& m_dialogs;
    FilePicker& m_picker;
    HelpCommands& m_help;
};
