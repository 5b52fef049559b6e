#include "modMailHost.h"
#include "modMailEncoding.h"

QString modMailHost::Canonical(const QString& host) {
    QString name = host.trimmed();
    if (name.startsWith(u'[') && name.endsWith(u']'))
        name = name.mid(1, name.size() - 2);
    name = QString::fromUtf8(modMailEncoding::DomainToAscii(name)).toLower();
    return name.endsWith(u'.') ? name.chopped(1) : name;
}
