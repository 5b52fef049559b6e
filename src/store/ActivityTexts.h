// What the list says of one activity's schedule and action. Pure function.
#pragma once

#include <QString>

class ActivityRecord;
class StringTable;

namespace ActivityTexts {

/// "10 Seconds - Copy files", "Date: ... / Time: ... - ..."; an unknown type or action leaves its part empty.
[[nodiscard]] QString Schedule(const ActivityRecord& record, const StringTable& texts);

} // namespace ActivityTexts
