// How the last run of each activity ended. Keeps the results of one activity file at a time in a file of the state
// folder, so that they outlive the program and a window shows those of the service. What cannot be kept there is
// forgotten when the program ends.
#pragma once

#include "RunFacts.h"
#include "StateFile.h"
#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <chrono>
#include <optional>

class ActivityFile;
class Clock;

enum class RunEnding {
    Fine,
    Failed, ///< a failure, a missing directory or a held run
    Early   ///< stopped, or ended with the program, without a failure
};

struct RunResult {
    RunEnding ending = RunEnding::Fine;
    QDateTime at;
    std::chrono::seconds took{0};
    RunCounts done;
    int failures = 0;
    QString reason;        ///< the first failure, or why the run ended early
    QString log;           ///< path of the activity's log; empty when it has none
    std::int64_t line = 0; ///< where in the log the reason, or else the end of the run, stands: an offset in bytes
    bool operator==(const RunResult&) const = default;
};

class RunResults final : public QObject {
    Q_OBJECT
  public:
    RunResults(const ActivityFile& activities, OwnFiles& files, const Clock& clock, std::filesystem::path stateFolder);
    ~RunResults() override;

    /// From here to Ended the activity is running.
    void Began(const RunIdentity& run);
    void Ended(const RunIdentity& run, const QString& log, const RunOutcome& outcome, const RunCounts& done);

    [[nodiscard]] bool IsRunning(const QString& name) const { return m_running.contains(name); }

    /// Nullopt where the activity has not run yet as it is now, with these directories and this action.
    [[nodiscard]] std::optional<RunResult> Of(const RunIdentity& run);

    /// Of the run that ended last since the program started.
    [[nodiscard]] const std::optional<RunIdentity>& Last() const { return m_last; }

    /// Activities with a failed run that the user has not been shown yet.
    [[nodiscard]] const QSet<QString>& Unseen() const { return m_unseen; }
    void Seen() { m_unseen.clear(); }

    /// Reads afresh what another process may have added.
    void Refresh();

    /// RFC 8259; the words are English whatever the language, sizes are bytes.
    [[nodiscard]] static QJsonObject ToJson(const RunIdentity& run, const RunResult& result);

  Q_SIGNALS:
    void Changed(const QString& name);

  private:
    void load(const QString& activityFile);
    void save();

    const ActivityFile& m_activities;
    const Clock& m_clock;
    StateFile m_file;
    QString m_loadedFor;   ///< an activity file
    QJsonObject m_results; ///< by name
    QSet<QString> m_unsaved;
    QHash<QString, std::chrono::steady_clock::time_point> m_running; ///< since when
    QSet<QString> m_unseen;
    std::optional<RunIdentity> m_last;
    QTimer m_saving;
};
