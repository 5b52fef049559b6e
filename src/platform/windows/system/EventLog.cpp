#include "EventLog.h"

#include "RegistryKey.h"
#include <memory>
#include <string>
#include <tuple>

namespace {

constexpr auto* const source = L"KalvenorPro";
const std::wstring sourceKey = L"SYSTEM\\CurrentControlSet\\Services\\EventLog\\Application\\KalvenorPro";

struct EventSourceCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { DeregisterEventSource(handle); }
};
using EventSource = std::unique_ptr<HANDLE, EventSourceCloser>;

} // namespace

void EventLog::Write(WORD type, DWORD id, const QString& text) {
    const EventSource log(RegisterEventSourceW(nullptr, source));
    if (!log)
        return;
    const std::wstring line = text.toStdWString();
    const wchar_t* lines = line.c_str();
    constexpr WORD noCategory = 0;
    ReportEventW(log.get(), type, noCategory, id, nullptr, 1, 0, &lines, nullptr);
}

/// The system's own program for such entries has the text "%1" for each of these ids.
void EventLog::Register() {
    RegistryKey key = RegistryKey::Make(HKEY_LOCAL_MACHINE, sourceKey);
    std::ignore = key.SetExpandableText(L"EventMessageFile", L"%SystemRoot%\\System32\\EventCreate.exe");
}

void EventLog::Unregister() {
    std::ignore = RegistryKey::RemoveTree(HKEY_LOCAL_MACHINE, sourceKey);
}
