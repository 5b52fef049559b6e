#include "TemporaryName.h"
#include "SystemCall.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <random>

namespace {

constexpr std::string_view prefix = ".kalvenor-";
constexpr std::array<std::string_view, 3> suffixes = {".tmp", ".new", ".moves"}; // in the order of TemporaryKind
constexpr std::size_t randomDigits = 16;

std::string_view suffixOf(std::string_view name) {
    return name.substr(std::min(name.rfind('.'), name.size()));
}

std::string readSmallFile(const char* path) {
    const FileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    std::array<char, 1024> buffer{};
    const ssize_t length = file.IsOpen() ? ::read(file.Get(), buffer.data(), buffer.size()) : 0;
    return {buffer.data(), static_cast<std::size_t>(length > 0 ? length : 0)};
}

std::uint32_t hashOf(std::string_view text) {
    std::uint32_t hash = 2166136261U; // FNV-1a
    for (const char character : text)
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    return hash;
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
    return hashOf(readSmallFile("/etc/machine-id") + host.data() + ' ' +
                  std::to_string(hasSpace ? space.st_ino : ino_t{0}));
}

/// Consumes one lower-case hexadecimal number and the hyphen after it.
template <typename Number>
bool takeNumber(std::string_view& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (error != std::errc() || end == text.data() + text.size() || *end != '-')
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return true;
}

} // namespace

ProcessMark ProcessMark::OfThisProcess() {
    return {machineHash(), hashOf(readSmallFile("/proc/sys/kernel/random/boot_id")), ::getpid(),
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

std::string MakeTemporaryName(const ProcessMark& maker, TemporaryKind kind) {
    std::random_device random; // the system's generator: an attacker cannot guess the name and plant a link
    std::array<char, 128> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%s%08x-%08x-%x-%llx-%08x%08x%s", prefix.data(),
                                     maker.machine, maker.boot, static_cast<unsigned>(maker.process),
                                     static_cast<unsigned long long>(maker.startTicks), random(), random(),
                                     suffixes.at(static_cast<std::size_t>(kind)).data());
    return {buffer.data(), static_cast<std::size_t>(length)};
}

TemporaryKind KindOfTemporary(std::string_view name) {
    const auto* const suffix = std::find(suffixes.begin(), suffixes.end(), suffixOf(name));
    return static_cast<TemporaryKind>(suffix - suffixes.begin());
}

std::optional<ProcessMark> MakerOfTemporary(std::string_view name) {
    const std::string_view suffix = suffixOf(name);
    if (!name.starts_with(prefix) || std::find(suffixes.begin(), suffixes.end(), suffix) == suffixes.end())
        return std::nullopt;
    name.remove_prefix(prefix.size());
    name.remove_suffix(suffix.size());
    ProcessMark maker;
    if (!takeNumber(name, maker.machine) || !takeNumber(name, maker.boot) || !takeNumber(name, maker.process) ||
        !takeNumber(name, maker.startTicks))
        return std::nullopt;
    const bool isRandom =
        name.size() == randomDigits && name.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    return isRandom ? std::optional(maker) : std::nullopt;
}
