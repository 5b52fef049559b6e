// Compares two open files, byte by byte.
#pragma once

#include "FileSystem.h"
#include <cstdint>
#include <functional>
#include <vector>

/// Fills `bytes` with what stands from byte `at` on, shorter only at the end of the file. False when it cannot be read.
using ReadBytes = std::function<bool(std::uint64_t at, std::vector<char>& bytes)>;

/// True for the same bytes; false also when they cannot be read or the observer gives up.
[[nodiscard]] bool HaveSameBytes(const ReadBytes& first, const ReadBytes& second, TransferObserver& observer);
