// Asks the disk what a path leads to, without making the window wait: a drive of the network that does not answer holds
// a system call for minutes. Each look has a thread of its own, which touches nothing but its path and may outlive
// whoever asked.
#pragma once

#include "modDrive.h"
#include <QStringList>
#include <filesystem>
#include <future>

namespace PathLook {

/// The answer comes later or never; letting go of the future does not wait. True when no thread can be made.
[[nodiscard]] std::future<bool> IsFolder(const std::filesystem::path& path);
[[nodiscard]] std::future<bool> IsFile(const std::filesystem::path& path);

/// The same of the drive that a folder is on.
[[nodiscard]] std::future<std::optional<modDrive::Named>> DriveOf(const std::filesystem::path& folder);
/// Waits a few seconds for the answer at most: a disk may have to wake up.
[[nodiscard]] std::optional<modDrive::Named> DriveAtHand(const std::filesystem::path& folder);

/// Waits a moment for the answer at most; false without one.
[[nodiscard]] bool IsFolderAtHand(const std::filesystem::path& path);

/// The names of the folders in a folder, sorted without regard to case: those that are not hidden and can be typed,
/// among the first 10,000 entries. The answer comes later or never, as above; empty when no thread can be made.
[[nodiscard]] std::future<QStringList> FoldersIn(const std::filesystem::path& path);

} // namespace PathLook
