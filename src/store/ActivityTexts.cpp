#include "ActivityTexts.h"
#include "ActivityRecord.h"
#include "DateOrder.h"
#include "StringTable.h"
#include "modTriggerDate.h"

#include <array>

namespace {

struct CodeText {
    const char* code;
    Text text;
};

constexpr std::array intervals = {CodeText{"0", Text::Seconds}, CodeText{"1", Text::Minutes},
                                  CodeText{"2", Text::Hours}};
constexpr std::array actions = {CodeText{"0", Text::CopyFiles}, CodeText{"1", Text::MoveFiles},
                                CodeText{"3", Text::MirrorDirectory}, CodeText{"2", Text::NoAction}};

QString lookUp(const auto& table, const QString& code, const StringTable& texts) {
    for (const CodeText& row : table)
        if (code == QLatin1String(row.code))
            return texts[row.text];
    return {};
}

QString shownDate(const QString& stored, const QLocale& locale) {
    const QDate date = modTriggerDate::Read(stored, locale);
    return date.isValid() ? date.toString(DateOrder::Format(locale)) : stored;
}

QString description(const ActivityRecord& record, const StringTable& texts, const QLocale& locale) {
    const QString& type = record.Text(ActivityField::Type);
    const QString separator = QStringLiteral(": ");
    if (type == u"3")
        return texts[Text::Date] + separator + shownDate(record.Text(ActivityField::TriggerDate), locale) +
               QStringLiteral(" / ") + texts[Text::Time] + separator + record.Text(ActivityField::TriggerDateTime);
    if (type == u"4") {
        const QString time = texts[Text::Time] + separator + record.Text(ActivityField::TriggerTime);
        const bool isDaily = record.Text(ActivityField::Daily) == u"1";
        return isDaily ? QString(time + QStringLiteral(" (") + texts[Text::Daily] + u')') : time;
    }
    const QString unit = lookUp(intervals, type, texts);
    return unit.isEmpty() ? QString() : QString(record.Text(ActivityField::Interval) + u' ' + unit);
}

} // namespace

QString ActivityTexts::Schedule(const ActivityRecord& record, const StringTable& texts, const QLocale& locale) {
    return description(record, texts, locale) + QStringLiteral(" - ") +
           lookUp(actions, record.Text(ActivityField::Action), texts);
}
