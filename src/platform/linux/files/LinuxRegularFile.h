// Opens regular files by name and nothing else, without ever waiting. Free functions; a failure is an error code.
#pragma once

#include "FileDescriptor.h"
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

/// What is wrong with a file of this mode: a folder is std::errc::is_a_directory, a FIFO, socket or device
/// std::errc::invalid_argument.
[[nodiscard]] std::error_code NotRegular(mode_t mode);

/// `flags` as of open(2), links are followed; a file that O_CREAT makes is readable for everybody.
/// Anything but a regular file is refused with NotRegular.
[[nodiscard]] std::error_code OpenRegular(const std::filesystem::path& path, int flags, FileDescriptor& file,
                                          struct stat& status);
