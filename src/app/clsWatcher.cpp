#include "clsWatcher.h"

#include "SettingsStore.h"
#include <array>
#include <optional>

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

/// A broken value must not switch a safety off, so it counts as absent.
std::uint8_t byteOf(const std::optional<QString>& text, std::uint8_t byDefault) {
    bool isNumber = false;
    const unsigned number = text ? text->trimmed().toUInt(&isNumber) : 0;
    return isNumber && number <= 255 ? static_cast<std::uint8_t>(number) : byDefault;
}

} // namespace

clsWatcher::clsWatcher(SettingsStore& settings) : m_settings(settings) {}

void clsWatcher::ReadRegistry() {
    for (const Option& option : options) {
        const auto text =
            m_settings.Read(SettingsStore::OwnApplication, SettingsStore::OptionsSection, QLatin1String(option.key));
        if (option.value == nullptr)
            LoggingPath = text.value_or(QString());
        else
            this->*option.value = byteOf(text, option.byDefault);
    }
}

std::error_code clsWatcher::WriteRegistry() {
    SettingsStore::Entries entries;
    for (const Option& option : options)
        entries.emplace_back(QLatin1String(option.key),
                             option.value == nullptr ? LoggingPath : QString::number(this->*option.value));
    return m_settings.WriteAll(SettingsStore::OwnApplication, SettingsStore::OptionsSection, entries);
}
