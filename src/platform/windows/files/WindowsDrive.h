// The volume that holds a folder. What the system does not tell is empty.
#pragma once

#include "Folder.h"
#include "Handle.h"

[[nodiscard]] DriveFacts DriveOf(HANDLE folder, const std::filesystem::path& absolute);
