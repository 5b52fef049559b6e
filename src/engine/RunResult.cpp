#include "RunResult.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<QLatin1String, 3> endings{QLatin1String("fine"), QLatin1String("failed"), QLatin1String("early")};
} // namespace

QJsonObject RunResult::ToJson(const RunIdentity& run) const {
    const auto number = [](std::uint64_t value) { return static_cast<qint64>(value); };
    return {{QStringLiteral("activity"), run.name},
            {QStringLiteral("sourcedir"), run.source},
            {QStringLiteral("targetdir"), run.destination},
            {QStringLiteral("action"), run.action},
            {QStringLiteral("ending"), endings[static_cast<std::size_t>(ending)]},
            {QStringLiteral("at"), at.toString(Qt::ISODate)},
            {QStringLiteral("seconds"), static_cast<qint64>(took.count())},
            {QStringLiteral("files"), number(done.Files())},
            {QStringLiteral("copied"), number(done.copied)},
            {QStringLiteral("moved"), number(done.moved)},
            {QStringLiteral("bytes"), number(done.bytes)},
            {QStringLiteral("replaced"), number(done.replaced)},
            {QStringLiteral("deleted"), number(done.deleted)},
            {QStringLiteral("leftAlone"), number(done.leftAlone)},
            {QStringLiteral("failures"), failures},
            {QStringLiteral("reason"), reason},
            {QStringLiteral("log"), log},
            {QStringLiteral("line"), static_cast<qint64>(line)}};
}

std::optional<RunResult> RunResult::FromJson(const QJsonObject& kept) {
    const auto ending = std::find(endings.begin(), endings.end(), kept[u"ending"].toString());
    const QDateTime at = QDateTime::fromString(kept[u"at"].toString(), Qt::ISODate);
    if (ending == endings.end() || !at.isValid())
        return std::nullopt;
    const auto number = [&](QStringView key) { return std::max<qint64>(kept[key].toInteger(), 0); };
    const auto count = [&](QStringView key) { return static_cast<std::uint64_t>(number(key)); };
    const std::uint64_t moved = std::min(count(u"moved"), count(u"files"));
    return RunResult{.ending = static_cast<RunEnding>(ending - endings.begin()),
                     .at = at,
                     .took = std::chrono::seconds(number(u"seconds")),
                     .done = {.copied = count(u"files") - moved, // older results have the sum alone
                              .moved = moved,
                              .bytes = count(u"bytes"),
                              .replaced = count(u"replaced"),
                              .deleted = count(u"deleted"),
                              .leftAlone = count(u"leftAlone")},
                     .failures = static_cast<int>(number(u"failures")),
                     .reason = kept[u"reason"].toString(),
                     .log = kept[u"log"].toString(),
                     .line = number(u"line")};
}

bool IsOf(const QJsonObject& kept, const RunIdentity& run) {
    return kept[u"sourcedir"] == run.source && kept[u"targetdir"] == run.destination && kept[u"action"] == run.action;
}
