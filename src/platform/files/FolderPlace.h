// The path of an open folder, link by link: in a deep tree, a whole path at every level would take memory with the
// square of the depth.
#pragma once

#include <filesystem>
#include <memory>

class FolderPlace final {
  public:
    explicit FolderPlace(std::filesystem::path path) : m_name(std::move(path)) {}
    FolderPlace(std::shared_ptr<const FolderPlace> parent, std::filesystem::path name)
        : m_parent(std::move(parent)), m_name(std::move(name)) {}

    [[nodiscard]] std::filesystem::path Whole() const;

  private:
    std::shared_ptr<const FolderPlace> m_parent;
    std::filesystem::path m_name;
};
