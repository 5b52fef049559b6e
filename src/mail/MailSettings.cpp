#include "MailSettings.h"
#include "SettingsStore.h"

#include <array>
#include <tuple>

namespace {

const QString section = QStringLiteral("Settings");
const QString persistentKey = QStringLiteral("PersistentSettings");

using Values = MailSettings::Values;

template <typename T>
struct Entry {
    const char* key;
    T Values::*field;
};

constexpr std::array<Entry<QString>, 5> texts{{{"From", &Values::from},
                                               {"FromDisplayName", &Values::fromDisplayName},
                                               {"Pop3Host", &Values::popHost},
                                               {"RemoteHost", &Values::smtpHost},
                                               {"Username", &Values::username}}};

constexpr std::array<Entry<int>, 9> numbers{{{"RemotePort", &Values::smtpPort},
                                             {"SMTPHostValidation", &Values::hostValidation},
                                             {"EmailValidation", &Values::emailValidation},
                                             {"ConnectTimeout", &Values::connectTimeout},
                                             {"MessageTimeout", &Values::messageTimeout},
                                             {"ConnectRetry", &Values::connectRetry},
                                             {"EncodeType", &Values::encodeType},
                                             {"UseAuthentication", &Values::useAuthentication},
                                             {"UsePopAuthentication", &Values::usePopAuthentication}}};

template <typename Table, typename Field>
QString keyOf(const Table& table, Field field) {
    for (const auto& entry : table)
        if (entry.field == field)
            return QLatin1String(entry.key);
    return {};
}

} // namespace

MailSettings::MailSettings(SettingsStore& store) : m_store(store) {
    m_persistent = m_store.Read(MailSettings::Application, section, persistentKey).value_or(QString()).toInt() != 0;
    if (!m_persistent)
        return;
    for (const auto& [key, field] : texts)
        m_values.*field =
            m_store.Read(MailSettings::Application, section, QLatin1String(key)).value_or(m_values.*field);
    for (const auto& [key, field] : numbers) {
        bool isNumber = false;
        const int value =
            m_store.Read(MailSettings::Application, section, QLatin1String(key)).value_or(QString()).toInt(&isNumber);
        if (isNumber)
            m_values.*field = value;
    }
}

void MailSettings::Set(QString Values::*field, const QString& value) {
    m_values.*field = value;
    if (m_persistent)
        std::ignore = m_store.Write(MailSettings::Application, section, keyOf(texts, field), value);
}

void MailSettings::Set(int Values::*field, int value) {
    m_values.*field = value;
    if (m_persistent)
        std::ignore = m_store.Write(MailSettings::Application, section, keyOf(numbers, field), QString::number(value));
}

void MailSettings::SetPersistent(bool persistent) {
    m_persistent = persistent;
    std::ignore = m_store.Write(MailSettings::Application, section, persistentKey, QString::number(persistent ? 1 : 0));
}
