// The queue of all notifications. Owns the mails under way and those that wait. At most two go to one server at a time,
// so that a server which never answers delays only its own mails and none is swamped. A mail that fails leaves a line
// with the reason in the log that its activity had when the mail was queued.
#pragma once

#include "EngineServices.h"
#include "MailDispatch.h"
#include <chrono>
#include <deque>
#include <list>

class ActivityLogs;
class DesktopMailClient;
class RunState;

class ActivityMail final : public QObject, public ActivityMailer {
    Q_OBJECT
  public:
    struct Parts {
        const ActivityFile& file;
        ActivityLogs& logs;
        MailServices mail;
        DesktopMailClient& desktop;
        const StringTable& texts;
        RunState& runState;
    };
    explicit ActivityMail(const Parts& parts);
    ~ActivityMail() override;

    /// Reads the record, queues the mail and returns at once.
    int SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath,
                         const QHash<QString, QString>& variables) override;

    /// Gives up whatever is not sent after this time.
    void GiveUpAfter(std::chrono::milliseconds grace);

  private:
    struct Session {
        std::unique_ptr<MailDispatch> dispatch;
        QString place;       ///< as the record says: a server, or "@" and the domain whose server is looked up
        QString server;      ///< once it is known
        bool isHeld = false; ///< waits until another session to this server ends
    };
    void sendByDesktop(const MailOrder& order);
    void makeRoomFor(const QString& name);
    void startWaiting();
    void begin(MailOrder order, const QString& place);
    [[nodiscard]] bool mayOpen(const MailDispatch* dispatch, const QString& host);
    [[nodiscard]] bool isFree(const QString& placeOrServer) const;
    void ended(const MailDispatch* dispatch, const QString& failure);
    void writeLine(const MailOrder& order, const QString& text);
    void drop(const MailOrder& order, const QString& reason);
    void giveUp();

    Parts m_parts;
    std::deque<MailOrder> m_waiting; ///< in the order they were queued
    std::list<Session> m_sessions;
    bool m_givenUp = false;
};
