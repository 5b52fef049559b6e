// The last 100 runs of each activity, for the statistics. Keeps those of one activity file at a time in a file of the
// state folder. Runs in a row that did nothing, all for the same reason, share one entry, or those of a few minutes
// would push out all others. What cannot be kept there is forgotten; nothing depends on it.
#pragma once

#include "RunResult.h"
#include "StateFile.h"
#include <QHash>
#include <QObject>
#include <QTimer>
#include <vector>

class ActivityFile;

/// One run; or several in a row that did nothing and ended alike.
struct PastRun {
    RunResult result; ///< of the last of them, without its log; the time is that of the longest
    QDateTime since;  ///< when the first of them ended
    std::int64_t runs = 1;
    bool operator==(const PastRun&) const = default;

    /// True when both did nothing and say the same.
    [[nodiscard]] bool IsLike(const PastRun& other) const;
};

class RunHistory final : public QObject {
    Q_OBJECT
  public:
    static constexpr std::size_t MostRuns = 100;

    RunHistory(const ActivityFile& activities, OwnFiles& files, std::filesystem::path stateFolder);
    ~RunHistory() override;

    void Add(const RunIdentity& run, const RunResult& result);

    /// The oldest first, with those of another process. Empty where the activity has not run yet as it is now.
    [[nodiscard]] std::vector<PastRun> Of(const RunIdentity& run) const;

  private:
    struct Unsaved {
        RunIdentity run;
        std::vector<PastRun> runs;
    };
    [[nodiscard]] static std::vector<PastRun> merged(const QJsonObject& kept, const Unsaved& unsaved);
    void save();

    const ActivityFile& m_activities;
    StateFile m_file;
    QString m_activityFile;            ///< of what is unsaved
    QHash<QString, Unsaved> m_unsaved; ///< by name
    QHash<QString, PastRun> m_last;    ///< of each activity, saved or not
    QTimer m_saving;
};
