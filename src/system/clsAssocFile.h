// Registers the file type of activity files, so that a double click opens them in this program. Failures are silent:
// the program works without it.
#pragma once

#include "DesktopEntries.h"

class SettingsStore;
class StringTable;
struct ProgramPlaces;

class clsAssocFile final {
  public:
    /// Everything passed in must outlive this object.
    clsAssocFile(FileTypes& types, SettingsStore& settings, const StringTable& texts)
        : m_types(types), m_settings(settings), m_texts(texts) {}

    void SetFileAssoc(const std::filesystem::path& program, const QString& extension, const std::filesystem::path& icon,
                      const QString& description);

    /// Registers ".kvd" once per user, even if that fails, so that a later choice of the user is never overwritten.
    void RegisterOnce(const ProgramPlaces& places);

  private:
    FileTypes& m_types;
    SettingsStore& m_settings;
    const StringTable& m_texts;
};
