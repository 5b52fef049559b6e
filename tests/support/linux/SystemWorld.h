// What tests ask of Linux.
#pragma once

#include "FileSystem.h"
#include "PlatformServices.h"

#include <QDir>
#include <QTest>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <malloc.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

class SystemWorld {
  public:
    [[nodiscard]] static std::unique_ptr<FileSystem> MakeSystem() { return MakePlatformServices().fileSystem; }

    /// A folder on another disk than the temporary files; empty where there is none.
    [[nodiscard]] static fs::path OtherDevice() { return "/dev/shm"; }

    /// False for what only other systems have.
    [[nodiscard]] static bool CanMake(const QByteArray& /*kind*/) { return true; }

    /// May read and write everywhere.
    [[nodiscard]] static bool IsAdministrator() { return ::geteuid() == 0; }

    /// A name that is no text.
    [[nodiscard]] static fs::path OddName() { return "\xff name"; }

    /// The number of a process that has ended.
    [[nodiscard]] static pid_t DeadProcess() {
        const pid_t dead = ::fork();
        if (dead == 0)
            ::_exit(0);
        ::waitpid(dead, nullptr, 0);
        return dead;
    }

    /// Of another system, which may differ from it here and there.
    [[nodiscard]] static bool IsEmulated() { return false; }

    /// The path as programs of the host know it; host.py starts them.
    [[nodiscard]] static QString HostPath(const fs::path& path) { return QString::fromStdString(path); }

    /// What this process holds.
    struct Holdings {
        std::size_t bytes = ::mallinfo2().uordblks;
        qsizetype handles = QDir(u"/proc/self/fd"_qs).entryList(QDir::System | QDir::Files).size();
    };

    /// A symbolic link. False where the system makes none.
    [[nodiscard]] static bool Link(const fs::path& target, const fs::path& link) {
        fs::create_symlink(target, link);
        return true;
    }

    /// However deep it is.
    static void RemoveTree(const fs::path& folder) {
        QCOMPARE(std::system(("rm -rf '" + folder.native() + '\'').c_str()), 0);
    }

    /// Nothing can be moved from this file to the current folder while the result lives: that is gone.
    [[nodiscard]] static std::shared_ptr<void> PreventMove(const fs::path& /*file*/) {
        return std::make_shared<bool>(fs::remove(fs::current_path()));
    }

    static void MakeFifo(const fs::path& path) { QCOMPARE(::mkfifo(path.c_str(), 0600), 0); }

    static void SetTime(const fs::path& path, std::int64_t seconds) {
        const std::array<struct timespec, 2> times = {{{seconds, 0}, {seconds, 123'456'789}}};
        ::utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
    }
    static void SetNanoseconds(const fs::path& path, std::int64_t nanoseconds) {
        fs::last_write_time(path, FileClock::from_sys(std::chrono::sys_time(std::chrono::nanoseconds(nanoseconds))));
    }
    [[nodiscard]] static std::int64_t Nanoseconds(const fs::path& path) {
        return FileClock::to_sys(fs::last_write_time(path)).time_since_epoch() / std::chrono::nanoseconds(1);
    }

    /// The result of the function in a process of its own, as the user nobody if asked; -1: it crashed.
    static int InChild(const std::function<int()>& function, bool asNobody = false) {
        constexpr uid_t nobody = 65534;
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(!asNobody || (::setgid(nobody) == 0 && ::setuid(nobody) == 0) ? function() : -1);
        int status = -1;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    static constexpr const char* OwnList = "system.posix_acl_access";
    static constexpr const char* DefaultList = "system.posix_acl_default";

    /// An access list: the owner may read and write, user 1234 everything, others read. For the kernel.
    [[nodiscard]] static std::string AccessList(char group) {
        using namespace std::string_literals;
        const std::string nobody(4, '\xff');
        return "\2\0\0\0"s + "\1\0\6\0"s + nobody + "\2\0\7\0\xd2\4\0\0"s + "\4\0"s + group + "\0"s + nobody +
               "\x10\0\7\0"s + nobody + "\x20\0\4\0"s + nobody;
    }
    /// False where the file system knows no such attributes.
    static bool SetAttribute(const fs::path& path, const char* name, const std::string& value) {
        return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
    }
    /// "" when there is none.
    [[nodiscard]] static std::string Attribute(const fs::path& path, const char* name) {
        std::array<char, 256> value{};
        const ssize_t length = ::getxattr(path.c_str(), name, value.data(), value.size());
        return {value.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
    }

    [[nodiscard]] static struct stat StatusOf(const fs::path& path) {
        struct stat status {};
        ::lstat(path.c_str(), &status);
        return status;
    }

  private:
    using FileClock = std::chrono::file_clock;
};
