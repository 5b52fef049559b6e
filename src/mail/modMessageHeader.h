// The head of a mail's text: everything from "From:" to the empty line before the body. Free functions, no failure;
// addresses are the caller's business, every other text is made safe for a header here.
#pragma once

#include "MailMessage.h"
#include <QByteArray>
#include <QDateTime>

namespace modMessageHeader {

/// `boundary`: between the parts of a MIME mail with attachments, empty where there are none. `related`: a part is
/// shown inside the body.
[[nodiscard]] QByteArray Write(const MailMessage& message, const QDateTime& when, const QByteArray& boundary,
                               bool related);

} // namespace modMessageHeader
