#include "WindowsServices.h"
#include "modForeignText.h"

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
    const std::error_code refusal(static_cast<int>(GetLastError()), std::system_category());
    outcome(modForeignText::OfError(refusal));
}

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

std::unique_ptr<SystemClock> MakeSystemClock(SetTime setTime) {
    return std::make_unique<WindowsSystemClock>(setTime);
}

std::unique_ptr<DialUp> MakeDialUp() {
    return std::make_unique<WindowsDialUp>();
}
