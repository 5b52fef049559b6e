#include "WindowsDialUp.h"

#include <array>
#include <cstring>
#include <windows.h>

#include <ras.h>

bool WindowsDialUp::IsActive() const {
    // Room for one connection, in the record's first layout, which every version still takes: with several connections
    // the call fails.
    constexpr DWORD recordSize = 412;
    alignas(RASCONNA) std::array<std::byte, recordSize> record{};
    std::memcpy(record.data(), &recordSize, sizeof recordSize);
    DWORD size = recordSize;
    DWORD count = 0;
    return RasEnumConnectionsA(reinterpret_cast<RASCONNA*>(record.data()), &size, &count) == ERROR_SUCCESS && count > 0;
}
