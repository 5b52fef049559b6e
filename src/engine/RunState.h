// What is under way in the engine right now. Runs and mails report to it, everything else asks it. Owned by Program.
#pragma once

#include "RunFacts.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <utility>

/// What the run on top of the stack has done so far.
struct RunProgress {
    QString activity; ///< empty while nothing runs
    RunCounts done = {};
    bool mustStop = false; ///< the user wants this run to end
};

class RunState final {
  public:
    /// A run from its first step to its last. Runs lie inside one another when events of one start another.
    class Run final {
      public:
        Run(RunState& state, const QString& name)
            : m_state(state), m_interrupted(std::exchange(state.m_progress, {name})) {
            ++m_state.m_depth;
        }
        ~Run() {
            --m_state.m_depth;
            m_state.m_progress = m_interrupted;
        }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        void Started() { m_state.m_lastProcessed = m_state.m_progress.activity; }

      private:
        RunState& m_state;
        RunProgress m_interrupted;
    };

    /// Of the innermost run.
    [[nodiscard]] RunCounts& Counts() { return m_progress.done; }
    [[nodiscard]] const RunProgress& Progress() const { return m_progress; }
    void StopRun() { m_progress.mustStop = true; }
    [[nodiscard]] int Depth() const { return m_depth; }

    /// Name of the activity that was started last.
    [[nodiscard]] const QString& LastProcessed() const { return m_lastProcessed; }

    void MailBegan() { ++m_mails; }
    void MailEnded() { --m_mails; }

    /// Something is under way that must not be cut off, for example by switching the machine off.
    [[nodiscard]] bool Running() const { return m_depth > 0 || m_mails > 0; }

    /// Activities whose run is held, and why.
    void SetHeld(const QString& name, const QString& reason) { m_held[name] = reason; }
    void ForgetHeld(const QString& name) { m_held.remove(name); }
    void ForgetHeld() { m_held.clear(); }
    [[nodiscard]] const QHash<QString, QString>& Held() const { return m_held; }

    /// The program is about to end: runs finish the current file, nothing new begins.
    void RequestEnd() { m_closing = true; }
    [[nodiscard]] bool Closing() const { return m_closing; }

  private:
    RunProgress m_progress;
    QString m_lastProcessed;
    QHash<QString, QString> m_held;
    int m_depth = 0;
    int m_mails = 0;
    bool m_closing = false;
};
