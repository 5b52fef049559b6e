#include "TemporaryFile.h"
#include "LinuxFolder.h"

#include <fcntl.h>

TemporaryFile::TemporaryFile(std::shared_ptr<Folder> folder, FileDescriptor file, std::string name, bool hasFinalMode)
    : m_folder(std::move(folder)), m_file(std::move(file)), m_name(std::move(name)), m_hasFinalMode(hasFinalMode) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_folder(std::move(other.m_folder)), m_file(std::move(other.m_file)), m_name(std::exchange(other.m_name, {})),
      m_hasFinalMode(other.m_hasFinalMode) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
    if (this != &other) {
        Discard();
        m_folder = std::move(other.m_folder);
        m_file = std::move(other.m_file);
        m_name = std::exchange(other.m_name, {});
        m_hasFinalMode = other.m_hasFinalMode;
    }
    return *this;
}

void TemporaryFile::Discard() {
    if (!m_name.empty())
        ::unlinkat(DescriptorOf(*m_folder), m_name.c_str(), 0);
    m_name.clear();
    m_file.Close();
    m_folder.reset();
}
