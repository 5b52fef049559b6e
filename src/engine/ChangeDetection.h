// Runs one activity: opens its directories, lets a SyncRun do the work, and reports the end. Never throws: whatever
// goes wrong ends the run with a line in the log.
#pragma once

#include "DriveGuard.h"
#include "SyncRun.h"

class ChangeDetection final {
  public:
    /// `stateFolder` keeps what the runs have to know of each other.
    ChangeDetection(const RunTools& tools, ActivityMailer& mailer, std::filesystem::path stateFolder)
        : m_tools(tools), m_services(tools.services), m_mailer(mailer),
          m_drives(tools.services.ownFiles, std::move(stateFolder)) {}

    /// Runs the activity once, now. Events run inside: rows and the document may have changed afterwards.
    RunOutcome ProcessActivity(const QString& name, RunStarter starter, NewDrive newDrive = NewDrive::Hold);

  private:
    RunOutcome process(const RunIdentity& identity, RunStarter starter, NewDrive newDrive, RunState::Run& run);
    [[nodiscard]] bool isHeld(const RunIdentity& run, NewDrive newDrive, const Folder& source,
                              const Folder& destination);
    [[nodiscard]] bool mayRun(const QString& name, RunStarter starter) const;
    RunOutcome refuse(const QString& name, const QString& directory, std::error_code error);
    /// Returns what the row shows.
    QString handleMissing(const QString& name, const QString& directory);
    [[nodiscard]] std::int64_t endOfLog(const QString& name) const;
    void countRun(const QString& name);
    void sendMail(const QString& name, const Folder& source, const Folder& destination);

    RunTools m_tools;
    const EngineServices& m_services;
    ActivityMailer& m_mailer;
    DriveGuard m_drives;
};
