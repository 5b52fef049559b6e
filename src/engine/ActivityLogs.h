// What the engine writes: the status of an activity, its own log, and the application log. An entry that cannot be
// written is lost; nothing else is affected. Never writes to the program's own files.
#pragma once

#include "EngineServices.h"
#include <QStringList>
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

    /// The same, to this log file.
    void WriteActionLineTo(const QString& logFile, const QString& name, const QString& text);

    /// False when nothing reads an activity's lines, so that they need not be composed.
    [[nodiscard]] bool IsRead(const QString& logFile) const { return m_listener || !logFile.trimmed().isEmpty(); }

    /// The same, for a line that announces no act: it may be written a second later. Whatever is written next comes
    /// after it.
    void GatherActionLine(const QString& logFile, const QString& name, const QString& text);

    /// Writes what has been gathered. To be called before anything may take long.
    void Flush();

    /// Where the next entry of this log will stand, in bytes; 0 for a log that does not exist.
    [[nodiscard]] std::int64_t EndOf(const QString& logFile);

    /// Appends to the application log when one is set and its file exists; it is never created here.
    void WriteAppLog(const QString& text);

    /// The listener gets every entry of every activity, with or without a log file; `isLast`: none follows at once.
    using Listener = std::function<void(const QString& text, bool isLast)>;
    void SetListener(Listener listener) { m_listener = std::move(listener); }

  private:
    /// The last answer for one of the two logs. Asking the disk for every line would cost as much as the line itself.
    struct Verdict {
        QString path;
        std::chrono::steady_clock::time_point at;
        bool mayWrite = false;
    };
    [[nodiscard]] QString actionLine(const QString& name, const QString& text) const;
    void writeEntry(const QString& path, const QString& text, bool blankLineFirst);
    void append(const QString& path, const QByteArray& bytes);
    [[nodiscard]] bool mayWrite(const QString& path, Verdict& last) const;

    const EngineServices& m_services;
    const OwnPlaces& m_ownPlaces;
    Verdict m_activityLog;
    Verdict m_applicationLog;
    Listener m_listener;
    QString m_gatheredLog;
    QByteArray m_gatheredBytes;   ///< for m_gatheredLog
    QStringList m_gatheredLines;  ///< for the listener
    qsizetype m_gatheredSize = 0; ///< characters
    std::optional<std::chrono::steady_clock::time_point> m_gatheringSince;
};
