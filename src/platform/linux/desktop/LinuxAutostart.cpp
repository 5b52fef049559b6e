#include "LinuxAutostart.h"

#include "AtomicFile.h"
#include "DesktopTexts.h"
#include "SystemError.h"
#include "XdgFolders.h"
#include "modNativePath.h"
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr mode_t entryMode = 0644;

/// Empty when the home folder is unknown.
fs::path entryOf(const QString& name) {
    const fs::path config = XdgFolders::ConfigHome();
    return config.empty() ? config : config / "autostart" / modNativePath::FromText(name + QStringLiteral(".desktop"));
}

} // namespace

bool LinuxAutostart::Exists(const QString& name) const {
    struct stat status {};
    const fs::path entry = entryOf(name);
    return !entry.empty() && ::lstat(entry.c_str(), &status) == 0;
}

std::error_code LinuxAutostart::Create(const QString& name, const fs::path& program) {
    const fs::path entry = entryOf(name);
    if (entry.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    const QByteArray content = "[Desktop Entry]\n"
                               "Type=Application\n"
                               "Name=" +
                               name.toUtf8() + "\nExec=" + DesktopTexts::ExecProgram(program) +
                               "\n"
                               "Terminal=false\n";
    return AtomicFile::Put(entry, content, entryMode);
}

std::error_code LinuxAutostart::Remove(const QString& name) {
    const fs::path entry = entryOf(name);
    if (entry.empty() || ::unlink(entry.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR)
        return {};
    return LastError();
}
