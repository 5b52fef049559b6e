#include "SyncTexts.h"
#include "Prompter.h"
#include "RunEnd.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modLogTime.h"

#include <algorithm>
#include <array>

namespace {
// PATH' [DATE]
QString dated(const FileSide& side) {
    return side.path + u"' [" + modLogTime::Text(side.facts.modified) + u"]";
}

// Its lines must be the question's own.
QString datedAndSized(const FileSide& side) {
    return modForeignText::OneLine(side.path) + u"' [" + modLogTime::Text(side.facts.modified) + u" - " +
           QString::number(side.facts.size) + u" bytes] ";
}

bool isLocked(std::error_code error) {
    constexpr std::array locked{std::errc::device_or_resource_busy, std::errc::text_file_busy,
                                std::errc::no_lock_available, std::errc::resource_deadlock_would_occur};
    return std::any_of(locked.begin(), locked.end(), [error](std::errc code) { return error == code; });
}
} // namespace

QString SyncTexts::NoAction(const QString& path) const {
    return m_texts.Text(232) + u" - " + m_texts.Text(244) + u" (" + path + u") ";
}

QString SyncTexts::New(FileAction action, const FileSide& source, const QString& destination) const {
    return m_texts.Text(action == FileAction::Move ? 257 : 258) + dated(source) + u" " + m_texts.Text(259) + u" '" +
           destination + u"'";
}

QString SyncTexts::Replacement(const FileRules& rules, const FileSide& source, const FileSide& destination) const {
    const bool move = rules.action == FileAction::Move;
    if (rules.asksFirst && rules.onlyNewer)
        return m_texts.Text(260) + dated(destination) + u" " + m_texts.Text(261) + dated(source);
    const QString both = dated(source) + u" " + m_texts.Text(259) + u" '" + dated(destination);
    if (rules.asksFirst)
        return m_texts.Text(move ? 262 : 263) + both;
    return m_texts.Text(move ? 252 : 253) + both + u" " + m_texts.Text(254);
}

QString SyncTexts::NotNewer(const FileSide& source, const FileSide& destination) const {
    return m_texts.Text(234) + dated(source) + u" " + m_texts.Text(264) + u" '" + dated(destination);
}

QString SyncTexts::Declined(const QString& source) const {
    return m_texts.Text(255) + source + m_texts.Text(256);
}

QString SyncTexts::DeletingFile(const QString& path) const {
    return m_texts.Text(247) + path + u"' ...";
}

QString SyncTexts::DeletingFolder(const QString& path) const {
    return m_texts.Text(243) + path;
}

QString SyncTexts::TransferringFolder(const QString& source, const QString& destination) const {
    return m_texts.Text(245) + source + m_texts.Text(246) + destination;
}

QString SyncTexts::OwnFile(const QString& path) const {
    return m_texts.Text(610).arg(path);
}

QString SyncTexts::OtherMount(const QString& path) const {
    return m_texts.Text(611).arg(path);
}

QString SyncTexts::NestedRoot(const QString& path) const {
    return m_texts.Text(612).arg(path);
}

QString SyncTexts::TooDeep(const QString& path) const {
    return m_texts.Text(613).arg(path);
}

QString SyncTexts::EndedEarly(RunEnd reason) const {
    switch (reason) {
    case RunEnd::None:
        break;
    case RunEnd::Closing:
        return m_texts.Text(614);
    case RunEnd::Stopped:
        return m_texts.Text(615);
    case RunEnd::RecordChanged:
        return m_texts.Text(616);
    case RunEnd::RootGone:
        return m_texts.Text(617);
    case RunEnd::Unreadable:
        return m_texts.Text(618);
    case RunEnd::FolderExchanged:
        return m_texts.Text(619);
    case RunEnd::SafeExit:
        return m_texts.Text(404);
    }
    return {};
}

QString SyncTexts::Failure(const QString& source, std::error_code error) const {
    if (isLocked(error))
        return m_texts.Text(265) + source + m_texts.Text(266);
    return m_texts.Text(265) + source + m_texts.Text(267) + QString::number(error.value());
}

Message SyncTexts::OverwriteQuestion(const FileSide& source, const FileSide& destination) const {
    return {m_texts.Text(248) + datedAndSized(source) + m_texts.Text(249) + datedAndSized(destination) +
                m_texts.Text(250),
            m_texts.Text(251), MessageIcon::Question, MessageButtons::YesNo};
}
