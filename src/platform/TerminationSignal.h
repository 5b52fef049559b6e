// Tells that the process was asked to end (SIGTERM, SIGINT). Owns the handlers while it lives.
#pragma once

#include <QObject>
#include <memory>

class TerminationSignal : public QObject {
    Q_OBJECT
  Q_SIGNALS:
    /// Comes from the event loop.
    void Requested();
};

[[nodiscard]] std::unique_ptr<TerminationSignal> MakeTerminationSignal();
