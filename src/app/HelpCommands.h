// The commands of the help menu: manual, system information, about box. Owns nothing. What the desktop cannot show is
// told in a box.
#pragma once

#include <QLatin1String>

class DialogHost;
class Program;

class HelpCommands final {
  public:
    /// Where the link of the about box leads.
    static constexpr QLatin1String HomePage{"https://kalvenor.example"};
    /// The manual, in the program's folder.
    static constexpr QLatin1String ManualName{"Kalvenor Pro Anleitung.mht"};

    HelpCommands(Program& program, DialogHost& dialogs) : m_program(program), m_dialogs(dialogs) {}

    /// mnuHelpDoc, the toolbar's Help and the help buttons of the dialogs.
    void OpenManual();

    /// mnuSysInfo.
    void ShowSystemInformation();

    /// mnuAbout, mnuAboutTray.
    void ShowAbout();

  private:
    void showReport();
    void openHomePage();

    Program& m_program;
    DialogHost& m_dialogs;
};
