// A plan as others read it: words, totals, CSV (RFC 4180, UTF-8) and JSON (RFC 8259). Pure functions over plans.
#pragma once

#include "RunPlan.h"
#include <QByteArray>
#include <QJsonObject>
#include <array>

class StringTable;

namespace PlanReport {

struct Total {
    std::uint64_t files = 0; ///< folders are not counted
    std::uint64_t bytes = 0;
};
/// By Deed.
using Totals = std::array<Total, DeedCount>;

[[nodiscard]] Totals TotalsOf(const RunPlan& plan);

/// False for folders, and for what is not touched.
[[nodiscard]] bool HasSize(const PlannedAct& act);

/// "copy", in the user's language.
[[nodiscard]] QString Word(Deed deed, const StringTable& texts);

/// One act in one line: word, path, destination, size or reason.
[[nodiscard]] QString Line(const PlannedAct& act, const StringTable& texts);

/// The totals in one line.
[[nodiscard]] QString Summary(const RunPlan& plan, const StringTable& texts);

/// One record for each act, below a line of captions.
[[nodiscard]] QByteArray Csv(const std::vector<const PlannedAct*>& acts, const StringTable& texts);

/// Keys and deeds are English whatever the language; sizes are bytes.
[[nodiscard]] QJsonObject Json(const RunPlan& plan);

} // namespace PlanReport
