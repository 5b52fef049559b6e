#include "LogPart.h"

#include "modRegularFile.h"
#include <QFile>
#include <algorithm>

namespace {

constexpr qsizetype longestLine = 10'000;   // the box would take minutes to show one of millions
constexpr qsizetype mostLeftOut = 64 << 10; // of a line at the edge of a part; a longer one is shown in pieces

/// No log has lines that long, but some other file may.
QString withBrokenLines(const QString& text) {
    QString broken;
    broken.reserve(text.size());
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype end = text.indexOf(u'\n', begin);
        const qsizetype length = (end < 0 ? text.size() : end + 1) - begin;
        const qsizetype taken = std::min(length, longestLine);
        broken += QStringView(text).mid(begin, taken);
        if (taken < length)
            broken += u'\n';
        begin += taken;
    }
    return broken;
}

QString shown(const QByteArray& bytes) {
    QString text = QString::fromLocal8Bit(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return withBrokenLines(text);
}

/// Bytes to leave out at the front of what begins somewhere in a line.
qsizetype partOfLine(const QByteArray& bytes) {
    if (const qsizetype lineEnd = bytes.indexOf('\n'); lineEnd >= 0 && lineEnd < mostLeftOut)
        return lineEnd + 1;
    qsizetype rest = 0; // of a character in UTF-8; in another encoding a few characters of an overlong line
    while (rest < std::min<qsizetype>(bytes.size(), 3) && (static_cast<unsigned char>(bytes[rest]) & 0xC0) == 0x80)
        ++rest;
    return rest;
}

LogPart read(QFile& file, qint64 from, qint64 mark) {
    LogPart part;
    part.size = file.size();
    part.begin = std::clamp<qint64>(from, 0, part.size);
    const bool isThere = file.seek(part.begin);
    QByteArray bytes = file.read(LogPart::MostBytes);
    if (!isThere || file.error() != QFileDevice::NoError) {
        part.error = std::make_error_code(std::errc::io_error);
        return part;
    }
    part.end = part.begin + bytes.size();
    if (const qsizetype lineEnd = bytes.lastIndexOf('\n');
        part.end < part.size && bytes.size() - lineEnd <= mostLeftOut) {
        part.end -= bytes.size() - lineEnd - 1;
        bytes.truncate(lineEnd + 1);
    }
    // The mark is the beginning of a line already; the one that it was moved away from may be none.
    if (const qsizetype skipped = part.begin > 0 && part.begin != mark ? partOfLine(bytes) : 0; skipped > 0) {
        part.begin += skipped;
        bytes.remove(0, skipped);
    }
    QString above = shown(bytes.left(std::clamp<qint64>(mark - part.begin, 0, bytes.size())));
    if (!above.isEmpty() && !above.endsWith(u'\n'))
        above += u'\n'; // a piece of a long line
    part.linesAbove = static_cast<int>(above.count(u'\n'));
    part.text = above + shown(bytes.mid(std::clamp<qint64>(mark - part.begin, 0, bytes.size())));
    return part;
}

/// `begin`: below 0, so far from the end.
LogPart open(const std::filesystem::path& path, qint64 begin, qint64 mark) {
    LogPart part;
    QFile file;
    part.error = modRegularFile::Open(path, file);
    return part.error ? part : read(file, begin < 0 ? file.size() + begin : begin, mark);
}

} // namespace

LogPart LogPart::Last(const std::filesystem::path& file) {
    return open(file, -MostBytes, 0);
}

LogPart LogPart::From(const std::filesystem::path& file, qint64 begin, qint64 mark) {
    return open(file, std::max<qint64>(begin, 0), mark);
}
