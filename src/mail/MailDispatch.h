// One notification on its way through the program's own mail client. Owns the client until the mail has gone or failed;
// every step that fails is skipped, and the last reason is told at the end.
#pragma once

#include "MailOrder.h"
#include "clsSendMail.h"

class MailDispatch final : public QObject {
    Q_OBJECT
  public:
    MailDispatch(MailOrder order, SettingsStore& settings, const NameService& names, const Clock& clock);

    void Begin();
    /// Gives up; Ended follows.
    void Shutdown() { m_mail.Shutdown(); }
    [[nodiscard]] const MailOrder& Order() const { return m_order; }

  Q_SIGNALS:
    /// Once, from the event loop. `failure` is empty when the server has taken the mail.
    void Ended(const QString& failure);

  private:
    void send(bool ready);
    void end(bool accepted);

    MailOrder m_order;
    clsSendMail m_mail;
    QString m_failure;
};
