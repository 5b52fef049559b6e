// The command that edits the general options: shows their dialog and stores the result. When the options cannot be
// stored, the old ones stay in force and a box says why. A password goes to its store behind the dialog's back; that it
// was refused is told in a box as well.
#pragma once

#include <QObject>
#include <system_error>

class DialogHost;
class FilePicker;
class HelpCommands;
class Program;
class frmStartOptions;

class OptionsCommand final {
  public:
    OptionsCommand(Program& program, DialogHost& dialogs, FilePicker& picker, HelpCommands& help)
        : m_program(program), m_dialogs(dialogs), m_picker(picker), m_help(help) {}

    /// mnuPreferences, mnuPreferencesTray. Writes the options in every case, after Cancel as they were before.
    void ShowOptions();

  private:
    void storeMail(const frmStartOptions& form);
    void tellNotStored(std::error_code error);

    Program& m_program;
    DialogHost& m_dialogs;
    FilePicker& m_picker;
    HelpCommands& m_help;
    QObject m_storing; ///< receives the answers of the password store
};
