// Finds out which file system holds an open folder. What the system does not tell stays empty.
#pragma once

#include "Folder.h"

[[nodiscard]] DriveFacts DriveOf(int folder);
