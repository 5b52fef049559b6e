// Entries in the application log of Windows. One that cannot be written is lost.
#pragma once

#include <QString>
#include <windows.h>

namespace EventLog {

/// `type`: EVENTLOG_ERROR_TYPE and the others; `id` from 1 to 1000.
void Write(WORD type, DWORD id, const QString& text);

/// Names the file with the texts of the entries, without which the viewer complains of each; needs an administrator.
void Register();
void Unregister();

} // namespace EventLog
