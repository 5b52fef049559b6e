#include "VersionFile.h"

#include <QList>
#include <QStringDecoder>

namespace {

const QString section = QStringLiteral("~UP");

bool isSame(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QStringView withoutQuotes(QStringView value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == QLatin1Char('"') || value.front() == QLatin1Char('\''));
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

VersionFile::VersionFile(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    m_text = utf8.hasError() ? QString::fromLatin1(bytes) : text;
    m_text.replace(u'\r', u'\n');
}

QString VersionFile::Value(const QString& key) const {
    bool inSection = false;
    for (const QStringView whole : QStringView(m_text).split(QLatin1Char('\n'))) {
        const QStringView line = whole.trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            if (inSection)
                break;
            const qsizetype end = line.indexOf(QLatin1Char(']'));
            inSection = end > 0 && isSame(line.mid(1, end - 1).trimmed(), section);
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (inSection && equals > 0 && isSame(line.left(equals).trimmed(), key))
            return withoutQuotes(line.mid(equals + 1).trimmed()).left(LongestValue).toString();
    }
    return {};
}
