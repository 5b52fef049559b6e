// Takes the drives that both directories are on into an activity that is to run on no others. Waits for a disk that
// does not answer no longer than a few seconds.
#pragma once

#include <QString>

class ActivityRecord;
class Prompter;
class StringTable;

namespace EditorDrives {

/// `former`: the activity as it was. A directory that is on another drive than then is asked about: the former drive
/// may only be away. False when a drive cannot be told, after a box that says so; the record is as it was then.
[[nodiscard]] bool Take(ActivityRecord& record, const ActivityRecord& former, Prompter& prompter,
                        const StringTable& texts);

} // namespace EditorDrives
