#include "modTriggerDate.h"

#include <QStringList>

namespace {
QDate fromParts(const QStringList& parts, int year, int month, int day) {
    if (parts.size() != 3 || parts[year].size() != 4)
        return {};
    bool yearIsNumber = false;
    bool monthIsNumber = false;
    bool dayIsNumber = false;
    const QDate date(parts[year].toInt(&yearIsNumber), parts[month].toInt(&monthIsNumber),
                     parts[day].toInt(&dayIsNumber));
    return yearIsNumber && monthIsNumber && dayIsNumber ? date : QDate();
}
} // namespace

QDate modTriggerDate::Read(const QString& text, const QLocale& locale) {
    const QString date = text.trimmed();
    if (date.contains(u'.'))
        return fromParts(date.split(u'.'), 2, 1, 0);
    if (date.contains(u'-'))
        return fromParts(date.split(u'-'), 0, 1, 2);
    const QStringList parts = date.split(u'/');
    if (parts.size() == 3 && parts[0].size() == 4)
        return fromParts(parts, 0, 1, 2);
    const QString order = locale.dateFormat(QLocale::ShortFormat);
    const bool monthFirst = locale.language() == QLocale::C || order.indexOf(u'M') < order.indexOf(u'd');
    return monthFirst ? fromParts(parts, 2, 0, 1) : fromParts(parts, 2, 1, 0);
}

QString modTriggerDate::Format(const QLocale& locale) {
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

QString modTriggerDate::Spelled(const QString& format, const QString& letters) {
    QString spelled = format;
    for (QChar& c : spelled) {
        const qsizetype which = QStringLiteral("dMy").indexOf(c);
        if (which >= 0 && which < letters.size())
            c = letters[which];
    }
    return spelled;
}
