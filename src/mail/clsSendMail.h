// The program's own mail client: the mail, the server and the operations Connect, Send, Disconnect. Owns the
// connection. An operation ends with a signal. A setter that refuses its value keeps the old one; every error arrives
// as SendFailed.
#pragma once

#include "MailConnection.h"
#include "MailHostLookup.h"
#include "MailMessage.h"
#include "MailPassword.h"
#include "MailSettings.h"

/// What sending mail needs of the rest of the program. References only.
struct MailServices {
    SettingsStore& settings;
    const NameService& names;
    const Clock& clock;
    PasswordStore& passwords;
    const StringTable& texts;
};

class clsSendMail final : public QObject, private MailSessionEvents {
    Q_OBJECT
  public:
    explicit clsSendMail(const MailServices& services);
    ~clsSendMail() override;

    QString Delimiter = QStringLiteral(";"); ///< between the entries of all lists
    QString RecipientDisplayName;
    QString CcDisplayName;
    QString ReplyToAddress;
    QString Subject;
    QString Message;
    QString ContentBase;
    QString Password; ///< never stored; of an unencrypted login only
    bool AsHTML = false;
    bool Receipt = false;
    int POP3Port = 110;

    void SetFrom(const QString& address);
    void SetFromDisplayName(const QString& name) { m_settings.Set(&MailSettings::Values::fromDisplayName, name); }
    void SetRecipient(const QString& addresses);
    void SetCcRecipient(const QString& addresses);
    void SetBccRecipient(const QString& addresses);
    /// A list of paths of regular files. One that cannot be opened refuses the whole list.
    void SetAttachment(const QString& paths);
    [[nodiscard]] const QString& Attachment() const { return m_attachment; }
    /// 1 high, 3 normal, 5 low. Any other number is taken too, but leaves the word as it was.
    void SetPriority(int priority);

    /// Clears host and sender, so that this mail cannot go through a stored server or under a stored name.
    void ForgetStoredMail();
    void SetSMTPHost(const QString& host);
    /// 1 to 65535.
    void SetSMTPPort(int port);
    void SetPOP3Host(const QString& host);
    void SetUsername(const QString& name) { m_settings.Set(&MailSettings::Values::username, name); }
    void SetUseAuthentication(bool on) { m_settings.Set(&MailSettings::Values::useAuthentication, on); }
    void SetUsePopAuthentication(bool on) { m_settings.Set(&MailSettings::Values::usePopAuthentication, on); }
    void SetConnectRetry(int attempts) { m_settings.Set(&MailSettings::Values::connectRetry, attempts); }
    void SetConnectTimeout(int seconds) { m_settings.Set(&MailSettings::Values::connectTimeout, seconds); }
    void SetMessageTimeout(int seconds) { m_settings.Set(&MailSettings::Values::messageTimeout, seconds); }
    /// 0 MIME, 1 uuencode.
    void SetEncodeType(int type) { m_settings.Set(&MailSettings::Values::encodeType, type); }
    void SetEmailAddressValidation(int level) { m_settings.Set(&MailSettings::Values::emailValidation, level); }
    void SetSMTPHostValidation(int level) { m_settings.Set(&MailSettings::Values::hostValidation, level); }
    void SetPersistentSettings(bool on) { m_settings.SetPersistent(on); }

    /// Called with the server's name before a connection is opened; after a no, Resume() opens it.
    std::function<bool(const QString& host)> MayOpen;
    void Resume();

    /// Makes the session ready for a mail. Without a host, the domain of the first recipient is looked up.
    void Connect();
    /// Sends the mail. Without a ready session it connects first and closes afterwards.
    void Send();
    void Disconnect() { m_connection.Disconnect(); }
    /// Fails whatever is under way.
    void Shutdown();

  Q_SIGNALS:
    void Status(const QString& text);
    void SendSuccesful();
    void SendFailed(const QString& text);

    /// Connect and Send have ended. Emitted from the event loop, so that a slot may start the next operation.
    void ConnectEnded(bool ready);
    void SendEnded(bool accepted);

  private:
    void OnStatus(const QString& text) override { Q_EMIT Status(text); }
    void OnFailed(const QString& text) override { Q_EMIT SendFailed(text); }
    void OnConnectEnded(bool ready) override;
    void OnSendEnded(bool accepted) override;

    void reach(const QString& host);
    [[nodiscard]] QString securityFailure(const MailSettings::Values& settings);
    void open(const QString& password);
    void transmit();
    void refuseConnection(const QString& text);
    [[nodiscard]] MailMessage message() const;
    [[nodiscard]] QStringList split(const QString& list) const;
    [[nodiscard]] bool areValid(const QStringList& addresses) const;
    void setHost(QString MailSettings::Values::*field, const QString& host, const char* error);

    MailSettings m_settings;
    const Clock& m_clock;
    const StringTable& m_texts;
    QStringList m_recipients;
    QStringList m_copies;
    QStringList m_blindCopies;
    QString m_attachment;
    int m_priority = 3;
    QString m_priorityWord = QStringLiteral("Normal");
    bool m_sendWhenReady = false;   ///< Send is connecting
    bool m_closeAfterSend = false;  ///< Send opened the session
    bool m_opening = false;         ///< from Connect until the connection is opened or refused
    QString m_server;               ///< given or looked up
    MailConnection::TlsRules m_tls; ///< of this connection
    MailHostLookup m_lookup;
    MailPassword m_password;
    MailConnection m_connection;
};
