#include "LastResort.h"

#include <cstdlib>
#include <mutex>
#include <windows.h>

namespace {

constexpr DWORD milliseconds = 30000;

void CALLBACK endProcess(void* /*context*/, BOOLEAN /*fired*/) {
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
}

} // namespace

void LastResort::EndSoon() {
    static std::once_flag first;
    std::call_once(first, [] {
        HANDLE timer = nullptr; // goes on until the process ends
        CreateTimerQueueTimer(&timer, nullptr, &endProcess, nullptr, milliseconds, 0, WT_EXECUTEONLYONCE);
    });
}
