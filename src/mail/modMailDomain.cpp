#include "modMailDomain.h"

#include <QUrl>
#include <algorithm>

QByteArray modMailDomain::ToAscii(const QString& domain) {
    const bool plain = std::all_of(domain.begin(), domain.end(), [](QChar c) { return c < QChar(0x80); });
    const QByteArray ascii = plain ? QByteArray() : QUrl::toAce(domain);
    return ascii.isEmpty() ? domain.toUtf8() : ascii;
}

QByteArray modMailDomain::AddressToAscii(const QString& address) {
    const qsizetype domainAt = address.indexOf(u'@') + 1;
    return domainAt == 0 ? address.toUtf8() : address.left(domainAt).toUtf8() + ToAscii(address.mid(domainAt));
}
