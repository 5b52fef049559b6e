// What the engine writes: the status of an activity, its own log, and the application log. An entry that cannot be
// written is lost; nothing else is affected. Never writes to the program's own files.
#pragma once

#include "EngineServices.h"
#include <QString>
#include <chrono>
#include <functional>

class OwnPlaces;

class ActivityLogs final {
  public:
    ActivityLogs(const EngineServices& services, const OwnPlaces& ownPlaces)
        : m_services(services), m_ownPlaces(ownPlaces) {}

    /// Shows the text in the activity's row and, when it has a log of its own, writes it there.
    void SetActivityStatus(const QString& name, const QString& text);

    /// Appends "-> [now] text" to the activity's own log, made when it is missing.
    void WriteActivityLog(const QString& name, const QString& text, bool blankLineFirst);

    /// The same with "Activity 'NAME' - " in front.
    void WriteActionLine(const QString& name, const QString& text);

    /// The same, for a text that need not be composed when nothing reads it.
    void WriteActionLine(const QString& name, const std::function<QString()>& compose);

    /// The same, to a log file that the record no longer names.
    void WriteActionLineTo(const QString& logFile, const QString& name, const QString& text);

    /// Appends to the application log when one is set and its file exists; it is never created here.
    void WriteAppLog(const QString& text);

    /// The listener gets every entry of every activity, with or without a log file.
    void SetListener(std::function<void(const QString& text)> listener) { m_listener = std::move(listener); }

  private:
    /// The last answer for one of the two logs. Asking the disk for every line would cost as much as the line itself.
    struct Verdict {
        QString path;
        std::chrono::steady_clock::time_point at;
        bool mayWrite = false;
    };
    void writeEntry(const QString& path, const QString& text, bool blankLineFirst);
    [[nodiscard]] bool mayWrite(const QString& path, Verdict& last) const;

    const EngineServices& m_services;
    const OwnPlaces& m_ownPlaces;
    Verdict m_activityLog;
    Verdict m_applicationLog;
    std::function<void(const QString&)> m_listener;
};
