// The lock between two real processes, its release after a crash, and folders somebody has tampered with.
#include "LinuxLocks.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The other process: takes the lock, says how it went, and holds it until its input ends.
int holdLock(const char* name) {
    LinuxLocks locks;
    const auto held = locks.TryAcquire(QString::fromUtf8(name));
    std::puts(held ? "held" : "refused");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

class OtherProcess final {
  public:
    explicit OtherProcess(const QString& name) {
        m_process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold"), name});
        m_process.waitForReadyRead(20000);
        answer = m_process.readLine().trimmed();
    }
    ~OtherProcess() { Kill(); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    void Kill() {
        m_process.kill();
        m_process.waitForFinished(20000);
    }
    QByteArray answer;

  private:
    QProcess m_process;
};

} // namespace

class LocksTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", m_folder->path().toUtf8());
        qputenv("XDG_STATE_HOME", m_folder->filePath(QStringLiteral("state")).toUtf8());
    }

    void OneHolderAtATime_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("path") << QStringLiteral("/home/user/Kalvenor.kvd");
        QTest::newRow("relative steps") << QStringLiteral("../../etc/passwd");
        QTest::newRow("blanks, quotes, umlauts") << QStringLiteral("a \"b\"\n\u00e4\u20ac");
        QTest::newRow("longer than a file name may be") << QString(5000, u'x');
    }
    void OneHolderAtATime() {
        QFETCH(QString, name);
        OtherProcess other(name);
        QCOMPARE(other.answer, QByteArray("held"));
        LinuxLocks locks;
        QVERIFY(!locks.TryAcquire(name));
        const auto different = locks.TryAcquire(name + u'2');
        QVERIFY(different);
        other.Kill();
        auto held = locks.TryAcquire(name);
        QVERIFY2(held, "a killed holder must not keep the lock");
        QVERIFY2(!locks.TryAcquire(name), "a second holder in the same process");
        QCOMPARE(OtherProcess(name).answer, QByteArray("refused"));
        held.reset();
        QCOMPARE(OtherProcess(name).answer, QByteArray("held"));
    }

    void FolderIsPrivate() {
        const QByteArray folder = ownFolder();
        QCOMPARE(mkdir(folder.constData(), 0777), 0);
        QCOMPARE(chmod(folder.constData(), 0777), 0);
        QVERIFY(LinuxLocks().TryAcquire(QStringLiteral("a")));
        struct stat facts {};
        QCOMPARE(stat(folder.constData(), &facts), 0);
        QCOMPARE(facts.st_mode & 0777, 0700U);
    }

    void PlantedLinkIsRefused() {
        { const auto held = LinuxLocks().TryAcquire(QStringLiteral("a")); }
        QDir folder(QFile::decodeName(ownFolder()));
        const QStringList files = folder.entryList(QDir::Files);
        QCOMPARE(files.size(), 1);
        QVERIFY(folder.rename(files.constFirst(), QStringLiteral("elsewhere")));
        QVERIFY(QFile::link(QStringLiteral("elsewhere"), folder.filePath(files.constFirst())));
        QVERIFY(!LinuxLocks().TryAcquire(QStringLiteral("a")));

        QVERIFY(folder.rename(folder.path(), m_folder->filePath(QStringLiteral("real"))));
        QVERIFY(QFile::link(m_folder->filePath(QStringLiteral("real")), folder.path()));
        QVERIFY2(!LinuxLocks().TryAcquire(QStringLiteral("b")), "a link in the folder's place");
    }

    void ReleaseLeavesTheFile() {
        // Deleting it would let a process that has the old file open and one that makes a new file both hold "the"
        // lock.
        const auto count = [this] { return QDir(QFile::decodeName(ownFolder())).entryList(QDir::Files).size(); };
        auto held = LinuxLocks().TryAcquire(QStringLiteral("a"));
        QCOMPARE(count(), 1);
        held.reset();
        QCOMPARE(count(), 1);
    }

    void StateFolderStandsIn_data() {
        QTest::addColumn<QByteArray>("runtimeDir");
        QTest::newRow("unset") << QByteArray();
        QTest::newRow("relative") << QByteArray("run");
        QTest::newRow("missing") << QByteArray("/nonexistent/run");
    }
    void StateFolderStandsIn() {
        QFETCH(QByteArray, runtimeDir);
        if (QFile::exists(QStringLiteral("/run/user/%1").arg(geteuid())))
            QSKIP("this user has a runtime folder");
        if (runtimeDir.isEmpty())
            qunsetenv("XDG_RUNTIME_DIR");
        else
            qputenv("XDG_RUNTIME_DIR", runtimeDir);
        QVERIFY(LinuxLocks().TryAcquire(QStringLiteral("a")));
        QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("state/Kalvenor"))));
    }

    void NoFolderNoLock() {
        QFile file(QFile::decodeName(ownFolder()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(!LinuxLocks().TryAcquire(QStringLiteral("a")));
    }

  private:
    [[nodiscard]] QByteArray ownFolder() const {
        return QFile::encodeName(m_folder->filePath(QStringLiteral("Kalvenor")));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--hold") == 0)
        return holdLock(argv[2]);
    QCoreApplication application(argc, argv);
    LocksTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_locks.moc"
