// Passwords in the format of netrc(5): "machine HOST login USER password PASSWORD", over as many lines as one likes,
// with tokens in double quotes and "#" comments. A pure function.
#pragma once

#include <QByteArray>
#include <QString>

namespace modNetrc {

/// The password of this user at this host, both as they are: neither an entry without a login nor "default" counts.
/// Empty where there is none, or where the file breaks off. `host` is canonical (modMailHost).
[[nodiscard]] QByteArray PasswordOf(const QByteArray& netrc, const QString& host, const QString& user);

} // namespace modNetrc
