// The file of a program that callers name as on every system, without ".exe". A plain function.
#pragma once

#include <filesystem>

[[nodiscard]] inline std::filesystem::path ProgramFile(std::filesystem::path program) {
    if (!program.has_extension())
        program += L".exe";
    return program;
}
