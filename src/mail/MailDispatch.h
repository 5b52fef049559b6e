// One notification on its way through the program's own mail client, from the activity's record to the server's answer.
// Owns the client. A mail whose host, sender or recipient is refused fails with the reason: it must not go another way
// than the record says. Any other step that fails is skipped.
#pragma once

#include "clsSendMail.h"
#include <QHash>

class ActivityFile;
class ActivityRecord;
class StringTable;

/// What the record says about its notification, read when the mail is queued.
struct MailOrder {
    QString name; ///< of the activity
    QString smtpHost;
    QString recipient;
    QString sender;
    QString copies;
    QString subject;
    QString text;     ///< the body without the lines about the last access
    QString longText; ///< the body with them
    QString logFile;
    QString lastFile;
    bool useDesktopClient = false;
    bool detailsWanted = false;
    bool attachLogFile = false;
    bool attachLastFile = false;

    /// Each "%NAME%" in subject and message becomes the variable of that NAME; what is no variable stays.
    [[nodiscard]] static MailOrder Read(const ActivityFile& file, const StringTable& texts, const QString& name,
                                        const QString& firstPath, const QString& secondPath,
                                        const QHash<QString, QString>& variables);

    /// A mail without a run: what the record says, nothing attached.
    [[nodiscard]] static MailOrder OfRecord(const ActivityRecord& record, const StringTable& texts);
};

class MailDispatch final : public QObject {
    Q_OBJECT
  public:
    MailDispatch(MailOrder order, const MailServices& services);

    /// Asks `mayOpen` with the server's name before it connects; after a no it waits for Resume().
    void Begin(std::function<bool(const QString& host)> mayOpen);
    void Resume() { m_mail.Resume(); }
    /// Gives up; Ended follows.
    void Shutdown();
    [[nodiscard]] const MailOrder& Order() const { return m_order; }

  Q_SIGNALS:
    /// The mail goes without this file.
    void NotAttached(const QString& path, const QString& reason);

    /// Emitted once, from the event loop. `failure` is empty when the server has accepted the mail.
    void Ended(const QString& failure);

  private:
    [[nodiscard]] bool setEnvelope();
    void attach(const QString& list, const QString& path);
    void send(bool ready);
    void end(bool accepted);

    MailOrder m_order;
    clsSendMail m_mail;
    QString m_failure;
    bool m_shutDown = false;
};
