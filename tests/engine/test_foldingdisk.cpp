#include "ProgramFixture.h"
#include "Table.h"
#include "Trees.h"

#include <QProcess>

namespace {
const QString A = u"A"_qs;

/// A program whose destination lies on a real disk that takes spellings in either letter case for one name.
struct FoldingDisk : ProgramFixture {
    /// `isExfat`: a file system that keeps spellings and gives each an id of its own; else one with true ids that makes
    /// every name lower case. FUSE mounts the first from a block device only; that is freed with the mount.
    explicit FoldingDisk(bool isExfat) {
        isMounted = run(isExfat ? u"mkfs.exfat disk && loop=$(losetup -f --show disk) && mount.exfat-fuse $loop dst; "
                                  "code=$?; losetup -d $loop; exit $code"_qs
                                : u"mkntfs -FQq disk && lowntfs-3g disk dst -o ignore_case"_qs);
    }
    ~FoldingDisk() {
        if (isMounted)
            run(u"umount -l dst"_qs);
    }
    FoldingDisk(const FoldingDisk&) = delete;
    FoldingDisk& operator=(const FoldingDisk&) = delete;

    Program& StartWith(const QString& action, const QString& onlyNew) {
        Add(A, {{u"targetdir"_qs, Folder(u"dst/to"_qs)}, {u"action"_qs, action}, {u"onlynew"_qs, onlyNew}});
        return Start();
    }

    bool isMounted = false;

  private:
    bool run(const QString& script) const {
        const QString start = u"exec >/dev/null 2>&1; PATH=$PATH:/sbin:/usr/sbin; cd '"_qs + Path() +
                              u"'; mkdir -p dst; truncate -s 16M disk; "_qs;
        return QProcess::execute(u"/bin/sh"_qs, {u"-c"_qs, start + script}) == 0;
    }
};
} // namespace

// Two names may be one file, and a differently spelt one is no surplus. Only the disk can tell.
class TestFoldingDisk final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void nothingIsLostWhereNamesMeet_data() {
        const Table<bool, QString, QString> row;
        for (const bool isExfat : {false, true})
            for (const auto* action : {"0", "1", "3"})
                for (const auto* onlyNew : {"Y", "N"})
                    row.Add(isExfat, action, onlyNew);
    }
    void nothingIsLostWhereNamesMeet() {
        const auto [isExfat, action, onlyNew] = Table<bool, QString, QString>::Current();
        FoldingDisk world(isExfat);
        if (!world.isMounted)
            QSKIP("such a disk cannot be mounted here");
        // The last of a pair is newer: it would win.
        const QList<std::pair<QString, QByteArray>> files{
            {u"Report.txt"_qs, "1"}, {u"report.txt"_qs, "two"},     {u"Docs/a"_qs, "3"},
            {u"docs/b"_qs, "four"},  {u"Tree/In/Deep.txt"_qs, "5"}, {u"Tree/In/deep.TXT"_qs, "six"},
            {u"1/Ж"_qs, "7"},        {u"1/ж"_qs, "eight"},          {u"2/A"_qs, "9"},
            {u"2/a"_qs, "ten"}};
        qint64 time = 1'600'000'000;
        for (const auto& [name, content] : files)
            world.Write(u"src/"_qs + name, content, time += 100);
        Program& program = world.StartWith(action, onlyNew);
        // Where the disk forgets how a name was spelt, what is left in the source looks like a new version of it.
        const int runs = action == u"1" && !isExfat ? 1 : 3;
        for (int run = 0; run < runs; ++run) {
            const RunOutcome outcome = program.RunNow(A);
            QVERIFY(run > 0 || outcome.failures > 0);
            const QByteArrayList source = Tree(world.Path(u"src"_qs)).values();
            const QByteArrayList destination = Tree(world.Path(u"dst/to"_qs)).values();
            for (const auto& [name, content] : files)
                QVERIFY2(source.contains(content) || destination.contains(content), content.constData());
            for (const char* first : {"1", "3", "5", "7"})
                QVERIFY2(destination.contains(first) || !isExfat, first);
        }
    }

    void aDifferentlySpeltCounterpartIsNoSurplus_data() {
        const Table<bool, QString> row;
        for (const bool isExfat : {false, true})
            for (const auto& name : {u"Foo"_qs, u"Ж1"_qs})
                row.Add(isExfat, name);
    }
    void aDifferentlySpeltCounterpartIsNoSurplus() {
        const auto [isExfat, name] = Table<bool, QString>::Current();
        FoldingDisk world(isExfat);
        if (!world.isMounted)
            QSKIP("such a disk cannot be mounted here");
        for (int file = 0; file < 40; ++file) {
            world.Write(u"src/%1/%1%2"_qs.arg(name).arg(file), "new", 1'700'000'000);
            world.Write(u"dst/to/%1/%1%2"_qs.arg(name.toLower()).arg(file), "old", 1'600'000'000 + file * 10);
        }
        world.Write(u"dst/to/%1/9"_qs.arg(name.toLower()), "gone");
        Program& program = world.StartWith(u"3"_qs, u"N"_qs);
        for (int run = 0; run < 3; ++run) {
            QCOMPARE(program.RunNow(A).failures, 0);
            const auto tree = Tree(world.Path(u"dst/to"_qs));
            QCOMPARE(tree.size(), 41);
            QCOMPARE(tree.values().count("new"), 40);
        }
    }
};

QTEST_GUILESS_MAIN(TestFoldingDisk)
#include "test_foldingdisk.moc"
