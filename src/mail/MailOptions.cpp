#include "MailOptions.h"
#include "SettingsStore.h"

namespace {

MailOptions optionsOf(const MailSettings::Values& values) {
    return {.security = values.security,
            .port = values.smtpPort,
            .user = values.useAuthentication ? values.username : QString(),
            .host = values.smtpHost,
            .passwordFile = values.passwordFile,
            .caFile = values.caFile};
}

} // namespace

MailOptions MailOptions::Read(SettingsStore& store) {
    return optionsOf(MailSettings(store).Get());
}

std::error_code MailOptions::Write(SettingsStore& store) const {
    const MailSettings settings(store);
    const MailOptions before = optionsOf(settings.Get());
    if (*this == before)
        return {};
    SettingsStore::Entries entries;
    // Values that did not count so far are replaced by what the user has seen.
    const auto add = [&](const char* key, const QString& value, bool differs) {
        if (differs || !settings.IsPersistent())
            entries.emplace_back(QLatin1String(key), value);
    };
    const auto code = [](int number) { return QString::number(number); };
    if (security != MailSecurity::Unknown)
        add("MailSecurity", code(static_cast<int>(security)), security != before.security);
    add("RemotePort", code(port), port != before.port);
    add("UseAuthentication", code(user.isEmpty() ? 0 : 1), user != before.user);
    add("Username", user, user != before.user);
    add("RemoteHost", host, host != before.host);
    add("PasswordFile", passwordFile, passwordFile != before.passwordFile);
    add("CAFile", caFile, caFile != before.caFile);
    entries.emplace_back(QStringLiteral("PersistentSettings"), QStringLiteral("1"));
    return store.WriteAll(MailSettings::Application, MailSettings::Section, entries);
}
