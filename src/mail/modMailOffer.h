// What a mail server offers in its reply to EHLO. A pure function.
#pragma once

#include <QByteArrayList>
#include <optional>

namespace modMailOffer {

/// The words of the line that begins with `keyword` (RFC 5321, 4.1.1.1), upper case, without the keyword; nullopt where
/// there is none. Old servers put "=" for the blank.
[[nodiscard]] std::optional<QByteArrayList> WordsOf(const QByteArray& reply, const QByteArray& keyword);

} // namespace modMailOffer
