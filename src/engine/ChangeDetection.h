// Runs one activity: opens its directories, lets a SyncRun do the work, and reports the end. Never throws: whatever
// goes wrong ends the run with a line in the log.
#pragma once

#include "ActivityRecord.h"
#include "DriveGuard.h"
#include "SyncRun.h"

#include <map>

class RunBrake;
struct RunResult;

class ChangeDetection final {
  public:
    /// `stateFolder` keeps what the runs have to know of each other.
    ChangeDetection(const RunTools& tools, ActivityMailer& mailer, std::filesystem::path stateFolder)
        : m_tools(tools), m_services(tools.services), m_mailer(mailer),
          m_drives(tools.services.ownFiles, std::move(stateFolder)) {}

    /// Runs the activity once, now. Events run inside: rows and the document may have changed afterwards.
    /// `approved`: does nothing else, and ends where something is not as it was then.
    RunOutcome ProcessActivity(const QString& name, RunStarter starter, NewDrive newDrive = NewDrive::Hold,
                               ApprovedPlan* approved = nullptr);

    /// What a run would do now. Changes, logs, counts and asks nothing. Events run inside.
    [[nodiscard]] RunPlan PlanActivity(const QString& name);

  private:
    struct Order {
        QString log; ///< of the activity
        RunStarter starter;
        NewDrive newDrive;
        ApprovedPlan* approved;
    };
    struct Roots {
        std::shared_ptr<Folder> source;
        std::error_code sourceError;
        std::shared_ptr<Folder> destination;
        std::error_code destinationError;
    };
    [[nodiscard]] Roots open(const RunIdentity& run);
    RunOutcome process(const RunIdentity& identity, const Order& order, RunState::Run& run);
    RunOutcome work(const RunIdentity& identity, const Order& order, const Roots& roots, RunBrake* brake);
    [[nodiscard]] std::optional<RunOutcome> findHold(const RunIdentity& run, NewDrive newDrive, const Roots& roots);
    [[nodiscard]] std::optional<RunOutcome> askBrake(const RunIdentity& run, const Order& order, Roots& roots,
                                                     RunBrake& brake);
    [[nodiscard]] bool mayHaveExpired(const Folder& destination);
    [[nodiscard]] std::optional<QString> offItsDrive(const RunIdentity& run, const Roots& roots) const;
    RunOutcome hold(const QString& name, const QString& reason, bool isKnown);
    [[nodiscard]] ActivityRecord recordOf(const QString& name) const;
    [[nodiscard]] bool mayRun(const QString& name, RunStarter starter) const;
    RunOutcome refuse(const QString& name, const QString& log, const QString& directory, std::error_code error);
    /// Returns what the row shows.
    QString handleMissing(const QString& name, const QString& directory);
    void countRun(const QString& name);
    void sendMail(const RunIdentity& run, const Order& order, const RunOutcome& outcome, const Folder& source,
                  const Folder& destination);
    void writeSummary(const QString& name, const RunResult& result, const RunOutcome& outcome);

    RunTools m_tools;
    const EngineServices& m_services;
    ActivityMailer& m_mailer;
    DriveGuard m_drives;
    std::map<FileId, std::chrono::steady_clock::time_point> m_trashLooks; ///< by destination
    std::map<std::pair<QString, QString>, ActivityRecord> m_refused; ///< by file and name: the user wants no such run
};
