// How the last run of each activity ended. Keeps the results of one activity file at a time in a file of the state
// folder, so that they outlive the program and a window shows those of the service. What cannot be kept there is
// forgotten when the program ends.
#pragma once

#include "RunResult.h"
#include "StateFile.h"
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

class ActivityFile;
class Clock;

class RunResults final : public QObject {
    Q_OBJECT
  public:
    RunResults(const ActivityFile& activities, OwnFiles& files, const Clock& clock, std::filesystem::path stateFolder);
    ~RunResults() override;

    /// From here to Ended the activity is running.
    void Began(const RunIdentity& run);
    /// What there is to say of a run that ends now.
    [[nodiscard]] RunResult Result(const RunIdentity& run, const QString& log, const RunOutcome& outcome,
                                   const RunCounts& done) const;
    void Ended(const RunIdentity& run, const RunResult& result);

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

  Q_SIGNALS:
    void Changed(const QString& name);
    void RunEnded(const RunIdentity& run, const RunResult& result);

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
