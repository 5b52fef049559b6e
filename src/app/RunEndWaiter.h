// Waits until nothing is under way: no run on the stack, no mail. Polls with a timer, since a run may end deep in a
// nested event loop.
#pragma once

#include <QObject>
#include <QTimer>

class Program;

class RunEndWaiter final : public QObject {
    Q_OBJECT
  public:
    explicit RunEndWaiter(Program& program, QObject* parent = nullptr);

    /// Asks a run to end after its current file and starts waiting. A second call changes nothing.
    void Begin();
    [[nodiscard]] bool Waiting() const { return m_begun; }

    /// Waits until everything has ended by itself; events run meanwhile.
    void WaitOut();

  Q_SIGNALS:
    /// Emitted from the event loop, never from inside Begin.
    void Ended();

  private:
    void look();

    Program& m_program;
    QTimer m_timer{this};
    bool m_begun = false;
};
