// What the general options edit of the mail client's settings: how mail is encrypted and logs in.
#pragma once

#include "MailSettings.h"
#include <system_error>

struct MailOptions {
    MailSecurity security = MailSecurity::None;
    int port = 25;
    QString user; ///< "": no login
    QString host; ///< that the login is for; a mail names its own
    QString passwordFile;
    QString caFile;
    bool operator==(const MailOptions&) const = default;

    [[nodiscard]] static MailOptions Read(SettingsStore& store);

    /// Stores what differs from Read, all or nothing, and that the settings count from now on. Writes nothing when
    /// nothing differs.
    [[nodiscard]] std::error_code Write(SettingsStore& store) const;
};
