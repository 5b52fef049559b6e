// Hears a service's Pause and Continue (SIGUSR1, SIGUSR2) and tells them from the event loop, where everything is
// allowed. Owns the signals' handlers while it lives; one at a time. Where they cannot be set nothing is ever told.
#pragma once

#include <QObject>
#include <memory>

class PauseSignals final : public QObject {
    Q_OBJECT

  public:
    /// A QCoreApplication must exist. A signal that was ignored from outside stays ignored.
    explicit PauseSignals(QObject* parent = nullptr);
    ~PauseSignals() override;

  Q_SIGNALS:
    /// In the order in which the signals came.
    void Paused();
    void Continued();

  private:
    class Handlers;
    std::unique_ptr<Handlers> m_handlers;
};
