#include "ActivityRecord.h"
#include "ActivityFile.h"

#include <algorithm>
#include <string_view>

namespace {

using F = ActivityField;
using S = FieldStyle;

constexpr std::array<FieldRow, ActivityRecord::FieldCount> fields = {{
    {F::SourceDir, "sourcedir", S::Text},
    {F::TargetDir, "targetdir", S::Text},
    {F::Type, "type", S::Integer},
    {F::Interval, "intervall", S::Integer},
    {F::TriggerDate, "triggerdate", S::Text},
    {F::TriggerDateTime, "triggerdatetime", S::Text},
    {F::TriggerTime, "triggertime", S::Text},
    {F::Action, "action", S::Integer},
    {F::Overwrite, "overwrite", S::YesNo},
    {F::OnlyNew, "onlynew", S::YesNo},
    {F::Alert, "alert", S::YesNo},
    {F::IncludeSubdirs, "includesubdirs", S::YesNo},
    {F::Executable, "executeable", S::Text},
    {F::AllFiles, "allfiles", S::OneZero},
    {F::Extensions, "extensions", S::Text},
    {F::LogFile, "logfile", S::Text},
    {F::Comment, "comment", S::Text},
    {F::Active, "activ", S::CheckBoxNumber},
    {F::SendMail, "sendmail", S::OneZero},
    {F::AttachLogFile, "attachlogfile", S::OneZero},
    {F::AttachAction, "attachaction", S::OneZero},
    {F::Sender, "sender", S::Text},
    {F::Recipient, "recipient", S::Text},
    {F::Cc, "CC", S::Text},
    {F::Subject, "subject", S::Text},
    {F::Message, "message", S::Text},
    {F::ExceedTime, "exceedtime", S::Integer},
    {F::SendLastFile, "sendlastfile", S::CheckBoxNumber},
    {F::Daily, "daily", S::CheckBoxNumber},
    {F::RunningMode, "runningmode", S::CheckBoxNumber},
    {F::UseSmtp, "UseSMTP", S::CheckBoxNumber},
    {F::SmtpHost, "SMTPHost", S::Text},
    {F::ComputerName, "computername", S::CheckBoxNumber},
    {F::KeepDays, "keepdays", S::Integer, true},
    {F::AskFiles, "askfiles", S::Integer, true},
    {F::AskPercent, "askpercent", S::Integer, true},
    {F::OnlyOnDrives, "onlyondrives", S::OneZero, true},
    {F::SourceDrive, "sourcedrive", S::Text, true},
    {F::TargetDrive, "targetdrive", S::Text, true},
    {F::Watch, "watch", S::OneZero, true},
    {F::SettleSeconds, "settleseconds", S::Integer, true},
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < fields.size(); ++i)
            if (static_cast<std::size_t>(fields[i].field) != i)
                return false;
        return true;
    }(),
    "the rows of the table follow the enumeration");

FieldStyle styleOf(ActivityField field) {
    return fields[static_cast<std::size_t>(field)].style;
}

} // namespace

std::span<const FieldRow, ActivityRecord::FieldCount> ActivityRecord::Fields() {
    return fields;
}

ActivityRecord ActivityRecord::Read(const ActivityFile& file, const QString& name) {
    std::array<std::string_view, FieldCount> elements;
    std::transform(fields.begin(), fields.end(), elements.begin(), [](const FieldRow& row) { return row.element; });
    QStringList texts = file.ReadElements(name, elements);
    ActivityRecord record;
    std::move(texts.begin(), texts.end(), record.m_texts.begin());
    return record;
}

bool ActivityRecord::IsOn(ActivityField field) const {
    switch (styleOf(field)) {
    case FieldStyle::YesNo:
        return Text(field) != QLatin1String("N");
    case FieldStyle::OneZero:
        return Text(field) == QLatin1String("1");
    case FieldStyle::CheckBoxNumber:
        return Number(field) == 1;
    default:
        return false;
    }
}

void ActivityRecord::SetOn(ActivityField field, bool on) {
    if (styleOf(field) == FieldStyle::YesNo)
        SetText(field, on ? QStringLiteral("Y") : QStringLiteral("N"));
    else
        SetText(field, on ? QStringLiteral("1") : QStringLiteral("0"));
}

QString ActivityRecord::writtenText(ActivityField field) const {
    switch (field) {
    case ActivityField::TargetDir:
        return Text(ActivityField::Action) == QLatin1String("2") ? QString() : Text(field);
    case ActivityField::Extensions:
        return IsOn(ActivityField::AllFiles) ? QString() : Text(field);
    case ActivityField::ExceedTime:
        return Text(ActivityField::Interval);
    default:
        return Text(field);
    }
}

bool ActivityRecord::isUsed(const FieldRow& row) const {
    if (!row.isOptional)
        return true;
    return row.style == FieldStyle::Text ? !Text(row.field).isEmpty() : Number(row.field) != 0;
}

QList<std::pair<QString, QString>> ActivityRecord::Elements() const {
    const auto element = [this](ActivityField field) {
        const FieldRow& row = fields[static_cast<std::size_t>(field)];
        return std::pair<QString, QString>(QLatin1String(row.element), writtenText(field));
    };
    const QString type = Text(ActivityField::Type);
    const bool isInterval = type == u"0" || type == u"1" || type == u"2";
    const bool isMoment = type == u"3" || type == u"4";
    QList<std::pair<QString, QString>> elements;
    for (const FieldRow& row : fields) {
        if ((row.field == ActivityField::Type && !isInterval) || !isUsed(row))
            continue;
        elements.append(element(row.field));
        if (row.field == ActivityField::Interval && isMoment)
            elements.append(element(ActivityField::Type));
    }
    return elements;
}
