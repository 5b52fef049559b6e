// Makes and wires the program's objects, and destroys them in reverse order. Window, headless host, kalvenor-run and
// tests build the same Program; only what shows and what asks differs.
#pragma once

#include "ActivityFile.h"
#include "ActivityList.h"
#include "EngineLock.h"
#include "EngineServices.h"
#include "MonitoringController.h"
#include "PlatformServices.h"
#include "RunHistory.h"
#include "RunNotices.h"
#include "RunPlan.h"
#include "RunResults.h"
#include "RunState.h"
#include "RunUndo.h"
#include "ServiceMode.h"
#include "StringTable.h"
#include "TimerEx.h"
#include "clsWatcher.h"
#include "clsXML.h"
#include <chrono>
#include <functional>
#include <memory>

class KeyState;
class NextRuns;
class Prompter;
struct MailServices;

class Program final {
  public:
    /// What is passed in must outlive the program.
    Program(PlatformServices& services, Prompter& prompter, const KeyState& keys, const StringTable& texts);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] PlatformServices& Services() { return m_services; }
    [[nodiscard]] Prompter& Prompts() { return m_prompter; }
    [[nodiscard]] const StringTable& Texts() const { return m_texts; }
    [[nodiscard]] clsXML& Document() { return m_document; }
    [[nodiscard]] clsWatcher& Options() { return m_options; }
    [[nodiscard]] ActivityFile& File() { return m_file; }
    [[nodiscard]] ActivityList& List() { return m_list; }
    [[nodiscard]] MonitoringTimers& Timers() { return m_timers; }
    [[nodiscard]] MonitoringController& Monitoring();
    /// When the activities run next.
    [[nodiscard]] const NextRuns& Next() const;
    [[nodiscard]] ServiceMode& Service() { return m_service; }
    [[nodiscard]] RunState& State() { return m_runState; }
    [[nodiscard]] RunResults& Results() { return m_results; }
    [[nodiscard]] const RunHistory& History() const { return m_history; }
    [[nodiscard]] EngineLock& Lock() { return m_lock; }
    /// What a mail of its own needs.
    [[nodiscard]] MailServices Mail();

    /// "Kalvenor Pro 2.1".
    [[nodiscard]] static QString Title();
    /// Title, two blanks and the current file in brackets.
    [[nodiscard]] QString Caption() const;

    /// Whether the user has accepted the notice of possible data loss.
    [[nodiscard]] bool IsNoticeAccepted() const;
    std::error_code AcceptNotice();

    /// Keeps other processes from running the current file's activities while the token lives. Null when that is
    /// refused, after a box that says so.
    [[nodiscard]] EngineLock::Token LockForRunNow();

    /// Runs one activity now, outside its schedule, and shows it in the activity's status. Interrupted when the file's
    /// lock is refused, after a box that says so. Never throws.
    RunOutcome RunNow(const QString& name, NewDrive newDrive = NewDrive::Hold, ApprovedPlan* approved = nullptr);

    /// What RunNow would do.
    [[nodiscard]] RunPlan Preview(const QString& name);

    /// The runs whose deleted and replaced files this destination keeps, the newest first.
    [[nodiscard]] std::vector<KeptRun> KeptIn(const std::filesystem::path& destination) const;

    /// Brings back what the run has deleted or replaced there. Refused, with the reason as a note, while another
    /// process works on its activity file. Never throws.
    [[nodiscard]] UndoOutcome Undo(const std::filesystem::path& destination, const KeptRun& run);

    /// Calls `listener` with every entry of every activity's log, whether the entry could be written or not. `isLast`:
    /// no other follows at once.
    void OnLogLine(std::function<void(const QString& line, bool isLast)> listener);

    /// True for a path that leads to the activity file or the settings, where no activity may log.
    [[nodiscard]] bool IsOwnFile(const QString& path) const;

    /// Until this is called the schedulers do nothing, so that no activity runs before the notice is answered.
    void AllowTicks();

    /// Ends a run after its current file, and a mail being sent after `mailGrace`. The host calls it before it closes,
    /// then waits until nothing is running.
    void RequestEnd(std::chrono::milliseconds mailGrace = std::chrono::seconds(5));

  private:
    [[nodiscard]] QString lockRefused(LockRefusal refusal, const QString& path) const;

    struct Engine;
    PlatformServices& m_services;
    Prompter& m_prompter;
    const StringTable& m_texts;
    clsXML m_document;
    clsWatcher m_options;
    ActivityFile m_file;
    ActivityList m_list;
    MonitoringTimers m_timers;
    RunState m_runState;
    RunResults m_results;
    RunHistory m_history;
    RunNotices m_notices;
    EngineLock m_lock;
    ServiceMode m_service;
    std::unique_ptr<Engine> m_engine;
};
