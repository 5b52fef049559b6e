// Turns the system's request to terminate (SIGTERM, SIGINT, SIGHUP; Ctrl+C, a closed console) into a Qt signal from the
// event loop. Owns the handlers; only one object at a time. When they cannot be installed, the default stays: the
// process ends at once.
#pragma once

#include <QObject>
#include <memory>

class TerminationSignal final : public QObject {
    Q_OBJECT

  public:
    /// A QCoreApplication must exist. A signal that the parent process ignores (nohup) stays ignored.
    explicit TerminationSignal(QObject* parent = nullptr);
    ~TerminationSignal() override;

  Q_SIGNALS:
    /// Once for each burst of signals. If a disk that does not answer blocks the process, the system ends it 30 s after
    /// the first signal.
    void Raised();

  private:
    class Handlers;
    std::unique_ptr<Handlers> m_handlers;
};
