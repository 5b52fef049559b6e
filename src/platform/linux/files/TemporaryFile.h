// A file that is not in place yet: without a name where the file system supports that, else with a hidden temporary
// one. Owns the file; the destructor discards it unless it was placed.
#pragma once

#include "Folder.h"
#include "SystemCall.h"

#include <string>

class TemporaryFile final {
  public:
    TemporaryFile() = default;

    /// `name` is empty for a file without a name. `hasFinalMode`: it was created with the permission bits asked for.
    TemporaryFile(std::shared_ptr<Folder> folder, FileDescriptor file, std::string name, bool hasFinalMode);
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) noexcept;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { Discard(); }

    [[nodiscard]] int Descriptor() const { return m_file.Get(); }
    [[nodiscard]] const std::shared_ptr<Folder>& Parent() const { return m_folder; }
    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] bool HasFinalMode() const { return m_hasFinalMode; }

    void Discard();

    /// The file has its final name now and is no longer owned. The descriptor stays open for the sync of the name.
    void SetPlaced() { m_name.clear(); }

    void CloseFile() { m_file.Close(); }

  private:
    std::shared_ptr<Folder> m_folder;
    FileDescriptor m_file;
    std::string m_name;
    bool m_hasFinalMode = false;
};
