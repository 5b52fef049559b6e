// Tells when nothing is under way any more: no run on the stack, no mail. Owns a timer; never fails.
#pragma once

#include <QObject>
#include <QTimer>

class Program;

class RunEndWaiter final : public QObject {
    Q_OBJECT
  public:
    explicit RunEndWaiter(Program& program);

    /// Asks a run to end after its present file and starts to wait. A second call changes nothing.
    void Begin();
    [[nodiscard]] bool Waiting() const { return m_begun; }

    /// Waits until everything has ended by itself; events run meanwhile.
    void WaitOut();

  Q_SIGNALS:
    /// Comes from the event loop, never from inside Begin.
    void Ended();

  private:
    void look();

    Program& m_program;
    QTimer m_timer;
    bool m_begun = false;
};
