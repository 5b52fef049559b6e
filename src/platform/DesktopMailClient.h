// The mail program of the user's desktop, if it lets other programs control it. A failure is silent.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

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

    /// True when it is the desktop's default mail program.
    [[nodiscard]] virtual bool IsMailHandler() = 0;

    /// The addresses of its contacts, in its own order, a contact without an address as ""; nullopt when they cannot be
    /// read.
    [[nodiscard]] virtual std::optional<QStringList> Contacts() = 0;
};

/// For systems without a mail program that can be controlled.
class NoDesktopMailClient final : public DesktopMailClient {
  public:
    void Send(const DesktopMail& /*mail*/) override {}
    bool IsMailHandler() override { return false; }
    std::optional<QStringList> Contacts() override { return std::nullopt; }
};
