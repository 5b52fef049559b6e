// The fields of an activity, in the order in which they are written. A table of plain values; nothing can fail.
#pragma once

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
    ComputerName
};

enum class FieldStyle {
    Text,
    Integer,       ///< decimal; missing or no number: 0
    YesNo,         ///< "Y"/"N"; everything but "N" is on
    OneZero,       ///< "1"/"0"; only "1" is on
    CheckBoxNumber ///< the number of a check box's state, 1 is on
};

struct FieldRow {
    ActivityField field;
    const char* element; ///< name of the field's element, spelt as in every activity file
    FieldStyle style;
};
