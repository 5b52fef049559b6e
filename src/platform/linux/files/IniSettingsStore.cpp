#include "IniSettingsStore.h"
#include "AtomicFile.h"
#include "FileDescriptor.h"
#include "IniFile.h"
#include "LinuxOwnFiles.h"
#include "SystemError.h"
#include "XdgFolders.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t mostBytes = 16 << 20;
constexpr mode_t privateFolder = 0700; // as the XDG basedir standard asks
constexpr mode_t privateFile = 0600;   // mail settings may hold a password

fs::path nativePath(const QString& text) {
    return {text.toUtf8().toStdString()};
}

std::error_code makeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error))
        return {};
    fs::create_directories(folder.parent_path(), error);
    if (!error && ::mkdir(folder.c_str(), privateFolder) != 0 && errno != EEXIST) // perhaps by another process
        error = LastError();
    return error;
}

/// Another process keeps its lock for one save only. If it was stopped in the midst of it, we do not wait for ever.
std::error_code lockFolder(const fs::path& folder, FileDescriptor& lock) {
    constexpr int mostAttempts = 2000;
    constexpr std::chrono::milliseconds pause{1};
    // The folder itself, for it stays while the file is replaced, and no other file is left behind.
    lock = FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!lock.IsOpen())
        return LastError();
    for (int attempt = 0; ::flock(lock.Get(), LOCK_EX | LOCK_NB) != 0; ++attempt) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || attempt >= mostAttempts)
            return LastError();
        std::this_thread::sleep_for(pause);
    }
    return {};
}

bool setAll(IniFile& ini, const QString& section, const SettingsStore::Entries& entries) {
    return std::all_of(entries.begin(), entries.end(),
                       [&](const auto& entry) { return ini.SetValue(section, entry.first, entry.second); });
}

} // namespace

IniSettingsStore::IniSettingsStore() : m_configFolder(XdgFolders::ConfigHome()) {}

fs::path IniSettingsStore::FileOf(const QString& application) const {
    if (m_configFolder.empty() || application.isEmpty() || application.startsWith(QLatin1Char('.')) ||
        application.contains(QLatin1Char('/')) || application.contains(QChar(u'\0')))
        return {};
    return m_configFolder / nativePath(application) / nativePath(application + QStringLiteral(".ini"));
}

std::optional<QString> IniSettingsStore::Read(const QString& application, const QString& section,
                                              const QString& key) const {
    QByteArray bytes;
    if (LinuxOwnFiles().ReadAll(FileOf(application), mostBytes, bytes))
        return std::nullopt;
    return IniFile(bytes).Value(section, key);
}

std::error_code IniSettingsStore::WriteAll(const QString& application, const QString& section, const Entries& entries) {
    const fs::path file = FileOf(application);
    IniFile empty({});
    if (file.empty() || !setAll(empty, section, entries))
        return std::make_error_code(std::errc::invalid_argument);
    if (const std::error_code error = makeFolder(file.parent_path()))
        return error;
    FileDescriptor lock;
    if (const std::error_code error = lockFolder(file.parent_path(), lock))
        return error;
    QByteArray bytes;
    // What cannot be read must not be written over.
    const std::error_code error = LinuxOwnFiles().ReadAll(file, mostBytes, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return error;
    IniFile ini(bytes);
    static_cast<void>(setAll(ini, section, entries)); // as above
    if (!error && ini.Bytes() == bytes)
        return {};
    return AtomicFile::Replace(file, ini.Bytes(), privateFile);
}
