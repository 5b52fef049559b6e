// The program's own files: whole or untouched, whatever stands in the way. Real files, real failures.
#include <QtTest>

#include "LinuxOwnFiles.h"
#include "modNativePath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

QByteArray bytesOf(const fs::path& file) {
    QFile opened(QString::fromStdString(file.string()));
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("<none>");
}

QStringList entriesOf(const fs::path& folder) {
    return QDir(QString::fromStdString(folder.string()))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// Something at this path that an operation may meet.
void make(const fs::path& path, const QByteArray& kind) {
    if (kind == "file") {
        QFile opened(QString::fromStdString(path.string()));
        QVERIFY(opened.open(QIODevice::WriteOnly) && opened.write("old") == 3);
    } else if (kind == "folder") {
        fs::create_directory(path);
    } else if (kind == "fifo") {
        QCOMPARE(::mkfifo(path.c_str(), 0600), 0);
    } else if (kind == "link") {
        make(path.parent_path() / "target", "file");
        fs::create_symlink("target", path);
    } else if (kind == "dangling") {
        fs::create_symlink("target", path);
    } else if (kind == "loop") {
        fs::create_symlink(path, path);
    }
}

class SizeLimit final {
  public:
    explicit SizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const struct rlimit small { bytes, m_before.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

  private:
    struct rlimit m_before {};
    void (*m_handler)(int);
};

} // namespace

class TestOwnFiles : public QObject {
    Q_OBJECT

    LinuxOwnFiles m_files;

  private Q_SLOTS:
    void everyOperationMeetsEveryKind_data() {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<QString>("results"); // read replace create append append+create delete: o = done, - = refused
        const auto row = [](const char* kind, const char* results) {
            QTest::newRow(kind) << QByteArray(kind) << QString::fromLatin1(results);
        };
        row("nothing", "-oo-o-");
        row("file", "oo-ooo");
        row("link", "oo-ooo");
        row("dangling", "-o--o-");
        row("folder", "------");
        row("fifo", "------"); // and none of them waits for its other end
        row("loop", "------");
    }
    void everyOperationMeetsEveryKind() {
        QFETCH(QByteArray, kind);
        QString results;
        for (int operation = 0; operation < 6; ++operation) {
            QTemporaryDir folder;
            const fs::path file = fs::path(folder.path().toStdString()) / "own";
            make(file, kind);
            const auto before = entriesOf(file.parent_path());
            QByteArray read;
            std::error_code error;
            switch (operation) {
            case 0:
                error = m_files.ReadAll(file, 100, read);
                QVERIFY(error || read == "old");
                break;
            case 1:
                error = m_files.ReplaceAll(file, "new");
                QVERIFY(error || bytesOf(file) == "new");
                break;
            case 2:
                error = m_files.CreateNew(file, "new");
                QVERIFY(error || bytesOf(file) == "new");
                break;
            case 3:
            case 4:
                error = m_files.Append(file, "new", operation == 4);
                QVERIFY(error || bytesOf(file).endsWith("new"));
                break;
            default:
                error = m_files.Delete(file);
                QVERIFY(bool(error) == fs::exists(fs::symlink_status(file)) || kind == "nothing");
                QVERIFY(kind != "link" || bytesOf(file.parent_path() / "target") == "old");
            }
            results += error ? u'-' : u'o';
            if (error)
                QCOMPARE(entriesOf(file.parent_path()), before);
            if (kind == "link" || (kind == "dangling" && !error))
                QVERIFY(operation == 5 || fs::is_symlink(file)); // written through, not over
        }
        QTEST(results, "results");
    }

    void replacementKeepsPermissions() {
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        QVERIFY(!m_files.ReplaceAll(file, "1"));
        QCOMPARE(fs::status(file).permissions() & fs::perms::others_write, fs::perms::none);
        QCOMPARE(::chmod(file.c_str(), 0640), 0);
        QVERIFY(!m_files.ReplaceAll(file, "2"));
        QCOMPARE(static_cast<unsigned>(fs::status(file).permissions()), 0640U);
    }

    void stampTellsChangesApart() {
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        QVERIFY(!m_files.Stamp(file));
        QVERIFY(!m_files.Stamp(file.parent_path()));
        QVERIFY(!m_files.ReplaceAll(file, "1"));
        const auto first = m_files.Stamp(file);
        QVERIFY(first && first == m_files.Stamp(file));
        QVERIFY(!m_files.ReplaceAll(file, "2")); // same size, perhaps the same moment: another file
        QVERIFY(first != m_files.Stamp(file));
    }

    void limitIsExact() {
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        QByteArray read;
        QVERIFY(!m_files.ReplaceAll(file, QByteArray(5000, 'x')));
        QVERIFY(!m_files.ReadAll(file, 5000, read));
        QCOMPARE(read.size(), 5000);
        QVERIFY(m_files.ReadAll(file, 4999, read) == std::errc::file_too_large);
        QVERIFY(read.isEmpty());
    }

    void shortWriteLeavesTheOldContent() {
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        QVERIFY(!m_files.ReplaceAll(file, "old\n"));
        {
            const SizeLimit limit(1000);
            QVERIFY(m_files.ReplaceAll(file, QByteArray(5000, 'x')));
            QVERIFY(m_files.CreateNew(file.parent_path() / "second", QByteArray(5000, 'x')));
            QVERIFY(m_files.Append(file, QByteArray(5000, 'x'), true)); // the half line is taken back
        }
        QCOMPARE(bytesOf(file), QByteArray("old\n"));
        QCOMPARE(entriesOf(file.parent_path()), QStringList{QStringLiteral("own")});
    }

    void fullDiskLeavesTheOldContent() {
        QTemporaryDir folder;
        const fs::path disk = fs::path(folder.path().toStdString()) / "disk";
        fs::create_directory(disk);
        if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
            QSKIP("only root can make a small disk");
        const QByteArray old(30'000, 'o');
        const bool isWritten = !m_files.ReplaceAll(disk / "own", old);
        const std::error_code error = m_files.ReplaceAll(disk / "own", QByteArray(50'000, 'n'));
        // Across devices, onto the same full disk: the source must stay.
        const fs::path source = disk.parent_path() / "source";
        const bool isMade = !m_files.CreateNew(source, QByteArray(50'000, 's'));
        const std::error_code moved = m_files.MoveAway(source, disk / "moved");
        const QByteArray kept = bytesOf(disk / "own");
        const QStringList entries = entriesOf(disk);
        // And with enough room it goes over.
        const std::error_code back = m_files.MoveAway(disk / "own", disk.parent_path() / "back");
        const bool isGone = !fs::exists(disk / "own");
        ::umount(disk.c_str());
        QVERIFY(isWritten && isMade);
        QVERIFY(error == std::errc::no_space_on_device);
        QVERIFY(moved == std::errc::no_space_on_device);
        QCOMPARE(kept, old);
        QCOMPARE(entries, QStringList{QStringLiteral("own")});
        QCOMPARE(bytesOf(source).size(), 50'000);
        QVERIFY(!back && isGone);
        QCOMPARE(bytesOf(disk.parent_path() / "back"), old);
    }

    void readOnlyFolderLeavesTheOldContent() {
        if (::geteuid() == 0)
            QSKIP("root may write everywhere");
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        QVERIFY(!m_files.ReplaceAll(file, "old"));
        QVERIFY(m_files.IsWritableFolder(file.parent_path()));
        QCOMPARE(::chmod(file.parent_path().c_str(), 0500), 0);
        const std::error_code error = m_files.ReplaceAll(file, "new");
        const bool isWritable = m_files.IsWritableFolder(file.parent_path());
        QCOMPARE(::chmod(file.parent_path().c_str(), 0700), 0);
        QVERIFY(error && !isWritable);
        QCOMPARE(bytesOf(file), QByteArray("old"));
    }

    void killedWriterLeavesOldOrNew() {
        QTemporaryDir folder;
        const fs::path file = fs::path(folder.path().toStdString()) / "own";
        const QByteArray contents[] = {QByteArray(300'000, 'a'), QByteArray(200'000, 'b')};
        QVERIFY(!m_files.ReplaceAll(file, contents[0]));
        for (int round = 0; round < 25; ++round) {
            int ready[2];
            QCOMPARE(::pipe(ready), 0);
            const pid_t child = ::fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                for (int i = 0;; ++i)
                    if (m_files.ReplaceAll(file, contents[i % 2]) || ::write(ready[1], "x", 1) != 1)
                        ::_exit(1);
            }
            // It is killed somewhere in its next save, or the one after it.
            char byte = 0;
            for (int i = 0; i <= round % 3; ++i)
                QCOMPARE(::read(ready[0], &byte, 1), ssize_t{1});
            ::kill(child, SIGKILL);
            int status = 0;
            ::waitpid(child, &status, 0);
            ::close(ready[0]);
            ::close(ready[1]);
            QVERIFY(WIFSIGNALED(status));
            const QByteArray found = bytesOf(file);
            QVERIFY(found == contents[0] || found == contents[1]);
        }
        QVERIFY(!m_files.ReplaceAll(file, contents[0]));
        QCOMPARE(entriesOf(file.parent_path()), QStringList{QStringLiteral("own")}); // nothing of the killed ones
    }

    void moveNeverOverwrites_data() {
        QTest::addColumn<QByteArray>("target");
        for (const char* kind : {"file", "folder", "fifo", "dangling"})
            QTest::newRow(kind) << QByteArray(kind);
    }
    void moveNeverOverwrites() {
        QFETCH(QByteArray, target);
        QTemporaryDir folder;
        const fs::path base = folder.path().toStdString();
        make(base / "taken", target);
        QVERIFY(!m_files.CreateNew(base / "own", "precious"));
        QVERIFY(m_files.MoveAway(base / "own", base / "taken") == std::errc::file_exists);
        QVERIFY(m_files.MoveAway(base / "own", base / "own") == std::errc::file_exists);
        QCOMPARE(bytesOf(base / "own"), QByteArray("precious"));
        QVERIFY(target != "file" || bytesOf(base / "taken") == "old");
        QVERIFY(!m_files.MoveAway(base / "own", base / "free"));
        QCOMPARE(bytesOf(base / "free"), QByteArray("precious"));
        QVERIFY(!fs::exists(base / "own"));
    }

    void namesAreFoundWithoutCase_data() {
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QString>("found");
        QTest::newRow("none") << QStringList{QStringLiteral("a.kvd")} << QString();
        QTest::newRow("variant") << QStringList{QStringLiteral("OWN.kvd")} << QStringLiteral("OWN.kvd");
        QTest::newRow("exact wins") << QStringList{QStringLiteral("OWN.kvd"), QStringLiteral("Own.kvd")}
                                    << QStringLiteral("Own.kvd");
        QTest::newRow("first by bytes") << QStringList{QStringLiteral("own.KVD"), QStringLiteral("OWN.KVD")}
                                        << QStringLiteral("OWN.KVD");
    }
    void namesAreFoundWithoutCase() {
        QFETCH(QStringList, entries);
        QTemporaryDir folder;
        const fs::path base = folder.path().toStdString();
        for (const QString& entry : entries)
            make(base / entry.toStdString(), "file");
        const auto found = m_files.FindIgnoringCase(base, "Own.kvd");
        QTEST(found ? QString::fromStdString(found->string()) : QString(), "found");
        QVERIFY(!m_files.FindIgnoringCase(base / "none", "Own.kvd"));
    }

    void pathsAndTheirTexts_data() {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QByteArray("/a b/\\c") << QStringLiteral("/a b/\\c");
        QTest::newRow("UTF-8") << QByteArray("/\xC3\xA4\xF0\x9F\x98\x80") << QString::fromUcs4(U"/\u00E4\U0001F600");
        QTest::newRow("Latin-1") << QByteArray("/\xE4\xC3\xA4z") << QStringLiteral("/\\xe4\u00E4z");
        QTest::newRow("cut off") << QByteArray("/\xF0\x9F\x98") << QStringLiteral("/\\xf0\\x9f\\x98");
        QTest::newRow("the mark itself") << QByteArray("\xEF\xBF\xBD\xFF") << QStringLiteral("\uFFFD\\xff");
    }
    void pathsAndTheirTexts() {
        QFETCH(QByteArray, path);
        QFETCH(QString, text);
        const fs::path native(path.toStdString());
        QCOMPARE(modNativePath::ToText(native), text);
        if (QString::fromUtf8(path) == text)
            QCOMPARE(modNativePath::FromText(text), native);
    }

    void absolutePaths() {
        const fs::path here = fs::current_path();
        QVERIFY(modNativePath::Absolute(QString()).empty());
        QVERIFY(modNativePath::Absolute(QStringLiteral(" \t")).empty());
        QCOMPARE(modNativePath::Absolute(QStringLiteral("a/../b/./c/")), here / "b" / "c");
        QCOMPARE(modNativePath::Absolute(QStringLiteral("/")), fs::path("/"));
        QCOMPARE(modNativePath::Absolute(QStringLiteral("/x//y/..")), fs::path("/x"));
    }
};

QTEST_GUILESS_MAIN(TestOwnFiles)
#include "test_ownfiles.moc"
