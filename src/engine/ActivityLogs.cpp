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

QByteArray entry(const Clock& clock, const QString& text) {
    return (u"-> [" + modLogTime::Text(clock.Now()) + u"] " + text + lineEnd).toUtf8();
}
} // namespace

void ActivityLogs::SetActivityStatus(const QString& name, const QString& text) {
    m_services.list.SetText(name, ActivityList::Status, text);
    WriteActionLine(name, text);
}

void ActivityLogs::WriteActionLine(const QString& name, const QString& text) {
    WriteActionLineTo(m_services.file.Read(name, ActivityField::LogFile), name, text);
}

void ActivityLogs::WriteActionLine(const QString& name, const std::function<QString()>& compose) {
    const QString logFile = m_services.file.Read(name, ActivityField::LogFile);
    if (m_listener || !logFile.trimmed().isEmpty())
        WriteActionLineTo(logFile, name, compose());
}

void ActivityLogs::WriteActionLineTo(const QString& logFile, const QString& name, const QString& text) {
    writeEntry(logFile, m_services.texts[Text::ActivityQuote] + name + u"' - " + text, false);
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
    // A line break in a file's name must not pass for an entry of its own.
    const QString line = modForeignText::OneLine(text);
    if (m_listener)
        m_listener(line);
    if (path.trimmed().isEmpty() || !mayWrite(path, m_activityLog))
        return;
    QByteArray bytes = entry(m_services.clock, line);
    if (blankLineFirst)
        bytes.prepend(lineEnd.toUtf8());
    std::ignore = m_services.ownFiles.Append(modNativePath::FromText(path), bytes, true);
}

void ActivityLogs::WriteAppLog(const QString& text) {
    const QString path = m_services.options.ApplicationLog();
    if (path.isEmpty() || !mayWrite(path, m_applicationLog))
        return;
    // Line ends that close the entry are its own and stay; they set the end of a session apart.
    qsizetype length = text.size();
    while (length > 0 && (text[length - 1] == u'\n' || text[length - 1] == u'\r'))
        --length;
    const QByteArray bytes = entry(m_services.clock, modForeignText::OneLine(text.left(length)) + text.mid(length));
    std::ignore = m_services.ownFiles.Append(modNativePath::FromText(path), bytes, false);
}
