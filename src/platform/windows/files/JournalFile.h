// A new file that only grows. Owns its handle. After a failed write the next one begins a line of its own.
#pragma once

#include "Folder.h"
#include "SystemCall.h"

#include <string_view>

class JournalFile final {
  public:
    /// std::errc::file_exists when the name is taken.
    [[nodiscard]] std::error_code Create(const Folder& folder, const std::filesystem::path& name);
    [[nodiscard]] std::error_code Write(std::string_view text);
    [[nodiscard]] std::error_code Sync() const;

  private:
    WinHandle m_file;
    bool m_isTorn = false;
};
