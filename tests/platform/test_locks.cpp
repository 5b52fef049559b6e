// The lock between two real processes, its release after a crash, and folders somebody has tampered with.
#include "LinuxLocks.h"
#include "ScratchFolder.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString a = u"a"_qs;
const QString ownFolder = u"Kalvenor"_qs;

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
        m_process.start(QCoreApplication::applicationFilePath(), {u"--hold"_qs, name});
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
        m_folder = std::make_unique<ScratchFolder>();
        qputenv("XDG_RUNTIME_DIR", m_folder->Path().toUtf8());
        qputenv("XDG_STATE_HOME", m_folder->Path(u"state"_qs).toUtf8());
    }

    void OneHolderAtATime() {
        // Any text: steps to elsewhere, quotes, umlauts, longer than a file name may be.
        const QString name = u"../../etc/a \"b\"\n\u00e4\u20ac"_qs + QString(5000, u'x');
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
        // A process that has the old file open and one that makes a new file would both hold "the" lock.
        QVERIFY2(m_folder->Entries(ownFolder).size() == 2, "the files stay");
        QCOMPARE(OtherProcess(name).answer, QByteArray("held"));
    }

    void FolderIsPrivate() {
        const QByteArray folder = m_folder->Path(ownFolder).toUtf8();
        QCOMPARE(mkdir(folder.constData(), 0777), 0);
        QCOMPARE(chmod(folder.constData(), 0777), 0);
        QVERIFY(LinuxLocks().TryAcquire(a));
        struct stat facts {};
        QCOMPARE(stat(folder.constData(), &facts), 0);
        QCOMPARE(facts.st_mode & 0777, 0700U);
    }

    void PlantedLinkIsRefused() {
        QVERIFY(LinuxLocks().TryAcquire(a));
        const QString lock = m_folder->Path(ownFolder) + u'/' + m_folder->Entries(ownFolder).value(0);
        QVERIFY(QFile::rename(lock, lock + u".real"_qs) && QFile::link(lock + u".real"_qs, lock));
        QVERIFY(!LinuxLocks().TryAcquire(a));
        QVERIFY(QFile::rename(m_folder->Path(ownFolder), m_folder->Path(u"real"_qs)));
        QVERIFY(QFile::link(u"real"_qs, m_folder->Path(ownFolder)));
        QVERIFY2(!LinuxLocks().TryAcquire(u"b"_qs), "a link in the folder's place");
    }

    void StateFolderStandsIn() {
        if (QFile::exists(u"/run/user/%1"_qs.arg(geteuid())))
            QSKIP("this user has a runtime folder");
        for (const char* runtimeFolder : {"", "run", "/nonexistent/run"}) {
            init();
            qputenv("XDG_RUNTIME_DIR", runtimeFolder);
            QVERIFY2(LinuxLocks().TryAcquire(a), runtimeFolder);
            QVERIFY2(m_folder->Exists(u"state/Kalvenor"_qs), runtimeFolder);
        }
    }

    void NoFolderNoLock() {
        QVERIFY(m_folder->Put(ownFolder, "a file in its place"));
        QVERIFY(!LinuxLocks().TryAcquire(a));
    }

  private:
    std::unique_ptr<ScratchFolder> m_folder;
};

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--hold") == 0)
        return holdLock(argv[2]);
    QCoreApplication application(argc, argv);
    LocksTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_locks.moc"
