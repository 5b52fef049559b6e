// The commands that reach into the system: setting the clock, checking for a newer version, the service. Owns the
// pending request of each; results are shown in message boxes.
#pragma once

#include "ClockSync.h"
#include "ctlAutoUpdate.h"

class DialogHost;
class Program;
enum class Text;

class SystemCommands final : public QObject {
    Q_OBJECT
  public:
    SystemCommands(Program& program, DialogHost& dialogs);

    /// mnuTimeSync.
    void SynchroniseClock() { m_clock.Begin(); }
    /// mnuSyncTray: over a dial-up line only.
    void SynchroniseClockOverDialUp();

    /// mnuCheckForUpdates.
    void CheckForUpdates();
    /// At the start: once a day if the user wants it. Only a newer version is reported.
    void CheckForUpdatesOfTheDay();

    /// mnuServiceOptions.
    void ShowServiceOptions();

  Q_SIGNALS:
    /// The service takes over: the program is to end.
    void EndWanted();

  private:
    void letGoOfTheFile();
    void tell(const QString& text, Text title, bool isProblem);
    void offerVersion(ctlAutoUpdate::Check check);

    Program& m_program;
    DialogHost& m_dialogs;
    ClockSync m_clock;
    ctlAutoUpdate m_update;
};
