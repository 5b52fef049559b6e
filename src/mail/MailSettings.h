// The mail client's own settings, stored for the user while persistence is on. A value that cannot be read takes its
// default; a failed write is ignored.
#pragma once

#include <QString>

class SettingsStore;

/// The servers a mail session talks to, how it logs in and how long it waits. Nothing in it is checked.
struct MailServers {
    QString smtpHost;
    int smtpPort = 25;
    QString popHost;
    int popPort = 110;
    QString username;
    QString password;
    bool useAuthentication = false;
    bool usePopAuthentication = false;
    int connectRetry = 4;    ///< attempts
    int connectTimeout = 30; ///< seconds for each wait of the connect phase; below 1 every wait fails at once
    int messageTimeout = 60; ///< seconds for each wait of the send phase
};

class MailSettings final {
  public:
    /// The application name under which they are stored.
    static inline const QString Application = QStringLiteral("Postrelle");

    explicit MailSettings(SettingsStore& store);

    /// POP3 port and password are never stored.
    struct Values : MailServers {
        QString from;
        QString fromDisplayName;
        int hostValidation = 3;  ///< 0 accepts every host name
        int emailValidation = 1; ///< 0 accepts every address
        int encodeType = 0;      ///< 0 MIME, 1 uuencode
    };
    [[nodiscard]] const Values& Get() const { return m_values; }

    /// Sets one value, and writes it when persistence is on.
    void Set(QString Values::*field, const QString& value);
    void Set(int Values::*field, int value);
    void Set(bool Values::*field, bool value);

    /// Clears the value for this object only; the store keeps it.
    void Forget(QString Values::*field) { (m_values.*field).clear(); }

    void SetPersistent(bool persistent);

  private:
    void write(const QString& key, const QString& value);

    SettingsStore& m_store;
    Values m_values;
    bool m_persistent = false;
};
