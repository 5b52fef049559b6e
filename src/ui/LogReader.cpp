#include "LogReader.h"

#include "modForeignText.h"
#include "modRegularFile.h"
#include <QFile>
#include <algorithm>
#include <iterator>

namespace {

constexpr qint64 block = LogPart::MostBytes / 2;
constexpr qint64 enough = block / 2;           // bytes of wanted lines; one block holds as many when all are wanted
constexpr qint64 mostLookedThrough = 32 << 20; // for one part, when few lines are wanted
constexpr qsizetype longestPiece = 10'000;     // the box would take minutes to show a line of millions
constexpr qsizetype mostLeftOut = 64 << 10;    // of a line at the edge of a block; a longer one is shown in pieces
constexpr qsizetype headBytes = 64;

/// Of a character in UTF-8; in another encoding a few characters of an overlong line.
bool isInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

qsizetype restOfCharacter(QByteArrayView bytes) {
    qsizetype rest = 0;
    while (rest < std::min<qsizetype>(bytes.size(), 3) && isInsideCharacter(bytes[rest]))
        ++rest;
    return rest;
}

/// Bytes to leave out at the front of what begins somewhere in a line.
qsizetype restOfLine(QByteArrayView bytes) {
    const qsizetype lineEnd = bytes.indexOf('\n');
    return lineEnd >= 0 && lineEnd < mostLeftOut ? lineEnd + 1 : restOfCharacter(bytes);
}

/// Where to cut so that no character is torn: at `wanted` or a few bytes before.
qsizetype cutBefore(QByteArrayView bytes, qsizetype wanted) {
    qsizetype cut = std::min(wanted, bytes.size());
    while (cut < bytes.size() && cut > wanted - 3 && cut > 1 && isInsideCharacter(bytes[cut]))
        --cut;
    return cut;
}

/// Bytes to keep of what ends somewhere in a line.
qsizetype wholeLines(QByteArrayView bytes) {
    const qsizetype lineEnd = bytes.lastIndexOf('\n');
    return lineEnd >= 0 && bytes.size() - lineEnd <= mostLeftOut
               ? lineEnd + 1
               : cutBefore(bytes, std::max<qsizetype>(bytes.size() - 4, 1));
}

qint64 lengthOf(const std::vector<LogLine>& lines) {
    qint64 bytes = 0;
    for (const LogLine& line : lines)
        bytes += line.end - line.begin;
    return bytes;
}

} // namespace

struct LogReader::Open {
    QFile file;
    qint64 size = 0;
    std::error_code error;

    QByteArray Read(qint64 from, qint64 bytes) {
        const bool isThere = file.seek(from);
        QByteArray read = isThere ? file.read(bytes) : QByteArray();
        if (!isThere || file.error() != QFileDevice::NoError)
            error = std::make_error_code(std::errc::io_error);
        return read;
    }
};

LogReader::LogReader(std::filesystem::path file, std::shared_ptr<const LogKinds> kinds, LogKindSet wanted)
    : m_file(std::move(file)), m_kinds(std::move(kinds)), m_wanted(wanted) {}

void LogReader::addPieces(std::vector<LogLine>& lines, QByteArrayView line, LogLine whole) const {
    // What an open line is about is told when it is whole.
    if (m_wanted && !m_wanted.testFlag(whole.kind) && !whole.isOpen)
        return;
    const qint64 end = whole.end;
    for (bool isFirst = true; isFirst || !line.isEmpty(); isFirst = false) {
        const qsizetype length = line.size() > longestPiece ? cutBefore(line, longestPiece) : line.size();
        const bool isLast = length == line.size();
        LogLine piece = whole;
        piece.end = isLast ? end : whole.begin + length;
        piece.isOpen = isLast && whole.isOpen;
        piece.text = modForeignText::Lines(QString::fromLocal8Bit(line.first(length)));
        whole.begin = piece.end;
        line = line.sliced(length);
        lines.push_back(std::move(piece));
    }
}

std::vector<LogLine> LogReader::linesOf(QByteArrayView bytes, qint64 offset, bool isLast) const {
    std::vector<LogLine> lines;
    const auto isLineEnd = [](char byte) { return byte == '\n' || byte == '\r'; };
    for (auto begin = bytes.begin(); begin != bytes.end();) {
        const auto end = std::find_if(begin, bytes.end(), isLineEnd);
        const bool isEnded = end != bytes.end();
        auto next = isEnded ? end + 1 : end;
        if (isEnded && *end == '\r' && next != bytes.end() && *next == '\n')
            ++next;
        const QByteArrayView text(begin, end - begin);
        LogLine line;
        line.begin = offset + (begin - bytes.begin());
        line.end = offset + (next - bytes.begin());
        line.kind = m_kinds ? m_kinds->Of(text) : LogKind::Other;
        line.isOpen = isLast && !isEnded;
        addPieces(lines, text, std::move(line));
        begin = next;
    }
    return lines;
}

void LogReader::readBefore(Open& log, LogPart& part) const {
    const qint64 stop = part.begin - mostLookedThrough;
    std::vector<std::vector<LogLine>> blocks; // the last one first
    qint64 kept = 0;
    while (part.begin > std::max<qint64>(stop, 0) && kept < enough && !log.error) {
        const qint64 from = std::max<qint64>(part.begin - block, 0);
        const QByteArray bytes = log.Read(from, part.begin - from);
        const qsizetype skipped = from > 0 ? restOfLine(bytes) : 0;
        blocks.push_back(linesOf(QByteArrayView(bytes).sliced(skipped), from + skipped, part.begin >= log.size));
        kept += lengthOf(blocks.back());
        part.begin = from + skipped;
    }
    std::vector<LogLine> all;
    std::for_each(blocks.rbegin(), blocks.rend(), [&all](std::vector<LogLine>& lines) {
        std::move(lines.begin(), lines.end(), std::back_inserter(all));
    });
    std::move(part.lines.begin(), part.lines.end(), std::back_inserter(all));
    part.lines = std::move(all);
}

void LogReader::readBehind(Open& log, LogPart& part) const {
    const qint64 stop = part.end + mostLookedThrough;
    qint64 kept = 0;
    while (part.end < std::min(stop, log.size) && kept < enough && !log.error) {
        QByteArray bytes = log.Read(part.end, std::min(block, log.size - part.end));
        if (bytes.isEmpty()) // it has been shortened meanwhile
            log.size = part.end;
        const bool isLast = part.end + bytes.size() >= log.size;
        if (!isLast)
            bytes.truncate(wholeLines(bytes));
        std::vector<LogLine> lines = linesOf(bytes, part.end, isLast);
        kept += lengthOf(lines);
        std::move(lines.begin(), lines.end(), std::back_inserter(part.lines));
        part.end += bytes.size();
    }
}

template <typename Read>
LogPart LogReader::read(Read read) const {
    LogPart part;
    Open log;
    part.error = modRegularFile::Open(m_file, log.file);
    if (part.error)
        return part;
    log.size = log.file.size();
    part.head = log.Read(0, headBytes);
    read(log, part);
    part.size = log.size;
    part.error = log.error;
    return part;
}

LogPart LogReader::Last() const {
    return read([this](Open& log, LogPart& part) {
        part.begin = part.end = log.size;
        readBefore(log, part);
    });
}

LogPart LogReader::Before(qint64 end) const {
    return read([this, end](Open& log, LogPart& part) {
        part.begin = part.end = std::clamp<qint64>(end, 0, log.size);
        readBefore(log, part);
    });
}

LogPart LogReader::From(qint64 begin) const {
    return read([this, begin](Open& log, LogPart& part) {
        part.begin = part.end = std::clamp<qint64>(begin, 0, log.size);
        readBehind(log, part);
    });
}

LogPart LogReader::Around(qint64 position) const {
    return read([this, position](Open& log, LogPart& part) {
        const qint64 at = std::clamp<qint64>(position, 0, log.size);
        const qint64 from = std::max<qint64>(at - mostLeftOut, 0);
        const QByteArray before = log.Read(from, at - from);
        const qsizetype lineEnd = before.lastIndexOf('\n');
        const bool isFound = lineEnd >= 0 || from == 0;
        part.begin = part.end = isFound ? from + lineEnd + 1 : at + restOfCharacter(log.Read(at, 3));
        readBehind(log, part);
        readBefore(log, part);
    });
}

LogPart LogReader::Look() const {
    return read([](Open& log, LogPart& part) { part.begin = part.end = log.size; });
}
