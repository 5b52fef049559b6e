// A file that is not in place yet, with a hidden temporary name. Owns the file; the destructor deletes it unless it was
// placed. Nobody else can write to it or delete it while it is open.
#pragma once

#include "Folder.h"
#include "SystemCall.h"

#include <string>

class TemporaryFile final {
  public:
    TemporaryFile() = default;
    TemporaryFile(std::shared_ptr<Folder> folder, WinHandle file, std::string name);
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) noexcept;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { Discard(); }

    [[nodiscard]] HANDLE Handle() const { return m_file.Get(); }
    [[nodiscard]] const std::shared_ptr<Folder>& Parent() const { return m_folder; }

    void Discard();

    /// The file has its final name now and is no longer owned. It stays open.
    void SetPlaced() { m_name.clear(); }

    void CloseFile() { m_file = WinHandle(); }

  private:
    std::shared_ptr<Folder> m_folder;
    WinHandle m_file;
    std::string m_name;
};
