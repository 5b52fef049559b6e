// What an activity does about a detected change besides the file action: shows a pop-up, starts a program. A program
// that cannot be started leaves a line in the activity's log.
#pragma once

#include "EngineServices.h"
#include <QString>
#include <functional>

class ActivityLogs;
class Interruptions;

class Reactions final {
  public:
    Reactions(const EngineServices& services, ActivityLogs& logs, Interruptions& interruptions)
        : m_services(services), m_logs(logs), m_interruptions(interruptions) {}

    /// The pop-up comes first and waits for the user; only then the program is started, unless the answer to
    /// `mayGoOn` is no by that time: the record may be another one.
    void ReactToChange(const QString& name, const QString& path, const std::function<bool()>& mayGoOn);

  private:
    void executeFile(const QString& name, const QString& executable);

    const EngineServices& m_services;
    ActivityLogs& m_logs;
    Interruptions& m_interruptions;
};
