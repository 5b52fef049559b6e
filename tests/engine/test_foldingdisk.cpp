#include "ProgramFixture.h"
#include "Trees.h"

#include <QProcess>

namespace {
const QString A = u"A"_qs;

/// A program whose destination lies on a real disk that takes spellings in either letter case for one name.
struct FoldingDisk : ProgramFixture {
    /// `isExfat`: a file system that keeps spellings and gives each an id of its own; else one with true ids that makes
    /// every name lower case.
    explicit FoldingDisk(bool isExfat) {
        QDir().mkpath(Path(u"dst"_qs));
        QFile image(Path(u"disk"_qs));
        isMounted = image.open(QIODevice::WriteOnly) && image.resize(qint64{16} << 20);
        image.close();
        const QString disk = Path(u"disk"_qs);
        isMounted = isMounted && (isExfat ? run(u"mkfs.exfat"_qs, {disk}) : run(u"mkntfs"_qs, {u"-FQq"_qs, disk}));
        if (isExfat && isMounted) { // FUSE mounts it from a block device only
            QByteArray device;
            isMounted = run(u"losetup"_qs, {u"-f"_qs, u"--show"_qs, disk}, &device);
            m_device = QString::fromLatin1(device.trimmed());
            isMounted = isMounted && run(u"mount.exfat-fuse"_qs, {m_device, Path(u"dst"_qs)});
        } else if (isMounted) {
            isMounted = run(u"lowntfs-3g"_qs, {disk, Path(u"dst"_qs), u"-o"_qs, u"ignore_case"_qs});
        }
        if (isMounted)
            QDir(Path(u"dst"_qs)).mkpath(u"to"_qs);
    }
    ~FoldingDisk() {
        if (isMounted)
            run(u"umount"_qs, {u"-l"_qs, Path(u"dst"_qs)});
        if (!m_device.isEmpty())
            run(u"losetup"_qs, {u"-d"_qs, m_device});
    }
    FoldingDisk(const FoldingDisk&) = delete;
    FoldingDisk& operator=(const FoldingDisk&) = delete;

    Program& StartWith(const QString& action, const QString& onlyNew) {
        Add(A, {{u"targetdir"_qs, Path(u"dst/to"_qs)}, {u"action"_qs, action}, {u"onlynew"_qs, onlyNew}});
        return Start();
    }

    bool isMounted = false;

  private:
    static bool run(const QString& program, const QStringList& arguments, QByteArray* output = nullptr) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(u"/usr/sbin/"_qs + program, arguments);
        if (!process.waitForStarted()) {
            process.start(program, arguments);
            process.waitForStarted();
        }
        process.closeWriteChannel();
        const bool isDone =
            process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        if (output != nullptr)
            *output = process.readAll();
        return isDone;
    }

    QString m_device;
};
} // namespace

// Two names may be one file, and a differently spelt one is no surplus. Only the disk can tell.
class TestFoldingDisk final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    void nothingIsLostWhereNamesMeet_data() {
        QTest::addColumn<bool>("isExfat");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("onlyNew");
        for (const bool isExfat : {false, true})
            for (const auto* action : {"0", "1", "3"})
                for (const auto* onlyNew : {"Y", "N"})
                    QTest::addRow("%s %s %s", isExfat ? "exfat" : "ntfs", action, onlyNew)
                        << isExfat << QString::fromLatin1(action) << QString::fromLatin1(onlyNew);
    }
    void nothingIsLostWhereNamesMeet() {
        QFETCH(bool, isExfat);
        QFETCH(QString, action);
        QFETCH(QString, onlyNew);
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
        QTest::addColumn<bool>("isExfat");
        QTest::addColumn<QString>("name");
        for (const bool isExfat : {false, true})
            for (const auto& name : {u"Foo"_qs, u"Ж1"_qs})
                QTest::addRow("%s %s", isExfat ? "exfat" : "ntfs", qPrintable(name)) << isExfat << name;
    }
    void aDifferentlySpeltCounterpartIsNoSurplus() {
        QFETCH(bool, isExfat);
        QFETCH(QString, name);
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
