// The activities that also run when something in their source directory changes. Owns a watch for each of them, and
// when each is to run out of its schedule. Where a directory cannot be watched the schedule alone counts, and the logs
// say so once.
#pragma once

#include "EngineServices.h"
#include "FolderWatch.h"
#include "RunFacts.h"
#include <QMap>
#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>

class ActivityLogs;
class OwnPlaces;
enum class ActivityField;

class ChangeWatch final {
  public:
    /// `leftOut`: a folder that the program itself keeps writing to.
    ChangeWatch(const EngineServices& services, FolderWatches& watches, ActivityLogs& logs, const OwnPlaces& ownPlaces,
                std::filesystem::path leftOut);
    ~ChangeWatch();

    /// Watches for these activities and for no other.
    void Follow(const QStringList& names);

    /// The activities that are to run now, each told once; their logs say what has changed. A change is gathered until
    /// nothing has happened for the activity's settle time, but not for ever.
    [[nodiscard]] QStringList TakeDue();

    /// Where the run has left files out, the activity is due again when they may have settled.
    void RunEnded(const QString& name, const RunOutcome& outcome, std::chrono::steady_clock::duration took);

    [[nodiscard]] bool IsIdle() const { return m_followed.isEmpty() && m_again.isEmpty(); }

    /// Why an activity that is to be watched is not; empty when it is.
    [[nodiscard]] QString NotWatched(const QString& name) const;

    /// Ends all watches.
    void Stop();

  private:
    using Time = std::chrono::steady_clock::time_point;
    struct Followed {
        RunIdentity run;
        QString subfolders; ///< as the record says
        std::shared_ptr<FolderWatch> watch = {};
        Time retryAt = {};
        QString notWatched = {};
        std::optional<Time> first = {}; ///< change that has not led to a run yet
        QString firstText = {};         ///< what the log says of it
        Time last = {};
        Time mayRunAt = {}; ///< a tree that is never at rest is not walked all the time
    };
    struct Again {
        Time at = {};      ///< Time::max(): it has been told
        int doublings = 0; ///< of the span until then
    };
    [[nodiscard]] QString read(const QString& name, ActivityField field) const;
    void begin(Followed& followed);
    void take(Followed& followed);
    void ended(Followed& followed, const FolderWatch::News& news);
    [[nodiscard]] bool isDue(const Followed& followed) const;
    [[nodiscard]] bool matters(const RunIdentity& run, const std::filesystem::path& path) const;
    [[nodiscard]] bool isLog(const std::filesystem::path& path) const;

    const EngineServices& m_services;
    FolderWatches& m_watches;
    ActivityLogs& m_logs;
    const OwnPlaces& m_ownPlaces;
    std::filesystem::path m_leftOut;
    QMap<QString, Followed> m_followed; ///< by name
    QMap<QString, Again> m_again;       ///< by name
};
