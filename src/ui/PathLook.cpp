#include "PathLook.h"

#include <system_error>
#include <thread>
#include <utility>

namespace PathLook {

namespace {

std::future<bool> look(const std::filesystem::path& path, std::filesystem::file_type wanted) {
    std::packaged_task<bool()> task([path, wanted] {
        std::error_code unreadable;
        return std::filesystem::status(path, unreadable).type() == wanted;
    });
    std::future<bool> answer = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        std::promise<bool> unknown;
        unknown.set_value(true);
        return unknown.get_future();
    }
    return answer;
}

} // namespace

std::future<bool> IsFolder(const std::filesystem::path& path) {
    return look(path, std::filesystem::file_type::directory);
}

std::future<bool> IsFile(const std::filesystem::path& path) {
    return look(path, std::filesystem::file_type::regular);
}

} // namespace PathLook
