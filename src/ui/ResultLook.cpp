#include "ResultLook.h"

#include "Icons.h"
#include "RunResults.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QLocale>

using Icons::Picture;

ResultLook::ResultLook(RunResults& results, const ActivityFile& file, const StringTable& texts)
    : m_results(results), m_file(file), m_texts(texts), m_none(Icons::Icon(Picture::ResultNone)),
      m_running(Icons::Icon(Picture::ResultRunning)), m_fine(Icons::Icon(Picture::ResultFine)),
      m_failed(Icons::Icon(Picture::ResultFailed)), m_early(Icons::Icon(Picture::ResultEarly)) {}

const QIcon& ResultLook::Icon(const QString& name) const {
    if (m_results.IsRunning(name))
        return m_running;
    const std::optional<RunResult> result = m_results.Of(RunIdentity::Of(m_file, name));
    if (!result)
        return m_none;
    return result->ending == RunEnding::Fine ? m_fine : result->ending == RunEnding::Failed ? m_failed : m_early;
}

QString ResultLook::doneText(const RunCounts& done, const QLocale& locale) const {
    const auto number = [&](std::uint64_t value) { return locale.toString(static_cast<qulonglong>(value)); };
    QStringList parts;
    if (done.Files() > 0)
        parts.append(m_texts[Text::ResultFiles].arg(number(done.Files()),
                                                    locale.formattedDataSize(static_cast<qint64>(done.bytes))));
    if (done.deleted > 0)
        parts.append(m_texts[Text::ResultDeleted].arg(number(done.deleted)));
    return parts.isEmpty() ? m_texts[Text::ResultNothing] : parts.join(QStringLiteral(", "));
}

QString ResultLook::Sentence(const QString& name) const {
    if (m_results.IsRunning(name))
        return m_texts[Text::ResultRunning];
    const std::optional<RunResult> result = m_results.Of(RunIdentity::Of(m_file, name));
    if (!result)
        return m_texts[Text::ResultNone];
    const QLocale locale;
    const QString when = locale.toString(result->at.toLocalTime(), QLocale::ShortFormat);
    const QString done = doneText(result->done, locale);
    const QString reason = modForeignText::OneLine(result->reason);
    switch (result->ending) {
    case RunEnding::Fine:
        return m_texts[Text::ResultFine].arg(when, done);
    case RunEnding::Early:
        return m_texts[Text::ResultEarly].arg(when, reason, done);
    case RunEnding::Failed:
        break;
    }
    const QString failed = m_texts[Text::ResultFailed].arg(when, reason);
    const int others = result->failures - 1;
    return others > 0 ? failed + u' ' + m_texts[Text::ResultOthers].arg(locale.toString(others)) : failed;
}
