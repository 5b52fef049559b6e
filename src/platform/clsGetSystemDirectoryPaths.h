// The folders of the operating system itself, which should not be watched by mistake. A plain value.
#pragma once

#include <filesystem>
#include <utility>

class clsGetSystemDirectoryPaths final {
  public:
    clsGetSystemDirectoryPaths() = default;
    clsGetSystemDirectoryPaths(std::filesystem::path windows, std::filesystem::path system, std::filesystem::path root)
        : m_windows(std::move(windows)), m_system(std::move(system)), m_root(std::move(root)) {}

    /// The operating system's programs; "/usr" on Linux.
    [[nodiscard]] const std::filesystem::path& WindowsDirectory() const { return m_windows; }

    /// The operating system's internals and settings; "/etc" on Linux.
    [[nodiscard]] const std::filesystem::path& SystemDirectory() const { return m_system; }

    /// The root of the volume that holds them.
    [[nodiscard]] const std::filesystem::path& RootDirectory() const { return m_root; }

  private:
    std::filesystem::path m_windows;
    std::filesystem::path m_system;
    std::filesystem::path m_root;
};
