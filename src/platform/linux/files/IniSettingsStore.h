// The user's settings as one INI file per application: <config folder>/<application>/<application>.ini, UTF-8, meant to
// be edited by hand too. Owns the folder's name only; every call reads the file afresh. The first write creates the
// file.
#pragma once

#include "SettingsStore.h"

class IniSettingsStore final : public SettingsStore {
  public:
    /// Below $XDG_CONFIG_HOME (XDG basedir: a relative value is ignored), by default ~/.config.
    IniSettingsStore();
    explicit IniSettingsStore(std::filesystem::path configFolder) : m_configFolder(std::move(configFolder)) {}

    [[nodiscard]] std::optional<QString> Read(const QString& application, const QString& section,
                                              const QString& key) const override;
    [[nodiscard]] std::error_code WriteAll(const QString& application, const QString& section,
                                           const Entries& entries) override;
    [[nodiscard]] std::filesystem::path FileOf(const QString& application) const override;

  private:
    std::filesystem::path m_configFolder;
};
