// Hears the system's wish that this process ends (SIGTERM, SIGINT, SIGHUP) and tells it from the event loop, where
// everything is allowed. Owns the signals' handlers while it lives; one at a time. Where the handlers cannot be set,
// the system's default stays: the process ends at once.
#pragma once

#include <QObject>
#include <memory>

class TerminationSignal final : public QObject {
    Q_OBJECT

  public:
    /// A QCoreApplication must exist. A signal that was ignored from outside (nohup) stays ignored.
    explicit TerminationSignal(QObject* parent = nullptr);
    ~TerminationSignal() override;

  Q_SIGNALS:
    /// Once for each burst of signals. The system ends the process (SIGALRM) when it still lives 30 s after the first:
    /// a disk that does not answer holds it up.
    void Raised();

  private:
    class Handlers;
    std::unique_ptr<Handlers> m_handlers;
};
