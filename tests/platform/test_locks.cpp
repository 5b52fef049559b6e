// The folder of the locks: one for all sessions, closed to others, and what happens when somebody has tampered with it.
#include "FileWorld.h"
#include "PlatformServices.h"
#include "ScratchFolder.h"

#include <memory>
#include <stdexcept>

namespace {

const QString a = u"a"_qs;
const QString ownFolder = u"Kalvenor"_qs;

std::unique_ptr<HeldLock> take(const QString& name, LockRefusal expected = LockRefusal::HeldElsewhere) {
    LockRefusal refusal{};
    auto held = MakePlatformServices().locks->TryAcquire(name, refusal);
    return held || refusal == expected ? std::move(held) : throw std::logic_error("refused for another reason");
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

    void OneHolderInAllSessions() {
        const auto held = take(a);
        qputenv("XDG_RUNTIME_DIR", m_folder->Path().toUtf8()); // of another session
        QVERIFY(held && !take(a));
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
