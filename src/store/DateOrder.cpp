#include "DateOrder.h"

QString DateOrder::Format(const QLocale& locale) {
    if (locale.language() == QLocale::German)
        return QStringLiteral("dd.MM.yyyy");
    if (locale.language() == QLocale::C)
        return QStringLiteral("MM/dd/yyyy");
    const QString order = locale.dateFormat(QLocale::ShortFormat);
    const qsizetype day = order.indexOf(u'd');
    const qsizetype month = order.indexOf(u'M');
    const qsizetype year = order.indexOf(u'y');
    if (year < day && year < month)
        return QStringLiteral("yyyy-MM-dd");
    if (month < day)
        return QStringLiteral("MM/dd/yyyy");
    return order.contains(u'.') ? QStringLiteral("dd.MM.yyyy") : QStringLiteral("dd/MM/yyyy");
}

QString DateOrder::Spelled(const QString& format, const QString& letters) {
    QString spelled = format;
    for (QChar& c : spelled) {
        const qsizetype which = QStringLiteral("dMy").indexOf(c);
        if (which >= 0 && which < letters.size())
            c = letters[which];
    }
    return spelled;
}
