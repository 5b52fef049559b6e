// A file that cannot be opened while this lives, whoever runs the tests.
#pragma once

#include "AsNobody.h"

#include <filesystem>

class Unreadable final {
  public:
    explicit Unreadable(const std::filesystem::path& file) {
        std::filesystem::permissions(file, std::filesystem::perms::none);
        std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0755));
        m_nobody.emplace();
    }

  private:
    std::optional<AsNobody> m_nobody;
};
