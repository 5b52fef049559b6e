// The commands of the help menu: manual, system information, about box. What the desktop cannot show is reported in a
// box.
#pragma once

#include <QObject>
#include <QStringList>

class DialogHost;
class Program;

class HelpCommands final : public QObject {
    Q_OBJECT
  public:
    HelpCommands(Program& program, DialogHost& dialogs) : m_program(program), m_dialogs(dialogs) {}

    /// mnuHelpDoc, the toolbar's Help and the help buttons of the dialogs: the manual in the program's language, else
    /// the web archive, else a box.
    void OpenManual();

    /// mnuSysInfo.
    void ShowSystemInformation();

    /// mnuAbout, mnuAboutTray.
    void ShowAbout();

  private:
    void showFirst(QStringList names);
    void showReport();
    void openHomePage();

    Program& m_program;
    DialogHost& m_dialogs;
};
