#include "SystemCall.h"
#include "TemporaryName.h"

#include <array>
#include <charconv>
#include <csignal>
#include <fcntl.h>

namespace {

std::string readSmallFile(const char* path) {
    const FileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    std::array<char, 1024> buffer{};
    const ssize_t length = file.IsOpen() ? ::read(file.Get(), buffer.data(), buffer.size()) : 0;
    return {buffer.data(), static_cast<std::size_t>(length > 0 ? length : 0)};
}

/// Field 22 of /proc/PID/stat; the fields are counted from the last ")" since the command name may hold anything.
std::uint64_t startTicksOf(pid_t process) {
    const std::string status = readSmallFile(("/proc/" + std::to_string(process) + "/stat").c_str());
    std::size_t at = status.rfind(')');
    for (int field = 2; field < 22 && at != std::string::npos; ++field)
        at = status.find(' ', at + 1);
    std::uint64_t ticks = 0;
    if (at != std::string::npos)
        std::from_chars(status.data() + at + 1, status.data() + status.size(), ticks);
    return ticks;
}

std::uint32_t machineHash() {
    std::array<char, 256> host{};
    ::gethostname(host.data(), host.size() - 1);
    struct stat space {};
    const bool hasSpace = ::stat("/proc/self/ns/pid", &space) == 0;
    return HashOf(readSmallFile("/etc/machine-id") + host.data() + ' ' +
                  std::to_string(hasSpace ? space.st_ino : ino_t{0}));
}

} // namespace

ProcessMark ProcessMark::OfThisProcess() {
    return {machineHash(), HashOf(readSmallFile("/proc/sys/kernel/random/boot_id")), ::getpid(),
            startTicksOf(::getpid())};
}

ProcessState StateOf(const ProcessMark& mark, const ProcessMark& own) {
    if (mark.machine != own.machine)
        return ProcessState::OnAnotherMachine;
    if (mark.boot != own.boot)
        return ProcessState::Gone;
    if (mark.process <= 0 || (::kill(mark.process, 0) != 0 && errno == ESRCH))
        return ProcessState::Gone;
    const std::uint64_t startTicks = startTicksOf(mark.process);
    const bool isReused = startTicks != 0 && mark.startTicks != 0 && startTicks != mark.startTicks;
    return isReused ? ProcessState::Gone : ProcessState::Alive;
}
