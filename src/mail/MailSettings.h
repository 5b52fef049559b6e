// The mail client's own settings, stored for the user while persistence is on. A value that cannot be read takes its
// default; a failed write is ignored.
#pragma once

#include <QString>

class SettingsStore;

enum class MailSecurity {
    None,
    StartTls, ///< RFC 3207; nothing but the wish for it goes unencrypted
    Tls,      ///< from the first byte, RFC 8314
    Unknown   ///< what is stored is no such number: nothing may be sent
};

/// The servers a mail session talks to, how it logs in and how long it waits. Nothing in it is checked.
struct MailServers {
    QString smtpHost;
    int smtpPort = 25;
    QString popHost;
    int popPort = 110;
    QString username;
    QString password; ///< of the user at this host
    bool useAuthentication = false;
    bool usePopAuthentication = false;
    MailSecurity security = MailSecurity::None;
    QString caFile;          ///< the only issuers that count; empty: those of the system
    int connectRetry = 4;    ///< attempts
    int connectTimeout = 30; ///< seconds for each wait of the connect phase; below 1 every wait fails at once
    int messageTimeout = 60; ///< seconds for each wait of the send phase

    /// Unencrypted, the login is tried as it always was, with an empty name too.
    [[nodiscard]] bool WantsLogin() const {
        return useAuthentication && (security == MailSecurity::None || !username.isEmpty());
    }
};

class MailSettings final {
  public:
    /// The application name under which they are stored.
    static inline const QString Application = QStringLiteral("Postrelle");
    static inline const QString Section = QStringLiteral("Settings");

    explicit MailSettings(SettingsStore& store);

    /// POP3 port and password are never stored.
    struct Values : MailServers {
        QString from;
        QString fromDisplayName;
        int hostValidation = 3;  ///< 0 accepts every host name
        int emailValidation = 1; ///< 0 accepts every address
        int encodeType = 0;      ///< 0 MIME, 1 uuencode
        QString passwordFile;    ///< in netrc format; empty: none
    };
    [[nodiscard]] const Values& Get() const { return m_values; }

    /// Sets one value, and writes it when persistence is on.
    void Set(QString Values::*field, const QString& value);
    void Set(int Values::*field, int value);
    void Set(bool Values::*field, bool value);

    /// Clears the value for this object only; the store keeps it.
    void Forget(QString Values::*field) { (m_values.*field).clear(); }

    void SetPersistent(bool persistent);
    [[nodiscard]] bool IsPersistent() const { return m_persistent; }

  private:
    void write(const QString& key, const QString& value);

    SettingsStore& m_store;
    Values m_values;
    bool m_persistent = false;
};
