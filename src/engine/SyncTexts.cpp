#include "SyncTexts.h"
#include "Prompter.h"
#include "RunBrake.h"
#include "RunFacts.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modLogTime.h"

#include <QLocale>
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

QString grouped(std::uint64_t number) {
    return QLocale().toString(static_cast<qulonglong>(number));
}

bool isLocked(std::error_code error) {
    constexpr std::array locked{std::errc::device_or_resource_busy, std::errc::text_file_busy,
                                std::errc::no_lock_available, std::errc::resource_deadlock_would_occur};
    return std::any_of(locked.begin(), locked.end(), [error](std::errc code) { return error == code; });
}
} // namespace

QString SyncTexts::NoAction(const QString& path) const {
    return m_texts[Text::ChangeDetected] + u" - " + m_texts[Text::NoActionSelected] + u" (" + path + u") ";
}

QString SyncTexts::New(FileAction action, const FileSide& source, const QString& destination) const {
    return m_texts[action == FileAction::Move ? Text::MoveFile : Text::CopyFile] + dated(source) + u" " +
           m_texts[Text::ToWord] + u" '" + destination + u"'";
}

QString SyncTexts::Replacement(const FileRules& rules, const FileSide& source, const FileSide& destination) const {
    const bool move = rules.action == FileAction::Move;
    if (rules.asksFirst && rules.onlyNewer)
        return m_texts[Text::Overwrite] + dated(destination) + u" " + m_texts[Text::With] + dated(source);
    const QString both = dated(source) + u" " + m_texts[Text::ToWord] + u" '" + dated(destination);
    if (rules.asksFirst)
        return m_texts[move ? Text::MoveNewer : Text::CopyNewer] + both;
    return m_texts[move ? Text::Move : Text::Copy] + both + u" " + m_texts[Text::OverwriteNewer];
}

QString SyncTexts::NotNewer(const FileSide& source, const FileSide& destination) const {
    return m_texts[Text::FileOpeningQuote] + dated(source) + u" " + m_texts[Text::OlderOrEqual] + u" '" +
           dated(destination);
}

QString SyncTexts::Declined(const QString& source) const {
    return m_texts[Text::OverwriteFrom] + source + m_texts[Text::DeclinedByUser];
}

QString SyncTexts::DeletingFile(const QString& path) const {
    return m_texts[Text::DeletingFile] + path + u"' ...";
}

QString SyncTexts::DeletingFolder(const QString& path) const {
    return m_texts[Text::DeletingDirectory] + path;
}

QString SyncTexts::TransferringFolder(const QString& source, const QString& destination) const {
    return m_texts[Text::CopyingDirectory] + source + m_texts[Text::To] + destination;
}

QString SyncTexts::FinishingMove(const QString& source, const QString& destination) const {
    return m_texts[Text::FinishingMove].arg(source, destination);
}

QString SyncTexts::OwnFile(const QString& path) const {
    return m_texts[Text::OwnFileLeftAlone].arg(path);
}

QString SyncTexts::OtherMount(const QString& path) const {
    return m_texts[Text::OtherMount].arg(path);
}

QString SyncTexts::NestedRoot(const QString& path) const {
    return m_texts[Text::NestedDirectory].arg(path);
}

QString SyncTexts::TooDeep(const QString& path) const {
    return m_texts[Text::TooDeep].arg(path);
}

QString SyncTexts::EndedEarly(RunEnd reason) const {
    switch (reason) {
    case RunEnd::None:
        break;
    case RunEnd::Closing:
        return m_texts[Text::EndedByClosing];
    case RunEnd::Stopped:
        return m_texts[Text::EndedByStop];
    case RunEnd::StoppedByUser:
        return m_texts[Text::EndedByUser];
    case RunEnd::RecordChanged:
        return m_texts[Text::EndedByRecordChange];
    case RunEnd::RootGone:
        return m_texts[Text::EndedByLostDirectory];
    case RunEnd::Unreadable:
        return m_texts[Text::EndedByUnreadable];
    case RunEnd::FolderExchanged:
        return m_texts[Text::EndedByReplacedDirectory];
    case RunEnd::NotAsApproved:
        return m_texts[Text::EndedByChange];
    case RunEnd::TooMany:
        return m_texts[Text::EndedByBrake];
    case RunEnd::SafeExit:
        return m_texts[Text::AbortedByUser];
    }
    return {};
}

QString SyncTexts::withCounts(Text text, const QString& name, const RunBrake& brake) const {
    return m_texts[text].arg(name, grouped(brake.Deleted()), grouped(brake.Replaced()), grouped(brake.FoundFiles()),
                             grouped(brake.Percent()));
}

QString SyncTexts::LeftOut(int files, std::chrono::seconds settle, const QString& first) const {
    const QString seconds = QString::number(settle.count());
    return files == 1 ? m_texts[Text::FileLeftOut].arg(first, seconds)
                      : m_texts[Text::FilesLeftOut].arg(first, seconds, QString::number(files));
}

QString SyncTexts::HeldByBrake(const QString& name, const RunBrake& brake) const {
    return withCounts(Text::RunHeldByBrake, name, brake);
}

Message SyncTexts::BrakeQuestion(const QString& name, const RunBrake& brake) const {
    return {withCounts(Text::BrakeQuestion, name, brake), m_texts[Text::BrakeTitle], MessageIcon::Exclamation,
            MessageButtons::YesNo};
}

QString SyncTexts::KeptIn(const QString& folder, std::chrono::system_clock::time_point until) const {
    return m_texts[Text::KeptIn].arg(folder, modLogTime::Text(until));
}

QString SyncTexts::Restored(const QString& path) const {
    return m_texts[Text::Restored].arg(path);
}

QString SyncTexts::NotRestored(const QString& path, std::error_code error) const {
    return error == std::errc::file_exists ? m_texts[Text::NotRestored].arg(path)
                                           : m_texts[Text::NotRestoredError].arg(path).arg(error.value());
}

QString SyncTexts::Failure(const QString& source, std::error_code error) const {
    if (isLocked(error))
        return m_texts[Text::TransferFrom] + source + m_texts[Text::FailedLocked];
    return m_texts[Text::TransferFrom] + source + m_texts[Text::FailedError] + QString::number(error.value());
}

Message SyncTexts::OverwriteQuestion(const FileSide& source, const FileSide& destination) const {
    return {m_texts[Text::ShouldFile] + datedAndSized(source) + m_texts[Text::ReplaceFile] +
                datedAndSized(destination) + m_texts[Text::QuestionMark],
            m_texts[Text::FileExistsTitle], MessageIcon::Question, MessageButtons::YesNo};
}
