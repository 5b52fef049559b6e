// What happens to one file, decided from its record's fields and the two dates alone. Values and pure functions;
// nothing is done here, and nothing can fail.
#pragma once

#include <QString>

enum class FileAction { Copy, Move, None, Mirror };

/// The fields of a record that rule over files, read afresh for every file.
struct FileRules {
    FileAction action = FileAction::Copy;
    bool asksFirst = false; ///< `overwrite` is "N"
    bool onlyNewer = false; ///< `onlynew` is "Y"
};

enum class FileDecision {
    Ask,        ///< an older source would replace a newer file: the user decides
    ReportOnly, ///< there is something to do, but the activity does nothing
    LeaveAlone, ///< the source is not newer
    Replace
};

namespace SyncRules {

/// "3" mirrors, "2" does nothing, "1" moves, anything else copies.
[[nodiscard]] FileAction ActionOf(const QString& field);
[[nodiscard]] FileRules RulesOf(const QString& action, const QString& overwrite, const QString& onlyNew);

/// The destination has the file. `comparison` is source date against destination date: -1, 0 or 1.
[[nodiscard]] FileDecision DecideExisting(const FileRules& rules, int comparison);

/// The same after the user said Yes: no further date test.
[[nodiscard]] FileDecision DecideAfterYes(const FileRules& rules);

} // namespace SyncRules
