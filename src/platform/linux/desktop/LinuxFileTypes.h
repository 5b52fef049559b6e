// Registers a file type with the user's desktop: a MIME package and a desktop entry below $XDG_DATA_HOME, the default
// application in $XDG_CONFIG_HOME/mimeapps.list. Owns the two folders' names. Each file is written whole or not at all.
#pragma once

#include "FileTypes.h"

class LinuxFileTypes final : public FileTypes {
  public:
    LinuxFileTypes(std::filesystem::path dataHome, std::filesystem::path configHome)
        : m_dataHome(std::move(dataHome)), m_configHome(std::move(configHome)) {}

    /// Runs update-mime-database and update-desktop-database where they are, three seconds each at most; the desktop
    /// finds the files without them too, later.
    [[nodiscard]] std::error_code Register(const FileType& type) override;

  private:
    [[nodiscard]] std::error_code makeDefault() const;
    void installIcon(std::filesystem::path icon) const;

    std::filesystem::path m_dataHome;
    std::filesystem::path m_configHome;
};
