#include "RunNotices.h"

#include "Clock.h"
#include "RunResults.h"
#include "RunSummary.h"
#include "StringTable.h"
#include "clsWatcher.h"
#include "modForeignText.h"
#include <algorithm>

namespace {

constexpr std::chrono::seconds shortestPause{1};
constexpr std::chrono::hours patience{1};
constexpr qsizetype mostLines = 5; // of one notice
constexpr int onlyFailures = 1;
constexpr int alsoDeeds = 2;

} // namespace

RunNotices::RunNotices(const RunResults& results, const Parts& parts) : m_parts(parts) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(shortestPause);
    connect(&m_pause, &QTimer::timeout, this, [this] { tell(); });
    connect(&results, &RunResults::RunEnded, this,
            [this](const RunIdentity& run, const RunResult& result) { take(run.name, result); });
}

RunNotices::~RunNotices() {
    tell();
}

void RunNotices::take(const QString& name, const RunResult& result) {
    if (!isWanted(name, result))
        return;
    Waiting& waiting = result.ending == RunEnding::Failed ? m_failed : m_done;
    waiting.removeIf([&name](const Ended& one) { return one.name == name; });
    waiting.append({name, result});
    if (!m_pause.isActive())
        tell();
}

/// Most runs find nothing to do: nobody wants to hear of those.
bool RunNotices::isWanted(const QString& name, const RunResult& result) {
    const int notify = m_parts.options.Notify;
    const bool isOn = notify == onlyFailures || notify == alsoDeeds;
    if (result.ending == RunEnding::Failed)
        return isOn && isNew(name, result.reason);
    m_failures.remove(name);
    return notify == alsoDeeds && result.ending == RunEnding::Fine && result.done.HasDeeds();
}

bool RunNotices::isNew(const QString& name, const QString& reason) {
    const auto now = m_parts.clock.MonotonicNow();
    const auto last = m_failures.constFind(name);
    if (last != m_failures.constEnd() && last->reason == reason && now - last->at < patience)
        return false;
    m_failures[name] = {reason, now};
    return true;
}

void RunNotices::tell() {
    tell(m_failed, true);
    tell(m_done, false);
}

void RunNotices::tell(Waiting& waiting, bool isFailure) {
    if (waiting.isEmpty())
        return;
    const StringTable& texts = m_parts.texts;
    const auto words = [&](const RunResult& result) {
        return isFailure ? modForeignText::OneLine(result.reason) : RunSummary::Sentence(result, texts);
    };
    Notice notice{.key = {}, .title = {}, .text = {}, .isFailure = isFailure};
    if (waiting.size() == 1) {
        const QString name = modForeignText::OneLine(waiting.first().name);
        notice.key = name;
        notice.title = texts[isFailure ? Text::NoticeFailed : Text::NoticeDone].arg(name);
        notice.text = words(waiting.first().result);
    } else {
        notice.key = isFailure ? QStringLiteral(" failed") : QStringLiteral(" done"); // no activity's name
        notice.title = texts[isFailure ? Text::NoticeSeveralFailed : Text::NoticeSeveralDone].arg(waiting.size());
        QStringList lines;
        for (const Ended& one : waiting.first(std::min(waiting.size(), mostLines)))
            lines.append(modForeignText::OneLine(one.name) + u": " + words(one.result));
        notice.text = lines.join(u'\n');
        if (waiting.size() > mostLines)
            notice.text += u"\n...";
    }
    waiting.clear();
    m_pause.start();
    m_parts.notifier.Show(notice);
}
