#include "TemporaryFile.h"
#include "NtFile.h"

#include <tuple>
#include <utility>

TemporaryFile::TemporaryFile(std::shared_ptr<Folder> folder, WinHandle file, std::string name)
    : m_folder(std::move(folder)), m_file(std::move(file)), m_name(std::move(name)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_folder(std::move(other.m_folder)), m_file(std::move(other.m_file)), m_name(std::exchange(other.m_name, {})) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
    if (this != &other) {
        Discard();
        m_folder = std::move(other.m_folder);
        m_file = std::move(other.m_file);
        m_name = std::exchange(other.m_name, {});
    }
    return *this;
}

void TemporaryFile::Discard() {
    if (!m_name.empty())
        std::ignore = NtFile::Delete(m_file.Get(), true);
    m_name.clear();
    CloseFile();
    m_folder.reset();
}
