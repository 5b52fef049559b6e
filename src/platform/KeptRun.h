// One run whose deleted and replaced files are kept in the trash of its destination. Plain values.
#pragma once

#include <QString>
#include <chrono>
#include <filesystem>

struct KeptRun {
    static constexpr int MostDays = 3650;

    std::filesystem::path name; ///< of its folder in the trash
    QString activityFile;       ///< path
    QString activity;
    std::chrono::sys_seconds began{};
    int days = 0;        ///< for which its files are kept, 1 to MostDays
    bool isUndo = false; ///< it undid another run

    [[nodiscard]] std::chrono::sys_seconds Until() const { return began + std::chrono::days(days); }
};
