#include "LinuxProcess.h"

#include "Session.h"
#include "SystemCall.h"
#include "Tool.h"
#include "WebAddress.h"
#include "modNativePath.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>

using namespace std::string_view_literals;

namespace {

const QString xdgOpen = QStringLiteral("xdg-open");

bool hasDisplay() {
    const DisplayFacts display = ReadDisplayFacts();
    return !display.display.isEmpty() || !display.waylandDisplay.isEmpty();
}

bool openWithDesktop(const QString& target) {
    return hasDisplay() && Tool::StartDetached(xdgOpen, {target});
}

/// False on file systems where the executable bit comes from the mount, not from the file.
bool permissionBitsMeanIt(int file) {
    constexpr std::array<std::uint32_t, 8> without{
        0x4d44,                            // FAT
        0x2011bab0,                        // exFAT
        0x5346544e, 0x7366746e,            // NTFS, by two drivers
        0x65735546,                        // a user-space driver, NTFS-3G for one
        0x517b,     0xff534d42, 0xfe534d42 // Windows shares
    };
    struct statfs facts {};
    if (fstatfs(file, &facts) != 0)
        return false;
    const auto type = static_cast<std::uint32_t>(facts.f_type);
    return std::find(without.begin(), without.end(), type) == without.end();
}

OpenMethod methodFor(const QByteArray& path) {
    // A program may be executable without being readable.
    const FileDescriptor file(open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 512> start{};
    const ssize_t length = file.IsOpen() ? read(file.Get(), start.data(), start.size()) : -1;
    if (length < 0)
        return access(path.constData(), X_OK) == 0 ? OpenMethod::Start : OpenMethod::Desktop;
    OpenFacts facts;
    facts.executable = access(path.constData(), X_OK) == 0;
    facts.bitsMeanIt = permissionBitsMeanIt(file.Get());
    facts.name = std::string_view(path.constData(), static_cast<std::size_t>(path.size()));
    facts.firstPart = std::string_view(start.data(), static_cast<std::size_t>(length));
    return ChooseOpenMethod(facts);
}

} // namespace

OpenMethod ChooseOpenMethod(const OpenFacts& facts) {
    if (!facts.executable)
        return OpenMethod::Desktop;
    if (facts.firstPart.starts_with("#!"sv) || facts.firstPart.starts_with("\177ELF"sv))
        return OpenMethod::Start;
    // On a FAT stick a text file has the executable bit too; /bin/sh would run its lines as commands.
    if (!facts.bitsMeanIt && !facts.name.ends_with(".sh"sv))
        return OpenMethod::Desktop;
    // The kernel may have a loader for other binary formats (binfmt_misc).
    const bool binary = facts.firstPart.find('\0') != std::string_view::npos;
    return binary ? OpenMethod::Start : OpenMethod::Shell;
}

bool LinuxProcess::Open(const QString& path) {
    // Absolute, so that nothing is looked up along PATH and no name is parsed as an option.
    const QString absolute = modNativePath::ToText(modNativePath::Absolute(path));
    const QByteArray native = QFile::encodeName(absolute);
    struct stat facts {};
    if (stat(native.constData(), &facts) != 0)
        return false;
    const OpenMethod method = S_ISREG(facts.st_mode) ? methodFor(native) : OpenMethod::Desktop;
    switch (method) {
    case OpenMethod::Start:
        return Tool::StartDetached(absolute, {});
    case OpenMethod::Shell:
        return Tool::StartDetached(QStringLiteral("/bin/sh"), {absolute});
    case OpenMethod::Desktop:
        break;
    }
    return openWithDesktop(absolute);
}

void LinuxProcess::ShowDocument(const QString& path, const std::function<void()>& failed) {
    m_openers.Start(xdgOpen, {modNativePath::ToText(modNativePath::Absolute(path))}, [failed](const ToolEnd& end) {
        if (!end.succeeded)
            failed();
    });
}

bool LinuxProcess::OpenFolder(const QString& path) {
    const QString absolute = modNativePath::ToText(modNativePath::Absolute(path));
    return QFileInfo(absolute).isDir() && openWithDesktop(absolute);
}

bool LinuxProcess::OpenWebPage(const QString& address) {
    const std::optional<QString> page = WebAddress(address);
    return page && openWithDesktop(*page);
}

void LinuxProcess::EndNow(int exitCode) {
    std::fflush(nullptr);
    _exit(exitCode);
}
