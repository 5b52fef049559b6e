#include "MailSettings.h"
#include "SettingsStore.h"

#include <QStringList>
#include <array>
#include <tuple>

namespace {

const QString persistentKey = QStringLiteral("PersistentSettings");
constexpr const char* securityKey = "MailSecurity";

using Values = MailSettings::Values;

template <typename T>
struct Entry {
    const char* key;
    T Values::*field;
};

constexpr std::array<Entry<QString>, 7> texts{{{"CAFile", &Values::caFile},
                                               {"From", &Values::from},
                                               {"FromDisplayName", &Values::fromDisplayName},
                                               {"PasswordFile", &Values::passwordFile},
                                               {"Pop3Host", &Values::popHost},
                                               {"RemoteHost", &Values::smtpHost},
                                               {"Username", &Values::username}}};

constexpr std::array<Entry<int>, 7> numbers{{{"RemotePort", &Values::smtpPort},
                                             {"SMTPHostValidation", &Values::hostValidation},
                                             {"EmailValidation", &Values::emailValidation},
                                             {"ConnectTimeout", &Values::connectTimeout},
                                             {"MessageTimeout", &Values::messageTimeout},
                                             {"ConnectRetry", &Values::connectRetry},
                                             {"EncodeType", &Values::encodeType}}};

constexpr std::array<Entry<bool>, 2> switches{
    {{"UseAuthentication", &Values::useAuthentication}, {"UsePopAuthentication", &Values::usePopAuthentication}}};

/// A mistyped value must not send in the clear.
MailSecurity securityOf(const std::optional<QString>& text) {
    bool isNumber = false;
    const int number = text.value_or(QStringLiteral("0")).toInt(&isNumber);
    const bool isKnown = isNumber && number >= 0 && number < static_cast<int>(MailSecurity::Unknown);
    return isKnown ? static_cast<MailSecurity>(number) : MailSecurity::Unknown;
}

/// The program writes 1; people who edit the file write "True".
bool isOn(const QString& text) {
    return text.toInt() != 0 ||
           QStringList{QStringLiteral("true"), QStringLiteral("yes"), QStringLiteral("on")}.contains(
               text.trimmed(), Qt::CaseInsensitive);
}

template <typename Table, typename Field>
QString keyOf(const Table& table, Field field) {
    for (const auto& entry : table)
        if (entry.field == field)
            return QLatin1String(entry.key);
    return {};
}

} // namespace

MailSettings::MailSettings(SettingsStore& store) : m_store(store) {
    const auto read = [this](const QString& key) { return m_store.Read(Application, Section, key); };
    m_persistent = isOn(read(persistentKey).value_or(QString()));
    if (!m_persistent)
        return;
    for (const auto& [key, field] : texts)
        m_values.*field = read(QLatin1String(key)).value_or(m_values.*field);
    for (const auto& [key, field] : numbers) {
        bool isNumber = false;
        const int value = read(QLatin1String(key)).value_or(QString()).toInt(&isNumber);
        if (isNumber)
            m_values.*field = value;
    }
    for (const auto& [key, field] : switches)
        m_values.*field = isOn(read(QLatin1String(key)).value_or(QString()));
    m_values.security = securityOf(read(QLatin1String(securityKey)));
}

void MailSettings::Set(QString Values::*field, const QString& value) {
    m_values.*field = value;
    write(keyOf(texts, field), value);
}

void MailSettings::Set(int Values::*field, int value) {
    m_values.*field = value;
    write(keyOf(numbers, field), QString::number(value));
}

void MailSettings::Set(bool Values::*field, bool value) {
    m_values.*field = value;
    write(keyOf(switches, field), QString::number(value ? 1 : 0));
}

void MailSettings::write(const QString& key, const QString& value) {
    if (m_persistent)
        std::ignore = m_store.Write(Application, Section, key, value);
}

void MailSettings::SetPersistent(bool persistent) {
    m_persistent = persistent;
    std::ignore = m_store.Write(Application, Section, persistentKey, QString::number(persistent ? 1 : 0));
}
