// What the activity editor objects to, as a list of named checks in the order in which the user meets them. Each is a
// pure function of the edited value and a little of the world. Owns nothing, never fails.
#pragma once

#include "ActivityRecord.h"
#include "Prompter.h"

#include <QString>
#include <functional>
#include <optional>
#include <span>

class Clock;
class OwnFiles;
class QLocale;
class StringTable;
class clsGetSystemDirectoryPaths;

namespace EditorChecks {

enum class Tab { Directories, Schedule, Action, Mail };

/// The edited value. The masked fields are judged as they are shown, with blanks where nothing was typed.
struct Input {
    QString name; ///< trimmed
    ActivityRecord record;
    QString shownDate;     ///< of the once-only activity, in the locale's order
    QString shownDateTime; ///< beside it, "hh:mm"
    QString shownTime;     ///< time of day, "hh:mm"
};

struct Environment {
    const OwnFiles& files;
    const clsGetSystemDirectoryPaths& system;
    const Clock& clock;
    const QLocale& locale;
    const StringTable& texts;
    /// Whether an activity of this name can be stored.
    const std::function<bool(const QString&)>& isUsableName;
    /// Whether the path leads to the activity file or the settings.
    const std::function<bool(const QString&)>& isOwnFile;
};

/// What to say, and where to look. A question (Yes/No) can be waved through; anything else has to be mended.
struct Problem {
    Message message;
    Tab tab = Tab::Directories;
    const char* control = ""; ///< object name of the field
};

struct Check {
    const char* name;
    std::optional<Problem> (*Find)(const Input& input, const Environment& environment);
};

[[nodiscard]] std::span<const Check> All();

/// Runs the checks in order. `wavesThrough` is told of each problem and ends the walk with false. Events may run in it.
[[nodiscard]] bool Pass(const Input& input, const Environment& environment,
                        const std::function<bool(const Problem&)>& wavesThrough);

} // namespace EditorChecks
