// A scratch folder with a source and a destination, perhaps on another device, and an observer that remembers.
#pragma once

#include "SystemWorld.h"

#include <QTest>
#include <fstream>
#include <map>
#include <random>

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

class FileWorld : public SystemWorld {
  public:
    /// `otherDevice`: the destination lies on another disk.
    explicit FileWorld(bool otherDevice = false)
        : m_root(makeFolder(fs::temp_directory_path())), m_other(otherDevice ? makeFolder(OtherDevice()) : fs::path()),
          source(m_root / "source"), destination((otherDevice ? m_other : m_root) / "destination") {
        fs::create_directories(source);
        fs::create_directories(destination);
        Reopen();
    }
    FileWorld(const FileWorld&) = delete;
    FileWorld& operator=(const FileWorld&) = delete;
    ~FileWorld() {
        from.reset(); // an open folder may stay until it is closed
        to.reset();
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
    /// Rows for copies and moves on one device and across two, of each of the cases that the system knows.
    static void AddWays(const std::vector<const char*>& cases = {""}) {
        QTest::addColumn<Way>("way");
        for (const char* kind : cases)
            for (const bool other : {false, true})
                if (CanMake(kind) && (!other || !OtherDevice().empty()))
                    for (const bool move : {false, true})
                        QTest::addRow("%s %s %s device", kind, move ? "move" : "copy", other ? "other" : "same")
                            << Way{kind, other, move};
    }

    /// The file of this name as a walk would hand it over.
    [[nodiscard]] TransferFile File(const fs::path& name) const {
        std::error_code error;
        return {from, to, name, from->Stat(name, error).value_or(FileFacts{}), to->Stat(name, error)};
    }

    [[nodiscard]] static FileId IdOf(const Folder& folder, const fs::path& name) {
        std::error_code error;
        return folder.Stat(name, error).value_or(FileFacts{}).id;
    }

    /// One transfer of its own, committed by its destructor.
    void Transfer(bool move, const std::vector<TransferFile>& files) {
        const auto transfer = system.NewTransfer(observer, nullptr);
        for (const TransferFile& file : files)
            std::ignore = move ? transfer->Move(file) : transfer->Copy(file);
    }
    void Transfer(bool move, const fs::path& name) { Transfer(move, {File(name)}); }

    /// Transfers the folder "tree".
    void TransferTree(bool move, const std::set<FileId>& excluded = {}) {
        const auto transfer = system.NewTransfer(observer, nullptr);
        const FolderEntry tree{"tree", File("tree").facts};
        move ? transfer->MoveTree(from, to, tree, excluded) : transfer->CopyTree(from, to, tree, excluded);
    }

    /// Something that may stand in the way; a link leads to the file "target" beside it.
    static void Make(const fs::path& path, const QByteArray& kind) {
        if (kind == "file")
            Write(path, "old");
        else if (kind == "folder")
            fs::create_directory(path);
        else if (kind == "fifo")
            MakeFifo(path);
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

    /// A small tree, with a folder that only an administrator may take anything out of.
    static void FillTree(const fs::path& tree) {
        Write(tree / "a", "in the tree");
        Write(tree / "sub/.hidden", "hidden");
        Write(tree / "sub/deeper" / OddName(), "deep");
        fs::create_directories(tree / "empty");
        if (IsAdministrator()) // nobody else may take anything out of it again
            fs::permissions(tree / "sub/deeper", fs::perms::owner_read | fs::perms::owner_exec);
        for (const char* folder : {"empty", "sub/deeper", "sub", "."})
            SetTime(tree / folder, 1'100'000'000);
    }

    [[nodiscard]] static std::string Read(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary | std::ios::ate);
        std::string text(stream ? static_cast<std::size_t>(stream.tellg()) : 0, '\0');
        stream.seekg(0).read(text.data(), static_cast<std::streamsize>(text.size()));
        return text;
    }

    using Entries = std::map<std::string, std::string>;
    /// Every entry below the folder, hidden ones too, with its content ("/" for a folder).
    [[nodiscard]] static Entries Tree(const fs::path& folder) {
        Entries entries;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            entries[entry.path().lexically_relative(folder).generic_string()] = entry.is_directory() ? "/"
                                                                                : entry.is_regular_file()
                                                                                    ? Read(entry.path())
                                                                                    : "?";
        return entries;
    }

  private:
    [[nodiscard]] static fs::path makeFolder(const fs::path& parent) {
        fs::path folder = parent / ("transfer-" + std::to_string(std::random_device()()));
        fs::create_directories(folder);
        return folder;
    }

    fs::path m_root;
    fs::path m_other;
    std::unique_ptr<FileSystem> m_system = MakeSystem();

  public:
    FileSystem& system = *m_system;
    RecordingObserver observer;
    fs::path source;
    fs::path destination;
    std::shared_ptr<Folder> from;
    std::shared_ptr<Folder> to;
};
