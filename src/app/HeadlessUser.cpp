#include "HeadlessUser.h"

#include "StringTable.h"
#include "modForeignText.h"
#include <utility>

namespace {

HeadlessLog::Priority priorityOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Critical:
        return HeadlessLog::Priority::Error;
    case MessageIcon::Exclamation:
        return HeadlessLog::Priority::Warning;
    case MessageIcon::Question:
    case MessageIcon::Information:
        break;
    }
    return HeadlessLog::Priority::Notice;
}

} // namespace

HeadlessLog::HeadlessLog(Writer writer) : m_writer(std::move(writer)) {}

void HeadlessLog::Line(Priority priority, const QString& text) {
    m_writer(static_cast<int>(priority), modForeignText::OneLine(text).simplified());
}

void HeadlessLog::NoticeNotAccepted(const StringTable& texts) {
    Line(Priority::Error, texts[Text::Attention] + QLatin1Char(' ') + texts[Text::LegalNotice]);
    Line(Priority::Error, texts[Text::AcceptHeadless]);
}

MessageAnswer HeadlessPrompter::Ask(const Message& message) {
    QString line = message.title + QStringLiteral(": ") + message.text;
    MessageAnswer answer = MessageAnswer::Ok;
    if (message.buttons == MessageButtons::YesNo) {
        answer = MessageAnswer::No;
        line += QStringLiteral(" -> No");
    } else if (message.buttons == MessageButtons::OkCancel && message.countdown.count() == 0) {
        answer = MessageAnswer::Cancel;
        line += QStringLiteral(" -> Cancel");
    }
    m_log.Line(priorityOf(message.icon), line);
    return answer;
}
