// A drive as the record of an activity that runs on no other names it: "IDENTITY | MOUNT POINT | NAME". The name is for
// people; the other two have to fit. Pure functions.
#pragma once

#include "modDrive.h"

namespace DriveMark {

/// Empty where the system does not tell the identity or the mount point.
[[nodiscard]] QString Of(const modDrive::Named& drive);

/// False where one of the two is not known.
[[nodiscard]] bool Fits(const QString& mark, const DriveFacts& drive);

/// The same of two marks.
[[nodiscard]] bool IsSame(const QString& one, const QString& other);

/// "MOUNT POINT (NAME)"; empty for an empty mark.
[[nodiscard]] QString Spoken(const QString& mark);

} // namespace DriveMark
