// Error numbers of the system as values. Nothing here fails.
#pragma once

#include <cerrno>
#include <system_error>

[[nodiscard]] inline std::error_code ErrorOf(int number) {
    return {number, std::generic_category()};
}

/// What the last system call of this thread said.
[[nodiscard]] inline std::error_code LastError() {
    return ErrorOf(errno);
}
