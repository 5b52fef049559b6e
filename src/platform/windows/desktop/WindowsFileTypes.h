// Registers a file type in the user's own part of the class registry (HKEY_CURRENT_USER\Software\Classes), which needs
// no administrator. Failures are error codes.
#pragma once

#include "DesktopEntries.h"

class WindowsFileTypes final : public FileTypes {
  public:
    /// The class is named after the extension: "kvdfile". The first key that cannot be written ends it.
    [[nodiscard]] std::error_code Register(const FileType& type) override;
};
