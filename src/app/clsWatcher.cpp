#include "clsWatcher.h"

#include "SettingsStore.h"
#include <array>
#include <optional>
#include <span>
#include <tuple>

namespace {

using Switch = std::uint8_t clsWatcher::*;

/// One stored option: its key, and the switch that holds it (none: the log path) with its default.
struct Option {
    const char* key;
    Switch value;
    std::uint8_t byDefault;
};

/// Reading and writing follow the same list in the same order.
constexpr std::array<Option, 8> options{{
    {"ActivateWhileWindowsStarting", &clsWatcher::ActivateWhileWindowsStarting, 0},
    {"ToTray", &clsWatcher::ToTray, 0},
    {"LoggingPath", nullptr, 0},
    {"Shutdown", &clsWatcher::Shutdown, 0},
    {"StartUp", &clsWatcher::StartUp, 0},
    {"LogfileRefresh", &clsWatcher::LogfileRefresh, 0},
    {"ExitAlert", &clsWatcher::ExitAlert, 1},
    {"StopIfFolderNotExist", &clsWatcher::StopIfFolderNotExist, 1},
}};

/// Written only when the user has changed one of them: a store that never had them stays as it is.
constexpr std::array<Option, 3> summaryOptions{{
    {"InLog", &clsWatcher::SummaryLine, 0},
    {"InMail", &clsWatcher::MailVariables, 0},
    {"Notify", &clsWatcher::Notify, 0},
}};

constexpr std::array<Option, 2> scheduleOptions{{
    {"EvenIntervals", &clsWatcher::CountByTheClock, 0},
    {"RunMissed", &clsWatcher::RunLate, 0},
}};

struct Section {
    const QString& name;
    std::span<const Option> options;
};
const std::array<Section, 2> sections{
    {{SettingsStore::SummarySection, summaryOptions}, {SettingsStore::ScheduleSection, scheduleOptions}}};

SettingsStore::Entries entriesOf(const Section& section, const QList<std::uint8_t>& values) {
    SettingsStore::Entries entries;
    for (qsizetype i = 0; i < values.size(); ++i)
        entries.emplace_back(QLatin1String(section.options[static_cast<std::size_t>(i)].key),
                             QString::number(values[i]));
    return entries;
}

QList<QList<std::uint8_t>> valuesOf(const clsWatcher& watcher) {
    QList<QList<std::uint8_t>> all;
    for (const Section& section : sections) {
        all.append(QList<std::uint8_t>());
        for (const Option& option : section.options)
            all.last().append(watcher.*option.value);
    }
    return all;
}

/// A broken value must not switch a safety off, so it counts as absent.
std::uint8_t byteOf(const std::optional<QString>& text, std::uint8_t byDefault) {
    bool isNumber = false;
    const unsigned number = text ? text->trimmed().toUInt(&isNumber) : 0;
    return isNumber && number <= 255 ? static_cast<std::uint8_t>(number) : byDefault;
}

} // namespace

clsWatcher::clsWatcher(SettingsStore& settings) : m_settings(settings), m_stored(valuesOf(*this)) {}

void clsWatcher::ReadRegistry() {
    for (const Option& option : options) {
        const auto text =
            m_settings.Read(SettingsStore::OwnApplication, SettingsStore::OptionsSection, QLatin1String(option.key));
        if (option.value == nullptr)
            LoggingPath = text.value_or(QString());
        else
            this->*option.value = byteOf(text, option.byDefault);
    }
    for (const Section& section : sections)
        for (const Option& option : section.options)
            this->*option.value =
                byteOf(m_settings.Read(SettingsStore::OwnApplication, section.name, QLatin1String(option.key)),
                       option.byDefault);
    m_stored = valuesOf(*this);
}

std::error_code clsWatcher::WriteRegistry() {
    SettingsStore::Entries entries;
    for (const Option& option : options)
        entries.emplace_back(QLatin1String(option.key),
                             option.value == nullptr ? LoggingPath : QString::number(this->*option.value));
    const QList<QList<std::uint8_t>> values = valuesOf(*this);
    const auto store = [this](const QString& section, const SettingsStore::Entries& all) {
        return m_settings.WriteAll(SettingsStore::OwnApplication, section, all);
    };
    std::error_code error;
    qsizetype written = 0;
    for (; written < values.size() && !error; ++written)
        if (values[written] != m_stored[written]) {
            const Section& section = sections[static_cast<std::size_t>(written)];
            error = store(section.name, entriesOf(section, values[written]));
        }
    if (!error)
        error = store(SettingsStore::OptionsSection, entries);
    if (!error)
        m_stored = values;
    for (qsizetype i = 0; error && i < written; ++i)
        if (values[i] != m_stored[i]) {
            const Section& section = sections[static_cast<std::size_t>(i)];
            std::ignore = store(section.name, entriesOf(section, m_stored[i]));
        }
    return error;
}
