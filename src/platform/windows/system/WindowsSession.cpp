#include "EventLog.h"
#include "LocalTime.h"
#include "Session.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <windows.h>

#include <shellapi.h>

namespace {

/// The name of this process's window station when people can see it, as those of services are not; else empty.
QString visibleStation() {
    const HWINSTA station = GetProcessWindowStation(); // not ours to close
    USEROBJECTFLAGS flags{};
    DWORD length = 0;
    if (GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, &length) == FALSE ||
        (flags.dwFlags & WSF_VISIBLE) == 0)
        return {};
    std::array<wchar_t, MAX_PATH> name{};
    if (GetUserObjectInformationW(station, UOI_NAME, name.data(), sizeof name - sizeof(wchar_t), &length) == FALSE)
        return {};
    return QString::fromWCharArray(name.data());
}

} // namespace

DisplayFacts ReadDisplayFacts() {
    return {visibleStation(), {}, qEnvironmentVariable("QT_QPA_PLATFORM")};
}

bool EndsSessionWithCommit() {
    return true;
}

void WriteSystemLog(int priority, const QString& line) {
    constexpr int error = 3;
    constexpr int warning = 4;
    constexpr DWORD event = 1;
    if (GetFileType(GetStdHandle(STD_ERROR_HANDLE)) != FILE_TYPE_UNKNOWN)
        std::cerr << line.toStdString() << '\n' << std::flush;
    else if (priority <= warning)
        EventLog::Write(priority <= error ? EVENTLOG_ERROR_TYPE : EVENTLOG_WARNING_TYPE, event, line);
    else
        EventLog::Write(EVENTLOG_INFORMATION_TYPE, event, line);
}

/// The console is the user's, and outlives this process.
void UseUtf8Console() {
    static const UINT former = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { SetConsoleOutputCP(former); });
}

/// From the system: main's own words come through the ANSI code page, which lacks most letters.
QStringList CommandLineWords(int /*argc*/, char** /*argv*/) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> given(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              &LocalFree);
    QStringList words;
    for (int i = 1; given && i < count; ++i)
        words.append(QString::fromWCharArray(given.get()[i]));
    return words;
}

void LocalTime::ReadZone() {
    _tzset();
}

/// The library knows the years 1970 to 3000 only; the calendar repeats itself every 400 years.
std::tm LocalTime::Parts(std::time_t seconds) {
    constexpr int years = 400;
    constexpr std::time_t cycle = 146097LL * 24 * 3600;
    int cycles = 0;
    for (; seconds < 24 * 3600; seconds += cycle) // a day less where the zone is west of Greenwich
        --cycles;
    for (; seconds > 2 * cycle; seconds -= cycle)
        ++cycles;
    std::tm parts{};
    localtime_s(&parts, &seconds);
    parts.tm_year += cycles * years;
    return parts;
}
