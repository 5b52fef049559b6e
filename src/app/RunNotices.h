// Tells of ended runs on the desktop, as far as the general options ask for it. At most one notice a second: what ends
// meanwhile is told together. The same failure of an activity is told once an hour.
#pragma once

#include "Notifier.h"
#include "RunResult.h"
#include <QHash>
#include <QObject>
#include <QTimer>

class Clock;
class RunResults;
class StringTable;
class clsWatcher;

class RunNotices final : public QObject {
    Q_OBJECT
  public:
    struct Parts {
        const clsWatcher& options;
        const StringTable& texts;
        const Clock& clock;
        Notifier& notifier;
    };
    RunNotices(const RunResults& results, const Parts& parts);
    /// Tells what waits.
    ~RunNotices() override;

  private:
    struct Told {
        QString reason;
        std::chrono::steady_clock::time_point at;
    };
    struct Ended {
        QString name;
        RunResult result;
    };
    using Waiting = QList<Ended>;
    void take(const QString& name, const RunResult& result);
    [[nodiscard]] bool isWanted(const QString& name, const RunResult& result);
    [[nodiscard]] bool isNew(const QString& name, const QString& reason);
    void tell();
    void tell(Waiting& waiting, bool isFailure);

    Parts m_parts;
    QHash<QString, Told> m_failures; ///< the last one of each activity
    Waiting m_failed;
    Waiting m_done;
    QTimer m_pause;
};
