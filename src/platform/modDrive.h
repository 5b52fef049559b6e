// Asks by a path which drive a folder is on, and what people call that drive. A drive of the network can hold the call
// for minutes: it belongs on a helper thread.
#pragma once

#include "Folder.h"
#include <QString>

namespace modDrive {

struct Named {
    DriveFacts facts;
    QString name; ///< its label, else its UUID or number; empty where it has none
};

/// Nothing for what is no folder, or cannot be opened.
[[nodiscard]] std::optional<Named> Of(const std::filesystem::path& folder);

} // namespace modDrive
