#include "HeadlessPrompter.h"

#include "HeadlessLog.h"

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
