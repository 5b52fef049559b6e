// One run whose deleted and replaced files are kept in the trash of its destination. Plain values.
#pragma once

#include <QString>
#include <chrono>
#include <filesystem>

struct KeptRun {
    std::filesystem::path name; ///< of its folder in the trash
    QString activityFile;       ///< path
    QString activity;
    std::chrono::sys_seconds began{};
    int days = 0;        ///< for which its files are kept, at least 1
    bool isUndo = false; ///< it undid another run

    [[nodiscard]] bool IsExpired(std::chrono::sys_seconds now) const { return now - began >= std::chrono::days(days); }
};
