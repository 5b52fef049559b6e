// Intervals counted by the clock: each activity runs at its start + k * interval of elapsed time, whatever is done to
// the wall clock. Owns what is due next, by name. A length that an activity did not have before begins anew.
#pragma once

#include <QChar>
#include <QHash>
#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

class Clock;

class EvenGrid final {
  public:
    using Moment = std::chrono::steady_clock::time_point; ///< of elapsed time

    struct Next {
        std::chrono::seconds interval{0};
        Moment due;
        bool isMissed = false; ///< this one, or others between it and now, passed unseen
    };

    explicit EvenGrid(const Clock& clock) : m_clock(clock) {}

    /// Nothing for what is no interval, no number, or less than 1.
    [[nodiscard]] static std::optional<std::chrono::seconds> LengthOf(QChar type, std::optional<std::int32_t> interval);

    void Clear();
    void Forget(const QString& name) { m_next.remove(name); }

    /// Plans a first run: after one interval from now, or sooner.
    void Begin(const QString& name, std::chrono::seconds interval, std::chrono::seconds first);
    /// Goes on with a grid that has a point at `due`, which may have passed.
    void Resume(const QString& name, std::chrono::seconds interval, Moment due);

    /// Begins where it knows nothing of the activity, or another interval.
    [[nodiscard]] Next Of(const QString& name, std::chrono::seconds interval);
    [[nodiscard]] std::optional<Next> Known(const QString& name) const;

    /// To be called after a run: the next point is ahead. With `late`, one that passed during the run is due at once.
    void Ran(const QString& name, Moment begin, bool late);

    /// To be called often: what was due while the machine slept is left out or, with `late`, due at once.
    void LookForSleep(bool late);

  private:
    [[nodiscard]] std::chrono::nanoseconds sleptUntilNow() const;

    const Clock& m_clock;
    QHash<QString, Next> m_next;
    std::chrono::nanoseconds m_slept{0};
};
