// A file that cannot be opened while this lives: somebody has it for himself.
#pragma once

#include <filesystem>
#include <windows.h>

class Unreadable final {
  public:
    explicit Unreadable(const std::filesystem::path& file)
        : m_file(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~Unreadable() { CloseHandle(m_file); }
    Unreadable(const Unreadable&) = delete;
    Unreadable& operator=(const Unreadable&) = delete;

  private:
    HANDLE m_file;
};
