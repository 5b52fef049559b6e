#include "ActivityLogs.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "Clock.h"
#include "OwnFiles.h"
#include "OwnPlaces.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modLogTime.h"
#include "modNativePath.h"

#include <tuple>

namespace {
const QString lineEnd = QStringLiteral("\r\n");

/// UTF-8, but on Windows in its ANSI code page, as other programs there expect it.
QByteArray entry(const Clock& clock, const QString& text) {
    return (u"-> [" + modLogTime::Text(clock.Now()) + u"] " + text + lineEnd).toLocal8Bit();
}
} // namespace

void ActivityLogs::SetActivityStatus(const QString& name, const QString& text) {
    m_services.list.SetText(name, ActivityList::Status, text);
    WriteActionLine(name, text);
}

void ActivityLogs::WriteActionLine(const QString& name, const QString& text) {
    WriteActionLineTo(m_services.file.Read(name, ActivityField::LogFile), name, text);
}

QString ActivityLogs::actionLine(const QString& name, const QString& text) const {
    return m_services.texts[Text::ActivityQuote] + name + u"' - " + text;
}

void ActivityLogs::WriteActionLineTo(const QString& logFile, const QString& name, const QString& text) {
    writeEntry(logFile, actionLine(name, text), false);
}

void ActivityLogs::GatherActionLine(const QString& logFile, const QString& name, const QString& text) {
    constexpr std::chrono::seconds mostDelay{1};
    constexpr qsizetype mostCharacters = qsizetype{256} * 1024;
    const auto now = m_services.clock.MonotonicNow();
    if (m_gatheringSince &&
        (m_gatheredLog != logFile || m_gatheredSize >= mostCharacters || now - *m_gatheringSince >= mostDelay))
        Flush();
    if (!m_gatheringSince)
        m_gatheringSince = now;
    const QString line = modForeignText::OneLine(actionLine(name, text));
    m_gatheredSize += line.size();
    if (m_listener)
        m_gatheredLines.append(line);
    m_gatheredLog = logFile;
    if (!logFile.trimmed().isEmpty())
        m_gatheredBytes += entry(m_services.clock, line);
}

void ActivityLogs::Flush() {
    if (!m_gatheringSince)
        return;
    m_gatheringSince.reset();
    m_gatheredSize = 0;
    const QStringList lines = std::exchange(m_gatheredLines, {});
    for (qsizetype at = 0; at < lines.size() && m_listener; ++at)
        m_listener(lines[at], at + 1 == lines.size());
    append(m_gatheredLog, std::exchange(m_gatheredBytes, {}));
}

void ActivityLogs::WriteActivityLog(const QString& name, const QString& text, bool blankLineFirst) {
    writeEntry(m_services.file.Read(name, ActivityField::LogFile), text, blankLineFirst);
}

bool ActivityLogs::mayWrite(const QString& path, Verdict& last) const {
    constexpr std::chrono::seconds goodFor{1};
    const auto now = m_services.clock.MonotonicNow();
    if (last.path != path || now - last.at >= goodFor)
        last = {path, now, !m_ownPlaces.IsProtected(path)};
    return last.mayWrite;
}

void ActivityLogs::writeEntry(const QString& path, const QString& text, bool blankLineFirst) {
    Flush();
    // A line break in a file's name must not pass for an entry of its own.
    const QString line = modForeignText::OneLine(text);
    if (m_listener)
        m_listener(line, true);
    if (path.trimmed().isEmpty())
        return;
    const QByteArray bytes = entry(m_services.clock, line);
    append(path, blankLineFirst ? lineEnd.toLatin1() + bytes : bytes);
}

void ActivityLogs::append(const QString& path, const QByteArray& bytes) {
    if (!bytes.isEmpty() && mayWrite(path, m_activityLog))
        std::ignore = m_services.ownFiles.Append(modNativePath::FromText(path), bytes, true);
}

std::int64_t ActivityLogs::EndOf(const QString& logFile) {
    Flush();
    if (logFile.trimmed().isEmpty())
        return 0;
    const std::optional<FileStamp> stamp = m_services.ownFiles.Stamp(modNativePath::FromText(logFile));
    return stamp ? static_cast<std::int64_t>(stamp->size) : 0;
}

void ActivityLogs::WriteAppLog(const QString& text) {
    const QString path = m_services.options.ApplicationLog();
    Flush();
    if (path.isEmpty() || !mayWrite(path, m_applicationLog))
        return;
    // Line ends that close the entry are its own and stay; they set the end of a session apart.
    qsizetype length = text.size();
    while (length > 0 && (text[length - 1] == u'\n' || text[length - 1] == u'\r'))
        --length;
    const QByteArray bytes = entry(m_services.clock, modForeignText::OneLine(text.left(length)) + text.mid(length));
    std::ignore = m_services.ownFiles.Append(modNativePath::FromText(path), bytes, false);
}
