#include "XdgFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace {

std::filesystem::path fromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    std::filesystem::path path(value == nullptr ? "" : value);
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path home() {
    if (auto path = fromEnvironment("HOME"); !path.empty())
        return path;
    const passwd* const user = getpwuid(getuid());
    return user == nullptr || user->pw_dir == nullptr ? "" : user->pw_dir;
}

std::filesystem::path baseFolder(const char* variable, const char* belowHome) {
    if (auto path = fromEnvironment(variable); !path.empty())
        return path;
    const auto user = home();
    return user.empty() ? user : user / belowHome;
}

} // namespace

std::filesystem::path XdgFolders::DataHome() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path XdgFolders::ConfigHome() {
    return baseFolder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path XdgFolders::StateHome() {
    return baseFolder("XDG_STATE_HOME", ".local/state");
}
