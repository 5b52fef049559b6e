#include "Handle.h"
#include "TemporaryName.h"

#include <array>

namespace {

/// Of an open process, in 100 ns since 1601: no two processes share number and start. 0 when it is unknown.
std::uint64_t startOf(HANDLE process) {
    FILETIME start{};
    FILETIME ignored{};
    if (!GetProcessTimes(process, &start, &ignored, &ignored, &ignored))
        return 0;
    constexpr unsigned halfBits = 32;
    return (std::uint64_t{start.dwHighDateTime} << halfBits) | start.dwLowDateTime;
}

/// Of the machine's name and of the number that Windows was given when it was installed.
std::uint32_t machineHash() {
    std::array<char, 256> id{};
    DWORD size = id.size() - 1;
    RegGetValueA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Cryptography", "MachineGuid",
                 RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY, nullptr, id.data(), &size);
    std::array<char, 256> name{};
    DWORD length = name.size() - 1;
    GetComputerNameExA(ComputerNamePhysicalDnsHostname, name.data(), &length);
    return HashOf(std::string(id.data()) + name.data());
}

} // namespace

ProcessMark ProcessMark::OfThisProcess() {
    return {machineHash(), 0, static_cast<std::int32_t>(GetCurrentProcessId()), startOf(GetCurrentProcess())};
}

ProcessState StateOf(const ProcessMark& mark, const ProcessMark& own) {
    if (mark.machine != own.machine)
        return ProcessState::OnAnotherMachine;
    if (mark.boot != own.boot || mark.process <= 0)
        return ProcessState::Gone;
    const WinHandle process(
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, static_cast<DWORD>(mark.process)));
    if (!process.IsOpen())
        return GetLastError() == ERROR_INVALID_PARAMETER ? ProcessState::Gone : ProcessState::Alive;
    const std::uint64_t start = startOf(process.Get());
    const bool isReused = start != 0 && mark.startTicks != 0 && start != mark.startTicks;
    const bool hasEnded = WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0;
    return isReused || hasEnded ? ProcessState::Gone : ProcessState::Alive;
}
