// Puts a tree of SyncModel on a real disk and reads it back. A source of its own, so that it can lie on another device.
#pragma once

#include "SyncModel.h"

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

class ModelDisk final {
  public:
    using Path = std::filesystem::path;

    /// `near` and `far` are empty folders. The source is made in `far` when the fields say so, all else in `near`.
    ModelDisk(Path near, Path far) : m_near(std::move(near)), m_far(std::move(far)) {}
    ~ModelDisk() { clear(); }
    ModelDisk(const ModelDisk&) = delete;
    ModelDisk& operator=(const ModelDisk&) = delete;

    bool HasTwoDevices() const { return device(m_near) != device(m_far); }

    void Make(const ModelEntry& world, bool isSourceFar) {
        clear();
        m_source = isSourceFar ? m_far : m_near;
        for (const auto& [name, entry] : world.inside)
            make(Real(name), entry);
    }

    ModelEntry Read() const {
        ModelEntry world;
        for (const char* top : {"src", "dst", "out"})
            world.inside[top] = read(Real(top));
        return world;
    }

    /// A path of the world as the system knows it.
    Path Real(const std::string& path) const {
        return (path.compare(0, 3, "src") == 0 ? m_source : m_near).native() + '/' + path;
    }

  private:
    using Kind = ModelEntry::Kind;

    static dev_t device(const Path& folder) {
        struct stat status {};
        return ::stat(folder.c_str(), &status) == 0 ? status.st_dev : 0;
    }

    static void need(bool isDone, const Path& path) {
        if (!isDone)
            qFatal("%s: %s", path.c_str(), std::strerror(errno));
    }

    void clear() const {
        for (const Path& top : {m_near, m_far})
            for (const auto& entry : std::filesystem::directory_iterator(top)) {
                allow(entry.path());
                std::filesystem::remove_all(entry.path());
            }
    }

    static void allow(const Path& folder) {
        if (::chmod(folder.c_str(), 0700) != 0)
            return;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (!entry.is_symlink() && entry.is_directory())
                allow(entry.path());
    }

    void make(const Path& path, const ModelEntry& entry) const {
        if (entry.kind == Kind::Link)
            return need(::symlink(Real(entry.bytes).c_str(), path.c_str()) == 0, path);
        if (entry.kind == Kind::Pipe)
            return need(::mkfifo(path.c_str(), 0600) == 0, path);
        if (entry.kind == Kind::Folder) {
            need(::mkdir(path.c_str(), 0700) == 0, path);
            for (const auto& [name, inner] : entry.inside)
                make(path / name, inner);
            return need(::chmod(path.c_str(), entry.mode) == 0, path);
        }
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        const auto size = static_cast<ssize_t>(entry.bytes.size());
        const std::int64_t second = entry.time / billion - (entry.time % billion < 0 ? 1 : 0);
        const struct timespec time { second, entry.time - second* billion };
        const struct timespec times[] { time, time };
        need(file >= 0 && ::write(file, entry.bytes.data(), entry.bytes.size()) == size &&
                 ::futimens(file, times) == 0 && ::fchmod(file, entry.mode) == 0 && ::close(file) == 0,
             path);
    }

    ModelEntry read(const Path& path) const {
        struct stat status {};
        need(::lstat(path.c_str(), &status) == 0, path);
        ModelEntry entry;
        entry.mode = status.st_mode & 07777U;
        if (S_ISLNK(status.st_mode)) {
            const std::string real = std::filesystem::read_symlink(path).native();
            const bool isInSource = real.compare(0, m_source.native().size() + 4, m_source.native() + "/src") == 0;
            entry = {.kind = Kind::Link, .bytes = real.substr((isInSource ? m_source : m_near).native().size() + 1)};
        } else if (S_ISFIFO(status.st_mode)) {
            entry = {.kind = Kind::Pipe};
        } else if (S_ISDIR(status.st_mode)) {
            ::chmod(path.c_str(), entry.mode | 0500U);
            for (const auto& inner : std::filesystem::directory_iterator(path))
                entry.inside[inner.path().filename()] = read(inner.path());
        } else {
            entry.kind = Kind::File;
            entry.time = status.st_mtim.tv_sec * billion + status.st_mtim.tv_nsec;
            ::chmod(path.c_str(), entry.mode | 0400U);
            std::ifstream file(path, std::ios::binary);
            entry.bytes.assign(std::istreambuf_iterator<char>(file), {});
        }
        return entry;
    }

    static constexpr std::int64_t billion = 1'000'000'000;

    Path m_near;
    Path m_far;
    Path m_source;
};
