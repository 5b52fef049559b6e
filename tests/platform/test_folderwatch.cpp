// What a watched folder tells, and where watching ends. The folder and its watch are real.
#include "PlatformServices.h"
#include "ScratchFolder.h"
#include "SystemWorld.h"
#include "Table.h"
#include "TemporaryName.h"

#include <QTest>

namespace {

/// A watch of the folder "root" that has begun.
class Watched final : public ScratchFolder {
  public:
    explicit Watched(bool hasSubfolders = true, bool tellsRemovals = false) {
        for (const char* name : {"root/old/deep", "root/out/inner", "elsewhere/tree/twig"})
            fs::create_directories(At(name));
        Put("root/file");
        Put("elsewhere/tree/leaf");
        m_watch = services.folderWatches->Begin({.folder = At("root"),
                                                 .hasSubfolders = hasSubfolders,
                                                 .tellsRemovals = tellsRemovals,
                                                 .leftOut = {At("root/out")}});
        waitFor([this] { return m_anything; });
        QTest::qWait(50); // what the preparation has caused
        take();
        m_told.clear();
        m_anything = false;
    }
    [[nodiscard]] fs::path At(const std::string& name) const { return Native(QString::fromStdString(name)); }
    void Put(const std::string& name) const { Write(QString::fromStdString(name), "bytes"); }

    /// What has been told when everything up to now has been told, by its path below the folder.
    [[nodiscard]] QStringList Told() {
        Put("root/z-last");
        waitFor([this] { return m_told.contains(At("root/z-last")); });
        return told();
    }
    /// The same without anything that follows.
    [[nodiscard]] QStringList Told(const std::string& awaited) {
        waitFor([&] { return m_told.contains(At(awaited)); });
        return told();
    }
    [[nodiscard]] std::optional<WatchEnd> End() {
        waitFor([this] { return m_end.has_value(); });
        return m_end;
    }

  private:
    [[nodiscard]] QStringList told() const {
        QStringList names;
        for (const fs::path& path : m_told)
            if (const std::string name = path.lexically_relative(At("root")).generic_string(); name != "z-last")
                names.append(QString::fromStdString(name));
        return names;
    }
    void take() {
        FolderWatch::News news = m_watch->Take();
        m_told.merge(news.changed);
        m_anything = m_anything || news.isAnything;
        if (news.end)
            m_end = news.end;
    }
    void waitFor(const std::function<bool()>& isTold) {
        QVERIFY(QTest::qWaitFor([&] {
            take();
            return isTold();
        }));
    }

    PlatformServices services = MakePlatformServices();
    std::unique_ptr<FolderWatch> m_watch;
    std::set<fs::path> m_told;
    bool m_anything = false;
    std::optional<WatchEnd> m_end;
};

using Act = std::function<void(const Watched&)>;

} // namespace
Q_DECLARE_METATYPE(Act)

class TestFolderWatch final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void tellsOfChanges_data() {
        // told: by a watch with sub-folders; removed: what a watch that tells of removals adds
        const Table<Act, QStringList, QStringList> row;
        const auto put = [](const char* name) { return [name](const Watched& watched) { watched.Put(name); }; };
        const auto rename = [](const char* from, const char* to) {
            return [from, to](const Watched& watched) { fs::rename(watched.At(from), watched.At(to)); };
        };
        row("a new file", put("root/new"), {u"new"_qs}, {});
        row("a file that was there", put("root/file"), {u"file"_qs}, {});
        if (SystemWorld::CanMake("news from below"))
            row("a file below", put("root/old/deep/new"), {u"old/deep/new"_qs}, {});
        row("left out", put("root/out/new"), {}, {});
        row("below what is left out", put("root/out/inner/new"), {}, {});
        row("a file moved in", rename("elsewhere/tree/leaf", "root/leaf"), {u"leaf"_qs}, {});
        row("a file moved out", rename("root/file", "elsewhere/file"), {}, {u"file"_qs});
        row("a file deleted", [](const Watched& watched) { fs::remove(watched.At("root/file")); }, {}, {u"file"_qs});
        row("the program's own files",
            [](const Watched& watched) {
                watched.Put("root/" + MakeTemporaryName(ProcessMark::OfThisProcess()));
                watched.Put("root/" + std::string(TrashName) + "/kept");
            },
            {}, {});
    }
    void tellsOfChanges() {
        const auto [act, told, removed] = Table<Act, QStringList, QStringList>::Current();
        for (const bool tellsRemovals : {false, true}) {
            Watched watched(true, tellsRemovals);
            act(watched);
            QCOMPARE(watched.Told(), tellsRemovals ? told + removed : told);
        }
    }

    // What lies in a folder that is new here is watched too, and what is moved away no more.
    void followsItsFolders() {
        if (!SystemWorld::CanMake("news from below"))
            QSKIP("no news from below");
        Watched watched;
        fs::rename(watched.At("elsewhere/tree"), watched.At("root/tree"));
        QCOMPARE(watched.Told("root/tree"), QStringList{u"tree"_qs});
        watched.Put("root/tree/twig/new");
        QCOMPARE(watched.Told("root/tree/twig/new"), (QStringList{u"tree"_qs, u"tree/twig/new"_qs}));
        fs::rename(watched.At("root/tree"), watched.At("root/old/tree"));
        QVERIFY(watched.Told("root/old/tree").contains(u"old/tree"_qs));
        watched.Put("root/old/tree/twig/again");
        QVERIFY(watched.Told("root/old/tree/twig/again").contains(u"old/tree/twig/again"_qs));
        fs::rename(watched.At("root/old/tree"), watched.At("elsewhere/tree"));
        const QStringList before = watched.Told();
        watched.Put("elsewhere/tree/twig/outside");
        QCOMPARE(watched.Told(), before);
    }

    void keepsToItsFolderWithoutSubfolders() {
        Watched watched(false);
        watched.Put("root/old/deep/new");
        watched.Put("root/new");
        QVERIFY(watched.Told("root/new").contains(u"new"_qs));
        QVERIFY(!watched.Told("root/new").contains(u"old/deep/new"_qs));
    }

    void endsWithItsFolder() {
        if (!SystemWorld::CanMake("news from below"))
            QSKIP("no news of the end");
        Watched watched;
        fs::remove_all(watched.At("root"));
        QVERIFY(watched.End() == WatchEnd::Gone);
    }
};

QTEST_GUILESS_MAIN(TestFolderWatch)
#include "test_folderwatch.moc"
