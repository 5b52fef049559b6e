#include "RunContext.h"
#include "ActivityFile.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "EventPump.h"
#include "SyncTexts.h"
#include "modNativePath.h"

namespace {
// Long enough to cost nothing, short enough for a window that never looks frozen.
constexpr std::chrono::milliseconds yieldInterval{50};
} // namespace

RunContext::RunContext(const Parts& parts, QString name, std::shared_ptr<Folder> source,
                       std::shared_ptr<Folder> destination)
    : m_parts(parts), m_name(std::move(name)), m_source(std::move(source)), m_destination(std::move(destination)),
      m_lastYield(parts.clock.MonotonicNow()), m_recordSeenAt(parts.runState.eventsRan - 1),
      m_transfer(parts.fileSystem.NewTransfer(*this)) {
    for (const auto& root : {m_source, m_destination})
        for (const FileId id : root->Ancestors())
            m_protected.insert(id);
}

bool RunContext::Over() {
    if (StopRequested())
        return true;
    if (m_recordSeenAt != m_parts.runState.eventsRan) {
        m_recordSeenAt = m_parts.runState.eventsRan;
        m_ended = !m_parts.file.Has(m_name);
    }
    return m_ended;
}

void RunContext::Yield() {
    m_parts.pump.Yield();
    ++m_parts.runState.eventsRan;
    m_lastYield = m_parts.clock.MonotonicNow();
}

void RunContext::Failed(const std::filesystem::path& source, std::error_code error) {
    ++m_failures;
    m_parts.logs.WriteActionLine(m_name, m_parts.texts.Failure(modNativePath::ToText(source), error));
}

void RunContext::Progress(std::uint64_t /*bytes*/) {
    if (m_parts.clock.MonotonicNow() - m_lastYield >= yieldInterval)
        Yield();
}
