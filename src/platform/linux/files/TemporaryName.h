// Names of the temporary files that a transfer makes beside their destination: hidden, unpredictable, and telling which
// process made them. Free functions, no state; a name that is none of ours has no maker.
#pragma once

#include "ProcessMark.h"

#include <optional>
#include <string>
#include <string_view>

/// A new name: ".kalvenor-<machine>-<boot>-<process>-<start>-<random>.tmp", numbers in hexadecimal.
[[nodiscard]] std::string MakeTemporaryName(const ProcessMark& maker);

/// Who made the temporary file of this name; nullopt for every other name.
[[nodiscard]] std::optional<ProcessMark> MakerOfTemporary(std::string_view name);
