// What is planned next while monitoring is on, for the options "count intervals by the clock" and "run missed times
// late". Owns the plans; those that must outlive the program are kept in a file of the state folder until the user
// stops monitoring. A file that is missing or damaged means that nothing was missed.
#pragma once

#include "DueFacts.h"
#include "EngineServices.h"
#include "EvenGrid.h"
#include "Moments.h"
#include "StateFile.h"

class PlannedRuns final : public QObject {
    Q_OBJECT
  public:
    enum class Due { No, Now, Late };

    /// `folder`: the program's state folder; empty: nothing is kept.
    PlannedRuns(const EngineServices& services, DueFacts& facts, std::filesystem::path folder);

    /// Monitoring begins; ends, and `goesOn`: it was not the user who stopped it.
    void Begin();
    void End(bool goesOn);

    /// To be called at every tick: takes over changed options, sees a sleep and a clock that was set, keeps the file
    /// up to date. True when the intervals are counted in the other way from now on.
    [[nodiscard]] bool Follow();

    /// True while intervals are counted by the clock.
    [[nodiscard]] bool IsEven() const { return m_isEven; }
    /// True while moments are due by their plan.
    [[nodiscard]] bool KeepsMoments() const { return m_runsMissed; }

    /// Of an interval that is counted by the clock; of a moment that has a plan.
    [[nodiscard]] Due OfInterval(const QString& name, const DueFacts::Row& facts);
    [[nodiscard]] Due OfMoment(const QString& name, const DueFacts::Row& facts);

    /// The point or moment that is due, as the wall clock has it.
    [[nodiscard]] Moments::Second WhenDue(const QString& name) const;

    /// The same for one that may be ahead; nothing where there is none.
    [[nodiscard]] std::optional<Moments::Second> Next(const QString& name) const;

    /// Plans an interval's first run before its time.
    void BringForward(const QString& name, const DueFacts::Row& facts, std::chrono::seconds first);

    /// To be called around each run. A late one is noted as done before it begins: one that brings the machine down
    /// does not do so again.
    void RunBegins(const QString& name, Due due);
    void RunEnded(const QString& name, bool isDone);

  private:
    void forget(const QString& name);

    /// Of a moment.
    struct Plan {
        QChar type;
        QString time;
        QDate date;
        std::optional<Moments::Second> at; ///< nothing: never
        Moments::Second from;              ///< it is the first one after this
        bool isDone = false;               ///< has run in its minute
    };
    [[nodiscard]] static std::optional<Moments::Second> nextOf(const Plan& plan, Moments::Second after);
    static void moveOn(Plan& plan, Moments::Second after);
    [[nodiscard]] Plan& planOf(const QString& name, const DueFacts::Row& facts);
    [[nodiscard]] Moments::Second present() const;
    [[nodiscard]] Moments::Second onTheWall(EvenGrid::Moment moment) const;
    [[nodiscard]] std::optional<Moments::Second> toKeep(const QString& name) const;
    [[nodiscard]] QString keyOf(const QString& name) const;
    void planAll(const QJsonObject& kept);
    void planInterval(const QString& name, std::chrono::seconds length, std::optional<Moments::Second> kept);
    void dropChanged();
    void lookAtClock();
    void saveSoon(bool atOnce);
    void save();
    void forgetFile(const QString& activityFile);

    const EngineServices& m_services;
    DueFacts& m_facts;
    StateFile m_file;
    EvenGrid m_grid;
    QHash<QString, Plan> m_plans;
    QHash<QString, Plan> m_late;             ///< late runs under way, with their plan as it was before
    QHash<QString, EvenGrid::Moment> m_runs; ///< runs of intervals under way, since when
    QString m_savedFor;                      ///< the activity file whose plans are kept; empty: none
    QJsonObject m_saved;
    EvenGrid::Moment m_savedAt;
    std::optional<EvenGrid::Moment> m_saveAt;
    EvenGrid::Moment m_seenAt; ///< both clocks at the last look
    Moments::Second m_seenTime;
    std::chrono::seconds m_offset{0};
    bool m_isOn = false;
    bool m_isEven = false;
    bool m_runsMissed = false;
};
