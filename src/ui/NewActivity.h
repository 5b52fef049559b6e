// What a new activity looks like before anybody has edited it. Pure function.
#pragma once

class ActivityRecord;

/// Active, copies all files every ten minutes, sends mail (once that is switched on) by itself, shows no message for
/// each file. Everything else as an empty record reads.
[[nodiscard]] ActivityRecord NewActivity();
