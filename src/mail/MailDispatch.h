// One notification on its way through the program's own mail client. Owns the client until the mail has gone or failed.
// Host, sender and recipient have to be as the record says, or the mail fails with the reason; any other step that
// fails is skipped.
#pragma once

#include "MailOrder.h"
#include "clsSendMail.h"

class MailDispatch final : public QObject {
    Q_OBJECT
  public:
    MailDispatch(MailOrder order, SettingsStore& settings, const NameService& names, const Clock& clock);

    /// `mayOpen` is asked with the server's name before a connection is made; after a no, Resume() makes it later.
    void Begin(std::function<bool(const QString& host)> mayOpen);
    void Resume() { m_mail.Resume(); }
    /// Gives up; Ended follows.
    void Shutdown();
    [[nodiscard]] const MailOrder& Order() const { return m_order; }

  Q_SIGNALS:
    /// The mail goes without this file.
    void NotAttached(const QString& path, const QString& reason);

    /// Once, from the event loop. `failure` is empty when the server has taken the mail.
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
