// The notifications of all activities. Owns the mails on their way: they go side by side, so that a server that never
// answers holds up its own activity's mail alone, and one activity has at most one on its way and one waiting. A mail
// that fails leaves a line in the activity's log.
#pragma once

#include "ActivityMailer.h"
#include "MailDispatch.h"
#include <chrono>
#include <map>

class ActivityLogs;
class DesktopMailClient;
class RunState;

class ActivityMail final : public QObject, public ActivityMailer {
    Q_OBJECT
  public:
    struct Parts {
        const ActivityFile& file;
        ActivityLogs& logs;
        SettingsStore& settings;
        const NameService& names;
        const Clock& clock;
        DesktopMailClient& desktop;
        const StringTable& texts;
        RunState& runState;
    };
    explicit ActivityMail(const Parts& parts);
    ~ActivityMail() override;

    /// Begins to send and returns at once.
    int SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath) override;

    /// Gives up what is still on its way after this time.
    void GiveUpAfter(std::chrono::milliseconds grace);

  private:
    struct Lane {
        std::unique_ptr<MailDispatch> present;
        std::optional<MailOrder> waiting;
    };
    void sendByDesktop(const MailOrder& order);
    void begin(Lane& lane, MailOrder order);
    void ended(const QString& name, const QString& failure);
    void giveUp();

    Parts m_parts;
    std::map<QString, Lane> m_lanes;
};
