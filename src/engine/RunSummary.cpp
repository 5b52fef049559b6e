#include "RunSummary.h"
#include "StringTable.h"
#include "modForeignText.h"

#include <QLocale>

namespace {

QString number(std::uint64_t value) {
    return QLocale().toString(static_cast<qulonglong>(value));
}

QString size(const RunResult& result) {
    return QLocale().formattedDataSize(static_cast<qint64>(result.done.bytes));
}

QString seconds(const RunResult& result) {
    return number(static_cast<std::uint64_t>(result.took.count()));
}

QString reason(const RunResult& result, const StringTable& texts) {
    return result.reason.isEmpty() ? texts[Text::RunEndedDone] : modForeignText::OneLine(result.reason);
}

} // namespace

QString RunSummary::Sentence(const RunResult& result, const StringTable& texts) {
    return texts[Text::RunInWords].arg(
        number(result.done.copied), number(result.done.moved), number(result.done.replaced),
        number(result.done.deleted), number(result.done.leftAlone), number(static_cast<std::uint64_t>(result.failures)),
        size(result), seconds(result), reason(result, texts));
}

RunSummary::Variables RunSummary::VariablesOf(const QString& activity, const RunResult& result,
                                              const StringTable& texts) {
    return {{QStringLiteral("activity"), modForeignText::OneLine(activity)},
            {QStringLiteral("copied"), number(result.done.copied)},
            {QStringLiteral("moved"), number(result.done.moved)},
            {QStringLiteral("replaced"), number(result.done.replaced)},
            {QStringLiteral("deleted"), number(result.done.deleted)},
            {QStringLiteral("leftalone"), number(result.done.leftAlone)},
            {QStringLiteral("failed"), number(static_cast<std::uint64_t>(result.failures))},
            {QStringLiteral("bytes"), size(result)},
            {QStringLiteral("seconds"), seconds(result)},
            {QStringLiteral("reason"), reason(result, texts)},
            {QStringLiteral("summary"), Sentence(result, texts)}};
}
