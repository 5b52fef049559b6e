// A scratch folder with a source and a destination, perhaps on another device, and an observer that remembers.
#pragma once

#include "LinuxServices.h"

#include <QTest>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

class RecordingObserver final : public TransferObserver {
  public:
    void Failed(const fs::path& source, std::error_code error) override { failures[source.filename()] = error; }
    void Transferred() override {}
    void Progress(std::uint64_t /*bytes*/) override {
        if (onProgress)
            onProgress();
    }
    bool MustGiveUp() override { return givesUp; }
    bool StopRequested() override { return filesUntilStop >= 0 && filesUntilStop-- == 0; }

    std::map<fs::path, std::error_code> failures; ///< by file name
    std::function<void()> onProgress;
    int filesUntilStop = -1;
    bool givesUp = false;
};

class FileWorld {
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

    struct Way {
        QByteArray kind;
        bool otherDevice = false;
        bool move = false;
        [[nodiscard]] bool IsOneRename() const { return move && !otherDevice; }
    };
    /// Rows for copies and moves on one device and across two, of each of the cases.
    static void AddWays(const std::vector<const char*>& cases = {""}) {
        QTest::addColumn<Way>("way");
        for (const char* kind : cases)
            for (const bool other : {false, true})
                for (const bool move : {false, true})
                    QTest::addRow("%s %s %s device", kind, move ? "move" : "copy", other ? "other" : "same")
                        << Way{kind, other, move};
    }

    /// The file of this name as a walk would hand it over.
    [[nodiscard]] TransferFile File(const fs::path& name) const {
        std::error_code error;
        return {from, to, name, from->Stat(name, error).value_or(FileFacts{}), to->Stat(name, error)};
    }

    /// One transfer of its own, committed by its destructor.
    void Transfer(bool move, const std::vector<TransferFile>& files) {
        const auto transfer = system.NewTransfer(observer);
        for (const TransferFile& file : files)
            std::ignore = move ? transfer->Move(file) : transfer->Copy(file);
    }
    void Transfer(bool move, const fs::path& name) { Transfer(move, {File(name)}); }

    /// Transfers the folder "tree".
    void TransferTree(bool move, const std::set<FileId>& excluded = {}) {
        const auto transfer = system.NewTransfer(observer);
        const FolderEntry tree{"tree", File("tree").facts};
        move ? transfer->MoveTree(from, to, tree, excluded) : transfer->CopyTree(from, to, tree, excluded);
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

    /// Something that may stand in the way; a link leads to the file "target" beside it.
    static void Make(const fs::path& path, const QByteArray& kind) {
        if (kind == "file")
            Write(path, "old");
        else if (kind == "folder")
            fs::create_directory(path);
        else if (kind == "fifo")
            QCOMPARE(::mkfifo(path.c_str(), 0600), 0);
        else if (kind == "link")
            Write(path.parent_path() / "target", "old");
        if (kind == "link" || kind == "dangling link")
            fs::create_symlink("target", path);
        else if (kind == "folder link")
            fs::create_directory_symlink("..", path);
        else if (kind == "loop")
            fs::create_symlink(path, path);
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

    using Entries = std::map<std::string, std::string>;
    /// Every entry below the folder, hidden ones too, with its content ("/" for a folder).
    [[nodiscard]] static Entries Tree(const fs::path& folder) {
        Entries entries;
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
    std::unique_ptr<FileSystem> m_system = MakeLinuxFileSystem();

  public:
    FileSystem& system = *m_system;
    RecordingObserver observer;
    fs::path source;
    fs::path destination;
    std::shared_ptr<Folder> from;
    std::shared_ptr<Folder> to;
};
