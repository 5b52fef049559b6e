#include "NextRunLook.h"

#include "Clock.h"
#include "StringTable.h"
#include "modLogTime.h"
#include <array>

namespace {

/// In the order of NeverRuns.
constexpr std::array reasons{Text::NeverMonitoringOff, Text::NeverNotTicked, Text::NeverTakenOut,
                             Text::NeverNoSchedule,    Text::NeverNoNumber,  Text::NeverNoTime,
                             Text::NeverNoDate,        Text::NeverPast,      Text::NeverStalls};

} // namespace

const NextRun& NextRunLook::of(int row) const {
    const auto now = std::chrono::floor<std::chrono::seconds>(m_clock.Now());
    if (now != m_knownAt)
        m_known.clear();
    m_knownAt = now;
    const auto place = static_cast<std::size_t>(row);
    if (m_known.size() <= place)
        m_known.resize(place + 1);
    if (!m_known[place])
        m_known[place] = m_source(row);
    return *m_known[place];
}

QString NextRunLook::Shown(int row) const {
    const std::optional<Moments::Second> at = of(row).at;
    if (!at)
        return m_texts[Text::NextRunNever];
    const QString text = modLogTime::Text(*at);
    return Moments::DayOf(*at) == Moments::DayOf(m_knownAt) ? text.mid(11) : text;
}

QString NextRunLook::Explanation(int row) const {
    const NextRun& next = of(row);
    QStringList lines;
    if (!next.at)
        lines.append(m_texts[reasons.at(static_cast<std::size_t>(next.reason))]);
    else if (!next.held.isEmpty())
        lines.append(m_texts[Text::NextRunHeld].arg(next.held));
    if (next.isWatched)
        lines.append(next.notWatched.isEmpty() ? m_texts[Text::AlsoOnChange] : next.notWatched);
    return lines.join(u'\n');
}

Moments::Second NextRunLook::Order(int row) const {
    return of(row).at.value_or(Moments::Second::max());
}
