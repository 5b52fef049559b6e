#include "EditorChecks.h"

#include "Clock.h"
#include "OwnFiles.h"
#include "StringTable.h"
#include "clsGetSystemDirectoryPaths.h"
#include "modNativePath.h"
#include "modTriggerDate.h"
#include "modValidEMail.h"

#include <QDateTime>
#include <algorithm>
#include <array>
#include <filesystem>

namespace EditorChecks {

namespace {

using F = ActivityField;
using Found = std::optional<Problem>;

const QString lineBreak = QStringLiteral("\n");
constexpr Text errorInDate = Text::DateTitle;
constexpr Text errorInAddress = Text::AddressTitle;

struct Place {
    Tab tab;
    const char* control;
};
constexpr Place name{Tab::Directories, "txtName"};
constexpr Place source{Tab::Directories, "txtSourceDir"};
constexpr Place target{Tab::Directories, "txtTargetDir"};
constexpr Place date{Tab::Schedule, "txtDate"};
constexpr Place dateTime{Tab::Schedule, "txtDateTime"};
constexpr Place timeOfDay{Tab::Schedule, "txtTime"};
constexpr Place program{Tab::Action, "txtExecutable"};
constexpr Place logFile{Tab::Action, "txtLogFile"};
constexpr Place extensions{Tab::Action, "txtExtensions"};
constexpr Place sender{Tab::Mail, "cboSender"};
constexpr Place recipient{Tab::Mail, "cboRecipient"};
constexpr Place subject{Tab::Mail, "txtSubject"};

Problem refusal(const Place& place, const QString& text, const QString& title,
                MessageButtons buttons = MessageButtons::Ok) {
    return {{text, title, MessageIcon::Exclamation, buttons}, place.tab, place.control};
}

Problem refusal(const Place& place, const Environment& e, Text text, Text title,
                MessageButtons buttons = MessageButtons::Ok) {
    return refusal(place, e.texts[text], e.texts[title], buttons);
}

Problem missing(const Place& place, const Environment& e, Text text, const QString& path) {
    return refusal(place,
                   e.texts[text] + path + e.texts[Text::DoesNotExist] + lineBreak + lineBreak +
                       e.texts[Text::SelectValidDirectory],
                   e.texts[Text::DirectoryNotFoundTitle]);
}

Found missingFile(const Place& place, const Input& i, const Environment& e, F field) {
    const QString& path = i.record.Text(field);
    if (path.trimmed().isEmpty() || e.files.Stamp(modNativePath::Absolute(path)))
        return {};
    return missing(place, e, Text::SelectedDirectory, path);
}

Found missingLogFile(const Input& i, const Environment& e) {
    const QString& path = i.record.Text(F::LogFile);
    const std::filesystem::path log = modNativePath::Absolute(path);
    if (!log.empty() && e.files.FolderExists(log))
        return refusal(logFile, e.texts[Text::LogIsDirectory].arg(path), e.texts[Text::DirectoryNotFoundTitle]);
    return missingFile(logFile, i, e, F::LogFile);
}

Found ownLogFile(const Input& i, const Environment& e) {
    const QString path = i.record.Text(F::LogFile);
    if (path.trimmed().isEmpty() || !e.isOwnFile(path))
        return {};
    return refusal(logFile, e.texts[Text::LogIsOwnFile].arg(path), e.texts[Text::DirectoryNotFoundTitle]);
}

Found missingFolder(const Place& place, const Input& i, const Environment& e, F field, Text text) {
    const QString& path = i.record.Text(field);
    const std::filesystem::path folder = modNativePath::Absolute(path);
    if (!folder.empty() && e.files.FolderExists(folder))
        return {};
    return missing(place, e, text, path);
}

bool hasDestination(const Input& i) {
    return i.record.Text(F::Action) != u"2" || !i.record.Text(F::TargetDir).trimmed().isEmpty();
}

/// Some of the digits, not all: a field with nothing but its ":" is empty.
bool isPartial(const QString& shown) {
    return shown.contains(u' ') && !QString(shown).remove(u':').trimmed().isEmpty();
}

Found partialTime(const Place& place, const QString& shown, const Environment& e) {
    if (!isPartial(shown))
        return {};
    return refusal(place, e, Text::TimeInvalid, Text::TimeInvalidTitle, MessageButtons::OkCancel);
}

QTime timeOf(const QString& shown) {
    return QTime::fromString(shown, QStringLiteral("HH:mm"));
}

/// The present minute is not over yet, so it does not lie in the past.
QDateTime presentMinute(const Environment& e) {
    QDateTime now = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(e.clock.Now()));
    now.setTime(QTime(now.time().hour(), now.time().minute()));
    return now;
}

Found invalidTime(const Place& place, const QString& shown, const Environment& e) {
    if (timeOf(shown).isValid())
        return {};
    return refusal(place, e, Text::TimeReenter, Text::TimeTitle);
}

bool isType(const Input& i, QStringView type) {
    return i.record.Text(F::Type) == type;
}

/// One and the same folder, by whatever path, link or spelling.
Found protectedFolder(const Place& place, const Input& i, const Environment& e, F field,
                      const std::filesystem::path& folder, Text warning, Text title) {
    if (field == F::TargetDir && !hasDestination(i))
        return {};
    std::error_code unreadable;
    if (!std::filesystem::equivalent(modNativePath::Absolute(i.record.Text(field)), folder, unreadable))
        return {};
    const QString text = e.texts[Text::Attention] + lineBreak + e.texts[warning] + lineBreak +
                         e.texts[Text::MayDestroyWindows] + lineBreak + e.texts[Text::ReallyProceedEditor];
    return refusal(place, text, e.texts[title], MessageButtons::YesNo);
}

bool mails(const Input& i) {
    return i.record.IsOn(F::SendMail);
}

Found missingMailText(const Place& place, const Input& i, const Environment& e, F field, Text text) {
    if (!mails(i) || !i.record.Text(field).trimmed().isEmpty())
        return {};
    return refusal(place, e, text, errorInAddress);
}

Found invalidAddress(const Place& place, const Input& i, const Environment& e, F field) {
    if (!mails(i) || modValidEMail::IsValidEmailAddress(i.record.Text(field)))
        return {};
    return refusal(place, e, Text::CheckAddress, errorInAddress);
}

Found missingSubject(const Input& i, const Environment& e) {
    if (!mails(i) || !i.record.Text(F::Subject).trimmed().isEmpty())
        return {};
    Problem problem = refusal(subject, e.texts[Text::SubjectMissing] + lineBreak + e.texts[Text::ReallyProceedEditor],
                              e.texts[Text::SubjectTitle], MessageButtons::YesNo);
    problem.message.icon = MessageIcon::Question;
    return problem;
}

Found digitInFront(const Input& i, const Environment& e) {
    return !i.name.isEmpty() && i.name.front().isDigit()
               ? Found(refusal(name, e, Text::NameStartsWithNumber, Text::NameTitle))
               : Found();
}
Found emptyName(const Input& i, const Environment& e) {
    return i.name.isEmpty() ? Found(refusal(name, e, Text::NameMissing, Text::NameTitle)) : Found();
}
Found unusableName(const Input& i, const Environment& e) {
    return e.isUsableName(i.name) ? Found() : Found(refusal(name, e, Text::NameUnusable, Text::NameTitle));
}

Found noFileTypes(const Input& i, const Environment& e) {
    if (i.record.IsOn(F::AllFiles) || !i.record.Text(F::Extensions).trimmed().isEmpty())
        return {};
    return refusal(extensions, e, Text::NoFileTypes, Text::ExtensionsTitle, MessageButtons::OkCancel);
}
Found pointInFileTypes(const Input& i, const Environment& e) {
    if (i.record.IsOn(F::AllFiles) || !i.record.Text(F::Extensions).contains(u'.'))
        return {};
    return refusal(extensions, e, Text::ExtensionsWithPoint, Text::ExtensionsTitle, MessageButtons::OkCancel);
}

Found invalidDate(const Input& i, const Environment& e) {
    if (!isType(i, u"3") || modTriggerDate::Read(i.shownDate, e.locale).isValid())
        return {};
    return refusal(date, e, Text::DateInvalid, errorInDate);
}
Found pastDate(const Input& i, const Environment& e) {
    if (!isType(i, u"3") || modTriggerDate::Read(i.shownDate, e.locale) >= presentMinute(e).date())
        return {};
    return refusal(date, e, Text::DateInPast, errorInDate);
}
Found pastMoment(const Input& i, const Environment& e) {
    const QTime time = timeOf(i.shownDateTime);
    const QDateTime now = presentMinute(e);
    if (!isType(i, u"3") || !time.isValid() || modTriggerDate::Read(i.shownDate, e.locale) != now.date() ||
        time >= now.time())
        return {};
    return refusal(dateTime, e, Text::TimeInPast, errorInDate);
}
Found pastTimeOfDay(const Input& i, const Environment& e) {
    const QTime time = timeOf(i.shownTime);
    // What runs every day runs tomorrow.
    if (!isType(i, u"4") || i.record.IsOn(F::Daily) || !time.isValid() || time >= presentMinute(e).time())
        return {};
    return refusal(timeOfDay, e, Text::TimeInPast, errorInDate);
}

constexpr std::array checks{
    Check{"the program exists",
          [](const Input& i, const Environment& e) { return missingFile(program, i, e, F::Executable); }},
    Check{"the log file exists", missingLogFile},
    Check{"the log file is none of the program's own", ownLogFile},
    Check{"the source exists",
          [](const Input& i, const Environment& e) {
              return missingFolder(source, i, e, F::SourceDir, Text::SelectedSource);
          }},
    Check{"the destination exists",
          [](const Input& i, const Environment& e) {
              return hasDestination(i) ? missingFolder(target, i, e, F::TargetDir, Text::SelectedDestination) : Found();
          }},
    Check{"no digit begins the name", digitInFront},
    Check{"there is a name", emptyName},
    Check{"the name can be stored", unusableName},
    Check{"the time of day is whole",
          [](const Input& i, const Environment& e) { return partialTime(timeOfDay, i.shownTime, e); }},
    Check{"the time beside the date is whole",
          [](const Input& i, const Environment& e) { return partialTime(dateTime, i.shownDateTime, e); }},
    Check{"there are file types", noFileTypes},
    Check{"file types have no point", pointInFileTypes},
    Check{"the date is a date", invalidDate},
    Check{"the date is not over", pastDate},
    Check{"the time of that date is not over", pastMoment},
    Check{"the time beside the date is a time",
          [](const Input& i, const Environment& e) {
              return isType(i, u"3") ? invalidTime(dateTime, i.shownDateTime, e) : Found();
          }},
    Check{"the time of day is not over", pastTimeOfDay},
    Check{"the time of day is a time",
          [](const Input& i, const Environment& e) {
              return isType(i, u"4") ? invalidTime(timeOfDay, i.shownTime, e) : Found();
          }},
    Check{"the source is not the Windows directory",
          [](const Input& i, const Environment& e) {
              return protectedFolder(source, i, e, F::SourceDir, e.system.WindowsDirectory(), Text::WindowsDirectory,
                                     Text::WindowsDirectoryTitle);
          }},
    Check{"the source is not the system directory",
          [](const Input& i, const Environment& e) {
              return protectedFolder(source, i, e, F::SourceDir, e.system.SystemDirectory(), Text::SystemDirectory,
                                     Text::SystemDirectoryTitle);
          }},
    Check{"the destination is not the Windows directory",
          [](const Input& i, const Environment& e) {
              return protectedFolder(target, i, e, F::TargetDir, e.system.WindowsDirectory(), Text::WindowsDirectory,
                                     Text::WindowsDirectoryTitle);
          }},
    Check{"the destination is not the system directory",
          [](const Input& i, const Environment& e) {
              return protectedFolder(target, i, e, F::TargetDir, e.system.SystemDirectory(), Text::SystemDirectory,
                                     Text::SystemDirectoryTitle);
          }},
    Check{"the source is not the root",
          [](const Input& i, const Environment& e) {
              return protectedFolder(source, i, e, F::SourceDir, e.system.RootDirectory(), Text::RootDirectory,
                                     Text::RootDirectoryTitle);
          }},
    Check{"the destination is not the root",
          [](const Input& i, const Environment& e) {
              return protectedFolder(target, i, e, F::TargetDir, e.system.RootDirectory(), Text::RootDirectory,
                                     Text::RootDirectoryTitle);
          }},
    Check{"mail has a sender",
          [](const Input& i, const Environment& e) {
              return missingMailText(sender, i, e, F::Sender, Text::SenderMissing);
          }},
    Check{"mail has a recipient",
          [](const Input& i, const Environment& e) {
              return missingMailText(recipient, i, e, F::Recipient, Text::RecipientMissing);
          }},
    Check{"mail has a subject", missingSubject},
    Check{"the sender is an address",
          [](const Input& i, const Environment& e) { return invalidAddress(sender, i, e, F::Sender); }},
    Check{"the recipient is an address",
          [](const Input& i, const Environment& e) { return invalidAddress(recipient, i, e, F::Recipient); }},
};

} // namespace

std::span<const Check> All() {
    return checks;
}

bool Pass(const Input& input, const Environment& environment, const std::function<bool(const Problem&)>& wavesThrough) {
    return std::all_of(checks.begin(), checks.end(), [&](const Check& check) {
        const Found problem = check.Find(input, environment);
        return !problem || wavesThrough(*problem);
    });
}

} // namespace EditorChecks
