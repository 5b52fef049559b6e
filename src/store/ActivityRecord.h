// One activity as a value: its fields as texts, read and set by type. Holds the one table of all fields. Missing or
// malformed values read as the table says.
#pragma once

#include <QList>
#include <QString>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

class ActivityFile;

/// In the order in which an activity file lists them.
enum class ActivityField {
    SourceDir,
    TargetDir,
    Type,
    Interval,
    TriggerDate,
    TriggerDateTime,
    TriggerTime,
    Action,
    Overwrite,
    OnlyNew,
    Alert,
    IncludeSubdirs,
    Executable,
    AllFiles,
    Extensions,
    LogFile,
    Comment,
    Active,
    SendMail,
    AttachLogFile,
    AttachAction,
    Sender,
    Recipient,
    Cc,
    Subject,
    Message,
    ExceedTime,
    SendLastFile,
    Daily,
    RunningMode,
    UseSmtp,
    SmtpHost,
    ComputerName,
    // Written only where they are used: a file without them stays as it is.
    KeepDays,     ///< deleted and replaced files are kept for so many days; 0: not at all
    AskFiles,     ///< asks before a run deletes or replaces more than so many files; 0: never
    AskPercent,   ///< the same, percent of the files that it finds at the destination
    OnlyOnDrives, ///< runs only while both directories are on these drives:
    SourceDrive,
    TargetDrive,
    Watch,        ///< runs also when something in the source directory changes
    SettleSeconds ///< files are taken only when they have been left untouched for so long; 0: always
};

enum class FieldStyle {
    Text,
    Integer,       ///< decimal; missing or no number: 0
    YesNo,         ///< "Y"/"N"; anything but "N" is on
    OneZero,       ///< "1"/"0"; only "1" is on
    CheckBoxNumber ///< the number of a check box's state, 1 is on
};

struct FieldRow {
    ActivityField field;
    const char* element; ///< element name in the activity file
    FieldStyle style;
    bool isOptional = false; ///< written only when it is on, not 0, not empty
};

class ActivityRecord final {
  public:
    static constexpr std::size_t FieldCount = 41;

    /// In the order of the file.
    [[nodiscard]] static std::span<const FieldRow, FieldCount> Fields();

    /// Reads every field of this activity; a missing one is "".
    [[nodiscard]] static ActivityRecord Read(const ActivityFile& file, const QString& name);

    [[nodiscard]] const QString& Text(ActivityField field) const { return m_texts[static_cast<std::size_t>(field)]; }
    void SetText(ActivityField field, const QString& text) { m_texts[static_cast<std::size_t>(field)] = text; }

    /// 0 for a text that is no number.
    [[nodiscard]] int Number(ActivityField field) const { return Text(field).toInt(); }
    void SetNumber(ActivityField field, int number) { SetText(field, QString::number(number)); }

    /// A switch, in the style of its row; false for texts and numbers.
    [[nodiscard]] bool IsOn(ActivityField field) const;
    void SetOn(ActivityField field, bool on);

    /// (element, text) in the order of writing. The schedule type comes before the interval for types 0 to 2, after it
    /// for 3 and 4, and is omitted otherwise. Fields that others rule out are empty; exceedtime is the interval.
    [[nodiscard]] QList<std::pair<QString, QString>> Elements() const;

    bool operator==(const ActivityRecord&) const = default;

  private:
    [[nodiscard]] QString writtenText(ActivityField field) const;
    [[nodiscard]] bool isUsed(const FieldRow& row) const;

    std::array<QString, FieldCount> m_texts;
};
