// The general options in the user's settings store: eight values, and in sections of their own those about what is told
// after a run and about schedules. An absent or broken value reads as its key's default; a write stores all or none.
#pragma once

#include "EngineServices.h"
#include <QList>
#include <QString>
#include <cstdint>
#include <system_error>

class SettingsStore;

class clsWatcher final : public EngineOptions {
  public:
    explicit clsWatcher(SettingsStore& settings);

    void ReadRegistry();
    std::error_code WriteRegistry();

    /// Switches hold 0 (off) or 1 (on); 2..255 are kept as they were stored and count as off.
    std::uint8_t ActivateWhileWindowsStarting = 0; ///< start with the user's session, minimised
    std::uint8_t ToTray = 0;                       ///< minimising leaves only the tray icon
    QString LoggingPath;                           ///< the application log; "" = none
    std::uint8_t Shutdown = 0;                     ///< power off when monitoring has ended by itself
    std::uint8_t StartUp = 0;                      ///< start monitoring with the program
    std::uint8_t LogfileRefresh = 0;               ///< the log viewer reloads every 10 s
    std::uint8_t ExitAlert = 1;                    ///< F8 aborts a running action and ends the program
    std::uint8_t StopIfFolderNotExist = 1;         ///< a missing directory takes its activity out of monitoring
    std::uint8_t SummaryLine = 0;                  ///< a run's summary is the last line of its activity's log
    std::uint8_t MailVariables = 0;                ///< "%copied%" and the like are filled in in mails
    std::uint8_t Notify = 0;                       ///< on the desktop: 1 failed runs, 2 also those that did something
    std::uint8_t CountByTheClock = 0;              ///< intervals are real time
    std::uint8_t RunLate = 0;                      ///< what was missed runs as soon as it can
    bool CancelOptions = false;                    ///< the last options dialog was cancelled; not stored

    [[nodiscard]] bool ShutdownWhenIdle() const override { return Shutdown == 1; }
    [[nodiscard]] bool SafeExit() const override { return ExitAlert == 1; }
    [[nodiscard]] bool StopOnMissingFolder() const override { return StopIfFolderNotExist == 1; }
    [[nodiscard]] QString ApplicationLog() const override { return LoggingPath; }
    [[nodiscard]] bool SummaryInLog() const override { return SummaryLine == 1; }
    [[nodiscard]] bool SummaryInMail() const override { return MailVariables == 1; }
    [[nodiscard]] bool EvenIntervals() const override { return CountByTheClock == 1; }
    [[nodiscard]] bool RunMissed() const override { return RunLate == 1; }

  private:
    SettingsStore& m_settings;
    QList<QList<std::uint8_t>> m_stored; ///< of the sections of their own
};
