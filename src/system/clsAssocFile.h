// Makes a double click on an activity file open it in this program. Owns nothing. Failures are silent: the program
// works as well without.
#pragma once

#include "DesktopEntries.h"

class SettingsStore;
class StringTable;
struct ProgramPlaces;

class clsAssocFile final {
  public:
    /// Everything handed in must outlive this object.
    clsAssocFile(FileTypes& types, SettingsStore& settings, const StringTable& texts)
        : m_types(types), m_settings(settings), m_texts(texts) {}

    void SetFileAssoc(const std::filesystem::path& program, const QString& extension, const std::filesystem::path& icon,
                      const QString& description);

    /// Registers ".kvd", once for each user, whether it succeeds or not: who has it otherwise keeps it so.
    void RegisterOnce(const ProgramPlaces& places);

  private:
    FileTypes& m_types;
    SettingsStore& m_settings;
    const StringTable& m_texts;
};
