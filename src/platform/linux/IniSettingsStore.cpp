#include "IniSettingsStore.h"
#include "AtomicFile.h"
#include "IniFile.h"
#include "LinuxOwnFiles.h"
#include "SystemError.h"
#include "XdgFolders.h"

#include <sys/stat.h>

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
    if (!error && ::mkdir(folder.c_str(), privateFolder) != 0)
        error = LastError();
    return error;
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

std::error_code IniSettingsStore::Write(const QString& application, const QString& section, const QString& key,
                                        const QString& value) {
    const fs::path file = FileOf(application);
    if (file.empty())
        return std::make_error_code(std::errc::invalid_argument);
    QByteArray bytes;
    // What cannot be read must not be written over.
    std::error_code error = LinuxOwnFiles().ReadAll(file, mostBytes, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return error;
    IniFile ini(bytes);
    if (!ini.SetValue(section, key, value))
        return std::make_error_code(std::errc::invalid_argument);
    if (!error && ini.Bytes() == bytes)
        return {};
    error = makeFolder(file.parent_path());
    return error ? error : AtomicFile::Replace(file, ini.Bytes(), privateFile);
}
