// What the activity editor objects to: a table of named checks in the order in which the user meets them. Each is a
// function of the edited value and of the few facts in Environment.
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

enum class Tab { Directories, Schedule, Action, Mail, Safety };

/// The edited value. Masked fields are judged as they are shown, with blanks where nothing was typed.
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

/// What to say, and which field to show. The user may accept a question (Yes/No); anything else has to be corrected.
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

/// Runs the checks in order and passes each problem to `wavesThrough`, which stops by returning false. Events may run
/// in it.
[[nodiscard]] bool Pass(const Input& input, const Environment& environment,
                        const std::function<bool(const Problem&)>& wavesThrough);

} // namespace EditorChecks
