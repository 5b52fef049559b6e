#include "PathLook.h"

#include "modNativePath.h"
#include <chrono>
#include <functional>
#include <system_error>
#include <thread>
#include <utility>

namespace PathLook {

namespace {

constexpr int mostEntries = 10'000;
constexpr std::chrono::milliseconds longestWait{300};
constexpr std::chrono::seconds longestWaitForDrive{5};

template <typename Answer>
std::future<Answer> look(std::function<Answer()> work, Answer unknown) {
    std::packaged_task<Answer()> task(std::move(work));
    std::future<Answer> answer = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        std::promise<Answer> none;
        none.set_value(std::move(unknown));
        return none.get_future();
    }
    return answer;
}

std::future<bool> isOfType(const std::filesystem::path& path, std::filesystem::file_type wanted) {
    const auto work = [path, wanted] {
        std::error_code unreadable;
        return std::filesystem::status(path, unreadable).type() == wanted;
    };
    return look<bool>(work, true);
}

QStringList foldersIn(const std::filesystem::path& path) {
    QStringList names;
    std::error_code error;
    std::filesystem::directory_iterator entry(path, error);
    for (int seen = 0; !error && entry != std::filesystem::directory_iterator() && seen < mostEntries; ++seen) {
        const std::filesystem::path file = entry->path().filename();
        const QString name = modNativePath::ToText(file);
        std::error_code unreadable;
        if (!name.startsWith(u'.') && modNativePath::FromText(name) == file && entry->is_directory(unreadable))
            names.append(name);
        entry.increment(error);
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

} // namespace

std::future<bool> IsFolder(const std::filesystem::path& path) {
    return isOfType(path, std::filesystem::file_type::directory);
}

std::future<bool> IsFile(const std::filesystem::path& path) {
    return isOfType(path, std::filesystem::file_type::regular);
}

bool IsFolderAtHand(const std::filesystem::path& path) {
    std::future<bool> answer = IsFolder(path);
    return answer.wait_for(longestWait) == std::future_status::ready && answer.get();
}

std::future<std::optional<modDrive::Named>> DriveOf(const std::filesystem::path& folder) {
    return look<std::optional<modDrive::Named>>([folder] { return modDrive::Of(folder); }, std::nullopt);
}

std::optional<modDrive::Named> DriveAtHand(const std::filesystem::path& folder) {
    std::future<std::optional<modDrive::Named>> answer = DriveOf(folder);
    return answer.wait_for(longestWaitForDrive) == std::future_status::ready ? answer.get() : std::nullopt;
}

std::future<QStringList> FoldersIn(const std::filesystem::path& path) {
    return look<QStringList>([path] { return foldersIn(path); }, {});
}

} // namespace PathLook
