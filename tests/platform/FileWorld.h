// A scratch folder with a source and a destination, perhaps on another device, and an observer that remembers. Removes
// everything with its end.
#pragma once

#include "LinuxFileSystem.h"

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace fs = std::filesystem;

class RecordingObserver final : public TransferObserver {
  public:
    void Failed(const fs::path& source, std::error_code error) override { failures[source.filename()] = error; }
    void Transferred() override { ++transferred; }
    void Progress(std::uint64_t bytes) override {
        total += bytes;
        if (onProgress)
            onProgress();
    }
    bool StopRequested() const override { return filesUntilStop >= 0 && filesUntilStop-- == 0; }

    std::map<fs::path, std::error_code> failures; ///< by file name
    int transferred = 0;
    std::uint64_t total = 0;
    std::function<void()> onProgress;
    mutable int filesUntilStop = -1;
};

class FileWorld final {
  public:
    /// `otherDevice`: the destination lies in shared memory.
    explicit FileWorld(bool otherDevice = false)
        : m_root(makeFolder(fs::temp_directory_path())), m_other(otherDevice ? makeFolder("/dev/shm") : fs::path()),
          source(m_root / "source"), destination((otherDevice ? m_other : m_root) / "destination") {
        fs::create_directories(source);
        fs::create_directories(destination);
        Reopen();
    }
    FileWorld(const FileWorld&) = delete;
    FileWorld& operator=(const FileWorld&) = delete;
    ~FileWorld() {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
        if (!m_other.empty())
            fs::remove_all(m_other, ignored);
    }

    void Reopen() {
        std::error_code error;
        from = system.OpenFolder(source, error);
        to = system.OpenFolder(destination, error);
    }

    [[nodiscard]] bool IsApart() const { return from->Id().device != to->Id().device; }

    /// The file of this name as a walk would hand it over.
    [[nodiscard]] TransferFile File(const fs::path& name) const {
        std::error_code error;
        return {from, to, name, from->Stat(name, error).value_or(FileFacts{})};
    }

    static void Write(const fs::path& file, const std::string& text, std::int64_t seconds = 1'000'000'000) {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
        SetTime(file, seconds);
    }

    static void SetTime(const fs::path& path, std::int64_t seconds) {
        const std::array<struct timespec, 2> times = {{{seconds, 0}, {seconds, 123'456'789}}};
        ::utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
    }

    [[nodiscard]] static std::string Read(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary | std::ios::ate);
        std::string text(stream ? static_cast<std::size_t>(stream.tellg()) : 0, '\0');
        stream.seekg(0).read(text.data(), static_cast<std::streamsize>(text.size()));
        return text;
    }

    [[nodiscard]] static struct stat StatusOf(const fs::path& path) {
        struct stat status {};
        ::lstat(path.c_str(), &status);
        return status;
    }

    [[nodiscard]] static bool SameTime(const fs::path& a, const fs::path& b) {
        const struct timespec one = StatusOf(a).st_mtim;
        const struct timespec other = StatusOf(b).st_mtim;
        return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
    }

    /// Every entry below the folder, hidden ones too, with its content ("/" for a folder).
    [[nodiscard]] static std::map<std::string, std::string> Tree(const fs::path& folder) {
        std::map<std::string, std::string> entries;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            entries[entry.path().lexically_relative(folder).native()] = entry.is_directory()      ? "/"
                                                                        : entry.is_regular_file() ? Read(entry.path())
                                                                                                  : "?";
        return entries;
    }

  private:
    [[nodiscard]] static fs::path makeFolder(const fs::path& parent) {
        std::string name = (parent / "transfer-XXXXXX").native();
        return ::mkdtemp(name.data());
    }

    fs::path m_root;
    fs::path m_other;

  public:
    LinuxFileSystem system;
    RecordingObserver observer;
    fs::path source;
    fs::path destination;
    std::shared_ptr<Folder> from;
    std::shared_ptr<Folder> to;
};
