#include "HeadlessLog.h"

#include "Session.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <iostream>

HeadlessLog::HeadlessLog(std::ostream& stream, bool journal) : m_stream(stream), m_journal(journal) {}

HeadlessLog HeadlessLog::OnStandardError() {
    return {std::cerr, IsJournalOnStandardError()};
}

void HeadlessLog::Line(Priority priority, const QString& text) {
    if (m_journal)
        m_stream << '<' << static_cast<int>(priority) << '>';
    m_stream << modForeignText::OneLine(text).simplified().toStdString() << '\n' << std::flush;
}

void HeadlessLog::NoticeNotAccepted(const StringTable& texts) {
    Line(Priority::Error, texts[Text::Attention] + QLatin1Char(' ') + texts[Text::LegalNotice]);
    Line(Priority::Error, texts[Text::AcceptHeadless]);
}
