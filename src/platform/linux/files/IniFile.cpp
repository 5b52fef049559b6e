#include "IniFile.h"

#include <algorithm>

namespace {

const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");

bool survivesUtf8(const QString& text) {
    return QString::fromUtf8(text.toUtf8()) == text;
}

bool staysInOneLine(const QString& text) {
    return !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r')) && !text.contains(QChar(u'\0'));
}

bool isUsableKey(const QString& key) {
    return !key.isEmpty() && key.trimmed() == key && staysInOneLine(key) && survivesUtf8(key) &&
           !key.contains(QLatin1Char('=')) && !QStringLiteral("[;#").contains(key.front());
}

bool isUsableSection(const QString& section) {
    return !section.isEmpty() && section.trimmed() == section && staysInOneLine(section) && survivesUtf8(section);
}

} // namespace

IniFile::Place IniFile::find(const QByteArray& section, const QByteArray& key) const {
    Place place;
    bool inSection = false;
    for (qsizetype start = m_bytes.startsWith(byteOrderMark) ? byteOrderMark.size() : 0; start < m_bytes.size();) {
        const qsizetype newline = m_bytes.indexOf('\n', start);
        const qsizetype next = newline < 0 ? m_bytes.size() : newline + 1;
        const qsizetype end = newline < 0 ? m_bytes.size() : newline;
        const QByteArray line = m_bytes.mid(start, end - start);
        const QByteArray trimmed = line.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (trimmed.startsWith('[') && trimmed.endsWith(']')) {
            inSection = trimmed.mid(1, trimmed.size() - 2).trimmed() == section;
            if (inSection && place.sectionEnd < 0)
                place.sectionEnd = next;
        } else if (inSection && !trimmed.startsWith(';') && !trimmed.startsWith('#') && equals >= 0) {
            place.sectionEnd = next;
            if (line.left(equals).trimmed() == key) {
                const QByteArray whole = line.mid(equals + 1);
                const QByteArray value = whole.trimmed();
                place.valueStart = start + equals + 1 + whole.indexOf(value);
                place.valueEnd = place.valueStart + value.size();
                return place;
            }
        }
        start = next;
    }
    return place;
}

std::optional<QString> IniFile::Value(const QString& section, const QString& key) const {
    const Place place = find(section.toUtf8(), key.toUtf8());
    if (place.valueStart < 0)
        return std::nullopt;
    return QString::fromUtf8(m_bytes.mid(place.valueStart, place.valueEnd - place.valueStart));
}

QByteArray IniFile::lineEnd() const {
    const qsizetype newline = m_bytes.indexOf('\n');
    return newline > 0 && m_bytes[newline - 1] == '\r' ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
}

bool IniFile::SetValue(const QString& section, const QString& key, const QString& value) {
    if (!isUsableSection(section) || !isUsableKey(key) || !staysInOneLine(value) || !survivesUtf8(value))
        return false;
    const Place place = find(section.toUtf8(), key.toUtf8());
    const QByteArray bytes = value.toUtf8().trimmed();
    if (place.valueStart >= 0) {
        m_bytes.replace(place.valueStart, place.valueEnd - place.valueStart, bytes);
        return true;
    }
    QByteArray added = key.toUtf8() + '=' + bytes + lineEnd();
    const qsizetype at = place.sectionEnd < 0 ? m_bytes.size() : place.sectionEnd;
    if (place.sectionEnd < 0)
        added.prepend('[' + section.toUtf8() + ']' + lineEnd());
    if (at > 0 && m_bytes[at - 1] != '\n')
        added.prepend(lineEnd());
    m_bytes.insert(at, added);
    return true;
}
