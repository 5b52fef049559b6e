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
      m_lastYield(parts.clock.MonotonicNow()), m_recordReadAt(parts.runState.eventsRan - 1),
      m_interrupted(std::exchange(parts.runState.progress, {m_name})), m_transfer(parts.fileSystem.NewTransfer(*this)) {
    for (const auto& root : {m_source, m_destination})
        for (const FileId id : root->Ancestors())
            m_protected.insert(id);
}

/// Only events can change the record, so between them it need not be read for every file.
void RunContext::readRecord() {
    if (m_recordReadAt == m_parts.runState.eventsRan)
        return;
    m_recordReadAt = m_parts.runState.eventsRan;
    m_ended = m_ended || !m_parts.file.Has(m_name);
    const auto read = [this](const char* field) { return m_parts.file.Read(m_name, field); };
    m_rules = SyncRules::RulesOf(read("action"), read("overwrite"), read("onlynew"));
    m_filter = FileTypeFilter(read("extensions"));
}

RunContext::~RunContext() {
    m_transfer.reset();
    m_parts.runState.progress = m_interrupted;
}

bool RunContext::Over() {
    readRecord();
    return StopRequested();
}

const FileRules& RunContext::Rules() {
    readRecord();
    return m_rules;
}

const FileTypeFilter& RunContext::Filter() {
    readRecord();
    return m_filter;
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

void RunContext::Progress(std::uint64_t bytes) {
    m_parts.runState.progress.bytes += bytes;
    if (m_parts.clock.MonotonicNow() - m_lastYield >= yieldInterval)
        Yield();
}
