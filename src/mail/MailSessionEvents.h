// Hears how a mail session gets on. Calls come while the session works: an implementation must not begin or end an
// operation of that session from inside one, nor destroy it.
#pragma once

#include <QString>

class MailSessionEvents {
  public:
    virtual ~MailSessionEvents() = default;

    virtual void OnStatus(const QString& text) = 0;
    virtual void OnFailed(const QString& text) = 0;

    /// The connect phase is over; `ready` means that a mail can be sent.
    virtual void OnConnectEnded(bool ready) = 0;

    /// The send phase is over.
    virtual void OnSendEnded(bool accepted) = 0;
};
