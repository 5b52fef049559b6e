// The lock between two real processes, its release after a crash, and folders somebody has tampered with.
#include "FileWorld.h"
#include "PlatformServices.h"
#include "ScratchFolder.h"

#include <csignal>
#include <memory>
#include <stdexcept>
#include <sys/prctl.h>

namespace {

const QString a = u"a"_qs;
const QString ownFolder = u"Kalvenor"_qs;

std::unique_ptr<HeldLock> take(const QString& name, LockRefusal expected = LockRefusal::HeldElsewhere) {
    LockRefusal refusal{};
    auto held = MakePlatformServices().locks->TryAcquire(name, refusal);
    return held || refusal == expected ? std::move(held) : throw std::logic_error("refused for another reason");
}

/// Takes the lock in another process, which ends at once.
bool anotherProcessGets(const QString& name) {
    return FileWorld::InChild([&] { return take(name) ? 1 : 0; }) == 1;
}

/// Another process that has taken the lock and lives on; -1 when it did not get it.
pid_t holderOf(const QString& name) {
    int ready[2];
    if (::pipe(ready) != 0)
        return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // never outlives a test that failed
        const auto held = take(name);
        if (!held || ::write(ready[1], "x", 1) != 1)
            ::_exit(1);
        for (;;)
            ::pause();
    }
    ::close(ready[1]);
    char byte = 0;
    const bool isHeld = ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    return isHeld ? child : -1;
}

} // namespace

class LocksTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<ScratchFolder>();
        qputenv("XDG_STATE_HOME", m_folder->Path().toUtf8());
        qputenv("XDG_RUNTIME_DIR", m_folder->Path(u"run"_qs).toUtf8());
    }

    void OneHolderAtATime() {
        // Any text: steps to elsewhere, quotes, umlauts, longer than a file name may be.
        const QString name = u"../../etc/a \"b\"\n\u00e4\u20ac"_qs + QString(5000, u'x');
        const pid_t holder = holderOf(name);
        QVERIFY(holder > 0);
        qputenv("XDG_RUNTIME_DIR", m_folder->Path().toUtf8()); // of another session
        QVERIFY(!take(name));
        QVERIFY(take(name + u'2'));
        ::kill(holder, SIGKILL);
        ::waitpid(holder, nullptr, 0);
        auto held = take(name);
        QVERIFY2(held, "a killed holder must not keep the lock");
        QVERIFY2(!take(name), "a second holder in the same process");
        QVERIFY(!anotherProcessGets(name));
        held.reset();
        QVERIFY2(m_folder->Entries(ownFolder).isEmpty(), "names of files that are gone pile up");
        QVERIFY(anotherProcessGets(name));
    }

    void FolderIsPrivate() {
        const QByteArray folder = m_folder->Path(ownFolder).toUtf8();
        QCOMPARE(mkdir(folder.constData(), 0777), 0);
        QCOMPARE(chmod(folder.constData(), 0777), 0);
        QVERIFY(take(a));
        struct stat facts {};
        QCOMPARE(stat(folder.constData(), &facts), 0);
        QCOMPARE(facts.st_mode & 0777, 0700U);
    }

    void PlantedLinkIsRefused() {
        auto held = take(a);
        QVERIFY(held);
        const QString lock = m_folder->Path(ownFolder) + u'/' + m_folder->Entries(ownFolder).value(0);
        QVERIFY(QFile::rename(lock, lock + u".real"_qs) && QFile::link(lock + u".real"_qs, lock));
        held.reset();
        QVERIFY2(QFile::exists(lock), "what is not ours to remove stays");
        QVERIFY(!take(a, LockRefusal::NoneCanBeMade));
        QVERIFY(QFile::rename(m_folder->Path(ownFolder), m_folder->Path(u"real"_qs)));
        QVERIFY(QFile::link(u"real"_qs, m_folder->Path(ownFolder)));
        QVERIFY2(!take(u"b"_qs, LockRefusal::NoneCanBeMade), "a link in the folder's place");
    }

    void NoFolderNoLock() {
        QVERIFY(m_folder->Write(ownFolder, "a file in its place"));
        QVERIFY(!take(a, LockRefusal::NoneCanBeMade));
    }

  private:
    std::unique_ptr<ScratchFolder> m_folder;
};

QTEST_GUILESS_MAIN(LocksTest)
#include "test_locks.moc"
