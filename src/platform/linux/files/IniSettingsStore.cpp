#include "AtomicFile.h"
#include "IniFile.h"
#include "LinuxOwnFiles.h"
#include "LinuxServices.h"
#include "SystemCall.h"
#include "modNativePath.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <tuple>

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t mostBytes = 16 << 20;
constexpr mode_t privateFolder = 0700; // as the XDG basedir standard asks
constexpr mode_t privateFile = 0600;   // mail settings may hold a password

std::error_code makeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error))
        return {};
    fs::create_directories(folder.parent_path(), error);
    if (!error && ::mkdir(folder.c_str(), privateFolder) != 0 && errno != EEXIST) // perhaps by another process
        error = LastError();
    return error;
}

/// Another process holds the lock for one save only. If it was stopped in the middle of it, do not wait for ever.
std::error_code lockFolder(const fs::path& folder, FileDescriptor& lock) {
    constexpr int mostAttempts = 2000;
    constexpr std::chrono::milliseconds pause{1};
    // Locks the folder: it stays while the file is replaced, and no lock file is left behind.
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

class IniSettingsStore final : public SettingsStore {
  public:
    explicit IniSettingsStore(fs::path configFolder) : m_configFolder(std::move(configFolder)) {}

    std::optional<QString> Read(const QString& application, const QString& section, const QString& key) const override;
    std::error_code WriteAll(const QString& application, const QString& section, const Entries& entries) override;
    fs::path FileOf(const QString& application) const override;

  private:
    fs::path m_configFolder;
};

fs::path IniSettingsStore::FileOf(const QString& application) const {
    if (m_configFolder.empty() || application.isEmpty() || application.startsWith(QLatin1Char('.')) ||
        application.contains(QLatin1Char('/')) || application.contains(QChar(u'\0')))
        return {};
    return m_configFolder / modNativePath::FromText(application) /
           modNativePath::FromText(application + QStringLiteral(".ini"));
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
    // Never overwrite a file that cannot be read.
    const std::error_code error = LinuxOwnFiles().ReadAll(file, mostBytes, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return error;
    IniFile ini(bytes);
    std::ignore = setAll(ini, section, entries); // succeeds, as it did above
    if (!error && ini.Bytes() == bytes)
        return {};
    return AtomicFile::Replace(file, ini.Bytes(), privateFile);
}

} // namespace

std::unique_ptr<SettingsStore> MakeIniSettingsStore(fs::path configHome) {
    return std::make_unique<IniSettingsStore>(std::move(configHome));
}
