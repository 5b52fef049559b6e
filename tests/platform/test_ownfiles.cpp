// The program's own files: whole or untouched, whatever stands in the way, on every system. Real files, real failures.
#include "FileWorld.h"
#include "ScratchFolder.h"
#include "Table.h"

#include <QProcess>
#include <iostream>

namespace {

const QString own = u"own"_qs;

struct Scratch : ScratchFolder {
    fs::path file = Native(own);
};

QByteArray contentOf(int round) {
    return round % 2 == 0 ? QByteArray(300'000, 'a') : QByteArray(200'000, 'b');
}

/// The other process: saves one content after the other until it is killed, and tells of each.
int saveForEver(const QString& file) {
    const std::unique_ptr<OwnFiles> files = MakePlatformServices().ownFiles;
    for (int round = 0; !files->ReplaceAll(fs::path(file.toStdWString()), contentOf(round)); ++round)
        std::cout << "x" << std::flush;
    return EXIT_FAILURE;
}

} // namespace

class TestOwnFiles : public QObject {
    Q_OBJECT

    std::unique_ptr<OwnFiles> m_files = MakePlatformServices().ownFiles;

  private Q_SLOTS:
    void everyOperationMeetsEveryKind_data() {
        // results: read replace create append append+create delete: o = done, - = refused
        const Table<QByteArray, QString> row;
        const std::pair<const char*, const char*> rows[] = {
            {"nothing", "-oo-o-"}, {"file", "oo-ooo"}, {"link", "oo-ooo"}, {"dangling link", "-o--o-"},
            {"folder", "------"},  {"fifo", "------"}}; // and none of them waits for its other end
        for (const auto& [kind, results] : rows)
            if (FileWorld::CanMake(kind))
                row.Add(kind, results);
    }
    void everyOperationMeetsEveryKind() {
        const auto [kind, expected] = Table<QByteArray, QString>::Current();
        QByteArray read;
        const std::function<std::error_code(const fs::path&)> operations[] = {
            [&](const fs::path& file) { return m_files->ReadAll(file, 100, read); },
            [&](const fs::path& file) { return m_files->ReplaceAll(file, "new"); },
            [&](const fs::path& file) { return m_files->CreateNew(file, "new"); },
            [&](const fs::path& file) { return m_files->Append(file, "new", false); },
            [&](const fs::path& file) { return m_files->Append(file, "new", true); },
            [&](const fs::path& file) { return m_files->Delete(file); }};
        QString results;
        for (const auto& operation : operations) {
            const bool isRead = results.isEmpty();
            const bool isDelete = results.size() == 5;
            const Scratch scratch;
            FileWorld::Make(scratch.file, kind);
            const QStringList before = scratch.Entries();
            const bool isDone = !operation(scratch.file);
            results += isDone ? u'o' : u'-';
            QVERIFY(isDone || scratch.Entries() == before);
            if (isDone && isRead)
                QCOMPARE(read, QByteArray("old"));
            else if (isDone && isDelete)
                QVERIFY(!scratch.Entries().contains(own) && (kind != "link" || scratch.Read(u"target"_qs) == "old"));
            else if (isDone)
                QVERIFY(scratch.Read(own).endsWith("new"));
            if (kind.endsWith("link") && !isDelete)
                QVERIFY(fs::is_symlink(scratch.file)); // written through, not over
        }
        QCOMPARE(results, expected);
    }

    void moveNeverOverwrites() {
        for (const char* kind : {"file", "folder", "fifo", "dangling link"}) {
            if (!FileWorld::CanMake(kind))
                continue;
            const Scratch scratch;
            const fs::path taken = scratch.Native(u"taken"_qs);
            FileWorld::Make(taken, kind);
            QVERIFY(!m_files->CreateNew(scratch.file, "precious"));
            QVERIFY(m_files->MoveAway(scratch.file, taken) == std::errc::file_exists);
            QVERIFY(m_files->MoveAway(scratch.file, scratch.file) == std::errc::file_exists);
            QCOMPARE(scratch.Read(own), QByteArray("precious"));
            QCOMPARE(fs::symlink_status(taken).type() == fs::file_type::regular, QByteArray(kind) == "file");
            QVERIFY(QByteArray(kind) != "file" || scratch.Read(u"taken"_qs) == "old");
        }
    }

    void killedWriterLeavesOldOrNew() {
        const Scratch scratch;
        QVERIFY(!m_files->ReplaceAll(scratch.file, contentOf(0)));
        for (int round = 0; round < 12; ++round) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(), {u"--save"_qs, scratch.Path(own)});
            // It is killed somewhere in its next save, or the one after it.
            for (qsizetype told = 0; told <= round % 3; told += writer.readAllStandardOutput().size())
                QVERIFY(writer.waitForReadyRead(60000));
            writer.kill();
            QVERIFY(writer.waitForFinished());
            const QByteArray found = scratch.Read(own);
            QVERIFY(found == contentOf(0) || found == contentOf(1));
        }
        QVERIFY(!m_files->ReplaceAll(scratch.file, contentOf(0)));
        QCOMPARE(scratch.Entries(), QStringList{own}); // nothing of the killed ones
    }
};

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == u"--save")
        return saveForEver(application.arguments().value(2));
    TestOwnFiles test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_ownfiles.moc"
