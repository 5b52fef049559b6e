#include "WindowsServices.h"

#include "Handle.h"
#include "modForeignText.h"

#include <QSysInfo>
#include <array>
#include <cstddef>
#include <cstring>
#include <system_error>

#include <ras.h>

namespace {

class WindowsSystemClock final : public SystemClock {
  public:
    explicit WindowsSystemClock(SetTime setTime) : m_setTime(setTime) {}

    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override;

  private:
    SetTime m_setTime;
};

void WindowsSystemClock::Set(std::chrono::system_clock::time_point time, Outcome outcome) {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<seconds>(time - day));
    SYSTEMTIME utc{};
    utc.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    utc.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    utc.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    utc.wHour = static_cast<WORD>(clock.hours().count());
    utc.wMinute = static_cast<WORD>(clock.minutes().count());
    utc.wSecond = static_cast<WORD>(clock.seconds().count());
    if (m_setTime(&utc) != FALSE) {
        outcome({});
        return;
    }
    outcome(modForeignText::OfError(LastError()));
}

/// This process may have the right to power off, but has to switch it on first.
void useShutdownRight() {
    HANDLE opened = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened) == FALSE)
        return;
    const WinHandle token(opened);
    TOKEN_PRIVILEGES rights{};
    rights.PrivilegeCount = 1;
    rights.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (LookupPrivilegeValueW(nullptr, SE_SHUTDOWN_NAME, &rights.Privileges[0].Luid) != FALSE)
        AdjustTokenPrivileges(token.Get(), FALSE, &rights, 0, nullptr, nullptr);
}

class WindowsPowerControl final : public PowerControl {
  public:
    bool PowerOff() override {
        useShutdownRight();
        constexpr DWORD atOnce = 0;
        const BOOL force = FALSE; // a program that has something unsaved may ask for it
        const BOOL restart = FALSE;
        return InitiateSystemShutdownExW(nullptr, nullptr, atOnce, force, restart,
                                         SHTDN_REASON_MAJOR_APPLICATION | SHTDN_REASON_FLAG_PLANNED) != FALSE;
    }
};

class WindowsDialUp final : public DialUp {
  public:
    bool IsActive() const override;
};

bool WindowsDialUp::IsActive() const {
    // Room for one connection, in the oldest layout of the record, which every version accepts. With several
    // connections the call fails.
    constexpr DWORD recordSize = 412;
    alignas(RASCONNA) std::array<std::byte, recordSize> record{};
    std::memcpy(record.data(), &recordSize, sizeof recordSize);
    DWORD size = recordSize;
    DWORD count = 0;
    return RasEnumConnectionsA(reinterpret_cast<RASCONNA*>(record.data()), &size, &count) == ERROR_SUCCESS && count > 0;
}

} // namespace

std::optional<SystemFacts> ReadSystemFacts() {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    if (GlobalMemoryStatusEx(&memory) == FALSE)
        return std::nullopt;
    SystemFacts facts;
    facts.system = QSysInfo::prettyProductName();
    facts.kernel = QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion();
    facts.architecture = QSysInfo::currentCpuArchitecture();
    facts.processors = static_cast<int>(GetActiveProcessorCount(ALL_PROCESSOR_GROUPS));
    facts.memory = static_cast<qint64>(memory.ullTotalPhys);
    return facts;
}

std::unique_ptr<PowerControl> MakePowerControl() {
    return std::make_unique<WindowsPowerControl>();
}

std::unique_ptr<SystemClock> MakeSystemClock(SetTime setTime) {
    return std::make_unique<WindowsSystemClock>(setTime);
}

std::unique_ptr<DialUp> MakeDialUp() {
    return std::make_unique<WindowsDialUp>();
}
