// A file that is not yet in place: without a name where the file system can, else under a hidden temporary one. Owns
// it; what is not placed vanishes with its end.
#pragma once

#include "LinuxFolder.h"

class TemporaryFile final {
  public:
    TemporaryFile() = default;

    /// `name` is empty for a file without a name. `hasFinalMode`: made with the permission bits that were asked for.
    TemporaryFile(std::shared_ptr<LinuxFolder> folder, FileDescriptor file, std::string name, bool hasFinalMode);
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) noexcept;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { Discard(); }

    [[nodiscard]] int Descriptor() const { return m_file.Get(); }
    [[nodiscard]] const std::shared_ptr<LinuxFolder>& Parent() const { return m_folder; }
    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] bool HasFinalMode() const { return m_hasFinalMode; }

    /// Removes it.
    void Discard();

    /// It now stands under its proper name and is ours no more.
    void Release();

  private:
    std::shared_ptr<LinuxFolder> m_folder;
    FileDescriptor m_file;
    std::string m_name;
    bool m_hasFinalMode = false;
};
