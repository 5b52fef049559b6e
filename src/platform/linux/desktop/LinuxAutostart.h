// Keeps the entries of the user's session as the Desktop Application Autostart specification (0.5) describes them: one
// desktop file each in $XDG_CONFIG_HOME/autostart. Entries of the whole machine are not looked at. Owns nothing.
#pragma once

#include "Autostart.h"

class LinuxAutostart final : public Autostart {
  public:
    [[nodiscard]] bool Exists(const QString& name) const override;
    [[nodiscard]] std::error_code Create(const QString& name, const std::filesystem::path& program) override;
    [[nodiscard]] std::error_code Remove(const QString& name) override;
};
