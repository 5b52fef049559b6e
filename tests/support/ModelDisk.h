// Puts a tree of SyncModel on a real disk and reads it back. A source of its own, so that it can lie on another device.
// Throws where the disk refuses.
#pragma once

#include "SyncModel.h"

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

class ModelDisk final {
  public:
    using Path = std::filesystem::path;

    /// `near` and `far` are empty folders. The source is made in `far` when the fields say so, all else in `near`.
    ModelDisk(Path near, Path far) : m_near(std::move(near)), m_far(std::move(far)) {}

    bool HasTwoDevices() const {
        struct stat one {};
        struct stat other {};
        return ::stat(m_near.c_str(), &one) == 0 && ::stat(m_far.c_str(), &other) == 0 && one.st_dev != other.st_dev;
    }

    void Make(const ModelEntry& world, bool isSourceFar) {
        m_source = isSourceFar ? m_far : m_near;
        for (const auto& [name, entry] : world.inside)
            make(Real(name), entry);
    }

    /// Takes the world off the disk.
    ModelEntry Read() const {
        ModelEntry world;
        for (const char* top : {"src", "dst", "out"}) {
            world.inside[top] = read(Real(top));
            fs::remove_all(Real(top));
        }
        return world;
    }

    /// A path of the world as the system knows it.
    Path Real(const std::string& path) const { return (path.starts_with("src") ? m_source : m_near) / path; }

  private:
    using Kind = ModelEntry::Kind;
    using Nanoseconds = std::chrono::nanoseconds;
    using FileClock = std::chrono::file_clock;

    void make(const Path& path, const ModelEntry& entry) const {
        if (entry.kind == Kind::Link)
            return fs::create_symlink(Real(entry.bytes), path);
        if (entry.kind == Kind::Pipe) {
            if (::mkfifo(path.c_str(), 0600) != 0)
                throw std::runtime_error("no pipe");
            return;
        }
        if (entry.kind == Kind::Folder) {
            fs::create_directory(path);
            for (const auto& [name, inner] : entry.inside)
                make(path / name, inner);
        } else {
            std::ofstream(path, std::ios::binary) << entry.bytes;
            const std::chrono::sys_time<Nanoseconds> time{Nanoseconds(entry.time)};
            fs::last_write_time(path, FileClock::from_sys(time));
        }
        fs::permissions(path, fs::perms(entry.mode));
    }

    ModelEntry read(const Path& path) const {
        const fs::file_status status = fs::symlink_status(path);
        ModelEntry entry{.mode = static_cast<unsigned>(status.permissions())};
        if (status.type() == fs::file_type::symlink) {
            const Path real = fs::read_symlink(path);
            const Path inSource = real.lexically_relative(m_source);
            return {.kind = Kind::Link,
                    .bytes = inSource.native().starts_with("src") ? inSource : real.lexically_relative(m_near)};
        }
        if (status.type() == fs::file_type::fifo)
            return {.kind = Kind::Pipe};
        if (status.type() == fs::file_type::directory) {
            fs::permissions(path, fs::perms::owner_all); // else neither read nor removed
            for (const auto& inner : fs::directory_iterator(path))
                entry.inside[inner.path().filename()] = read(inner.path());
            return entry;
        }
        entry.kind = Kind::File;
        entry.time = FileClock::to_sys(fs::last_write_time(path)).time_since_epoch() / Nanoseconds(1);
        fs::permissions(path, fs::perms::owner_all);
        std::ifstream file(path, std::ios::binary);
        entry.bytes.assign(std::istreambuf_iterator<char>(file), {});
        return entry;
    }

    const Path m_near;
    const Path m_far;
    Path m_source;
};
