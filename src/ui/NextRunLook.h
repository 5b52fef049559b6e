// What the list shows of an activity's next run: a time or "never", and why. Keeps what it was told for the rest of the
// second, for a list that is sorted asks for each row many times.
#pragma once

#include "NextRuns.h"
#include <functional>
#include <vector>

class Clock;
class StringTable;

class NextRunLook final {
  public:
    using Source = std::function<NextRun(int row)>;

    NextRunLook(Source source, const Clock& clock, const StringTable& texts)
        : m_source(std::move(source)), m_clock(clock), m_texts(texts) {}

    /// As the logs write it; a time alone is one of today.
    [[nodiscard]] QString Shown(int row) const;
    /// Why it says never, or that the run would be held; "" where there is nothing to explain.
    [[nodiscard]] QString Explanation(int row) const;
    /// For sorting: never is last.
    [[nodiscard]] Moments::Second Order(int row) const;

    /// The rows are others now.
    void Forget() { m_known.clear(); }

  private:
    [[nodiscard]] const NextRun& of(int row) const;

    Source m_source;
    const Clock& m_clock;
    const StringTable& m_texts;
    mutable std::vector<std::optional<NextRun>> m_known;
    mutable Moments::Second m_knownAt;
};
