#include "LogKinds.h"

#include "StringTable.h"
#include "Text.h"

#include <algorithm>

namespace {

constexpr QByteArrayView entryBegin("-> [");
constexpr QByteArrayView entryTimeEnd("] ");
constexpr QByteArrayView nameEnd("' - ");

struct Form {
    LogKind kind;
    Text head;
    Text tail = Text::None;
};

/// What stands before, between and behind the paths of a line.
constexpr Form forms[] = {{LogKind::Copied, Text::CopyFile},
                          {LogKind::Copied, Text::Copy},
                          {LogKind::Copied, Text::CopyNewer},
                          {LogKind::Copied, Text::Overwrite}, // a move's line looks the same
                          {LogKind::Copied, Text::CopyingDirectory},
                          {LogKind::Moved, Text::MoveFile},
                          {LogKind::Moved, Text::Move},
                          {LogKind::Moved, Text::MoveNewer},
                          {LogKind::Deleted, Text::DeletingFile},
                          {LogKind::Deleted, Text::DeletingDirectory},
                          {LogKind::Failed, Text::TransferFrom, Text::FailedLocked},
                          {LogKind::Failed, Text::FileOpeningQuote, Text::CouldNotExecute},
                          {LogKind::Failed, Text::Directory, Text::NotFoundStopped},
                          {LogKind::Failed, Text::Directory, Text::NotFoundSuspended},
                          {LogKind::Failed, Text::Directory, Text::AutomaticallyStopped},
                          {LogKind::Failed, Text::Directory, Text::SuspendedForInterval},
                          {LogKind::Failed, Text::EndedByRecordChange},
                          {LogKind::Failed, Text::EndedByLostDirectory},
                          {LogKind::Failed, Text::EndedByUnreadable},
                          {LogKind::Failed, Text::EndedByReplacedDirectory},
                          {LogKind::Failed, Text::FileNotSaved},
                          {LogKind::Failed, Text::FileChangedOutside},
                          {LogKind::Failed, Text::FileNotLoaded},
                          {LogKind::Failed, Text::NotSwitchedOff}};

struct Sentence {
    LogKind kind;
    Text text;
};

/// Texts with a place for a path in them.
constexpr Sentence sentences[] = {{LogKind::Moved, Text::FinishingMove},     {LogKind::Moved, Text::Restored},
                                  {LogKind::Deleted, Text::KeptIn},          {LogKind::Failed, Text::NotRestored},
                                  {LogKind::Failed, Text::NotRestoredError}, {LogKind::Failed, Text::OwnFileLeftAlone},
                                  {LogKind::Failed, Text::NestedDirectory},  {LogKind::Failed, Text::TooDeep},
                                  {LogKind::Failed, Text::RunHeld}};

QByteArrayView behind(QByteArrayView line, QByteArrayView mark) {
    const qsizetype at = line.indexOf(mark);
    return at < 0 ? line : line.sliced(at + mark.size());
}

} // namespace

LogKinds::LogKinds() {
    for (const Language language : {Language::English, Language::German}) {
        const StringTable texts(language);
        const auto bytes = [&texts](Text text) { return texts[text].toLocal8Bit(); };
        for (const Form& form : forms)
            m_patterns.push_back(
                {form.kind, bytes(form.head), {}, form.tail == Text::None ? QByteArray() : bytes(form.tail)});
        for (const Sentence& sentence : sentences) {
            const QString whole = texts[sentence.text];
            const QString head = whole.section(u'%', 0, 0);
            const QString rest = whole.section(u'%', 1, 1).mid(1);
            m_patterns.push_back({sentence.kind, head.toLocal8Bit(), rest.toLocal8Bit(), {}});
        }
        m_patterns.push_back({LogKind::Failed, bytes(Text::TransferFrom), bytes(Text::FailedError), {}});
        m_patterns.push_back({LogKind::Failed, bytes(Text::MailSendTo), nameEnd.toByteArray(), {}}); // and the reason
        m_activities.append(bytes(Text::ActivityQuote));
    }
}

LogKind LogKinds::Of(QByteArrayView line) const {
    if (!line.startsWith(entryBegin))
        return LogKind::Other;
    QByteArrayView text = behind(line, entryTimeEnd);
    for (const QByteArray& activity : m_activities) {
        if (text.startsWith(activity)) {
            text = behind(text.sliced(activity.size()), nameEnd);
            break;
        }
    }
    const auto fits = [text](const Pattern& pattern) {
        return text.startsWith(pattern.head) && text.endsWith(pattern.tail) &&
               (pattern.inner.isEmpty() || text.indexOf(pattern.inner, pattern.head.size()) >= 0);
    };
    const auto found = std::find_if(m_patterns.begin(), m_patterns.end(), fits);
    return found == m_patterns.end() ? LogKind::Other : found->kind;
}
