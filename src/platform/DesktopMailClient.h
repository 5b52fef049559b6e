// The mail program of the user's desktop, where there is one that other programs may drive. Cannot fail loudly: what it
// cannot do is left undone.
#pragma once

#include <QString>
#include <QStringList>

struct DesktopMail {
    QString to;
    QString from;
    QString cc;
    QString subject;
    QString body;
    QStringList attachments; ///< paths
};

class DesktopMailClient {
  public:
    virtual ~DesktopMailClient() = default;

    /// Hands the mail over to be sent at once.
    virtual void Send(const DesktopMail& mail) = 0;
};

/// Stands in where no mail program can be driven.
class NoDesktopMailClient final : public DesktopMailClient {
  public:
    void Send(const DesktopMail& /*mail*/) override {}
};
