// The mail client's own settings, kept for the user when persistence is switched on. Owns their values; a value that
// cannot be read takes its default, one that cannot be written is lost without a word.
#pragma once

#include <QString>

class SettingsStore;

class MailSettings final {
  public:
    /// The application name under which they are stored.
    static inline const QString Application = QStringLiteral("Postrelle");

    explicit MailSettings(SettingsStore& store);

    struct Values {
        QString from;
        QString fromDisplayName;
        QString popHost;
        QString smtpHost;
        int smtpPort = 25;
        int hostValidation = 3;  ///< 0 accepts every host name
        int emailValidation = 1; ///< 0 accepts every address
        int connectTimeout = 30; ///< seconds
        int messageTimeout = 60; ///< seconds
        int connectRetry = 4;    ///< attempts
        int encodeType = 0;      ///< 0 MIME, 1 uuencode
        QString username;
        bool useAuthentication = false;
        bool usePopAuthentication = false;
    };
    [[nodiscard]] const Values& Get() const { return m_values; }

    /// Sets one value, and writes it when persistence is on.
    void Set(QString Values::*field, const QString& value);
    void Set(int Values::*field, int value);
    void Set(bool Values::*field, bool value);

    /// What the store says of this does not count; it is not written.
    void Forget(QString Values::*field) { (m_values.*field).clear(); }

    [[nodiscard]] bool IsPersistent() const { return m_persistent; }
    void SetPersistent(bool persistent);

  private:
    void write(const QString& key, const QString& value);

    SettingsStore& m_store;
    Values m_values;
    bool m_persistent = false;
};
