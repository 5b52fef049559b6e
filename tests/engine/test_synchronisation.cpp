#include "ProgramFixture.h"
#include "Trees.h"

#include <QRandomGenerator>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {
const QString A = u"A"_qs;
const QString src = u"src"_qs;
const QString dst = u"dst"_qs;
constexpr qint64 early = 1'600'000'000;
constexpr qint64 same = 1'650'000'000;
constexpr qint64 late = 1'700'000'000;
} // namespace

class TestSynchronisation final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    // One file on both sides: what the rules make of it, with the lines that say so.
    void overwriteRules_data() {
        QTest::addColumn<QStringList>("fields"); // action, overwrite, onlynew
        QTest::addColumn<qint64>("sourceTime");
        QTest::addColumn<QString>("answer"); // "": nothing is asked
        QTest::addColumn<bool>("replaced");
        QTest::addColumn<QString>("line"); // the last action line; S and D: the files with their dates
        const auto row = [](const char* fields, qint64 time, const char* answer, bool replaced, const char* line) {
            QTest::addRow("%s at %lld %s", fields, time, answer)
                << QString::fromLatin1(fields).split(u'/') << time << QString::fromLatin1(answer) << replaced
                << QString::fromLatin1(line);
        };
        row("0/Y/Y", late, "", true, "Copy S to D and overwrite with newer file ...");
        row("0/Y/Y", same, "", false, "File S older/equal as/to file D");
        row("0/Y/Y", early, "", false, "File S older/equal as/to file D");
        row("0/Y/N", early, "", true, "Copy S to D and overwrite with newer file ...");
        row("0/N/Y", early, "No", false, "Overwrite from file '~/src/f' declined by user.");
        row("0/N/Y", early, "Yes", true, "Overwrite D with S");
        row("0/N/Y", same, "", false, "File S older/equal as/to file D");
        row("0/N/Y", late, "", true, "Overwrite D with S");
        row("0/N/N", same, "", true, "Copy and overwrite with newer file S to D");
        row("0/N/N", late, "", true, "Copy and overwrite with newer file S to D");
        row("1/N/N", early, "Yes", true, "Move and overwrite with newer file S to D");
        row("1/N/N", early, "No", false, "Overwrite from file '~/src/f' declined by user.");
        row("1/Y/Y", late, "", true, "Move S to D and overwrite with newer file ...");
        row("2/Y/Y", early, "", false, "Change detected - - No action selected! (~/src/f) ");
        row("2/Y/Y", late, "", false, "Change detected - - No action selected! (~/src/f) ");
        row("2/N/Y", early, "Yes", false, "Change detected - - No action selected! (~/src/f) ");
        row("3/Y/N", early, "", true, "Copy S to D and overwrite with newer file ..."); // a mirror brings it back
        row("3/Y/Y", early, "", false, "File S older/equal as/to file D");
        row("//", early, "", true, "Copy S to D and overwrite with newer file ...");
        row("0/n/y", early, "", true, "Copy S to D and overwrite with newer file ..."); // no flags
    }
    void overwriteRules() {
        QFETCH(QStringList, fields);
        QFETCH(qint64, sourceTime);
        QFETCH(QString, answer);
        QFETCH(bool, replaced);
        QFETCH(QString, line);
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, fields[0]}, {u"overwrite"_qs, fields[1]}, {u"onlynew"_qs, fields[2]}});
        fixture.Write(u"src/f"_qs, "source", sourceTime);
        fixture.Write(u"dst/f"_qs, "destination", same);
        fixture.prompter.yes = answer == u"Yes";
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        QCOMPARE(fixture.prompter.shown.size(), answer.isEmpty() ? 0U : 1U);
        QCOMPARE(fixture.Read(u"dst/f"_qs), replaced ? QByteArray("source") : QByteArray("destination"));
        QCOMPARE(fixture.Exists(u"src/f"_qs), !(replaced && fields[0] == u"1"));
        const QString date = QDateTime::fromSecsSinceEpoch(sourceTime).toString(u"dd.MM.yyyy HH:mm:ss"_qs);
        line.replace(u" S"_qs, u" '~/src/f' ["_qs + date + u']');
        line.replace(u" D"_qs, u" '~/dst/f' [15.04.2022 05:20:00]"_qs);
        const QStringList log = fixture.Log(A);
        QCOMPARE(log[log.size() - 3], line);
        if (!answer.isEmpty())
            QVERIFY(fixture.prompter.shown[0].text.contains(date + u" - 6 bytes] replace the file"));
    }

    void wholeTrees_data() {
        QTest::addColumn<QString>("action");
        QTest::newRow("copy") << u"0"_qs;
        QTest::newRow("move") << u"1"_qs;
        QTest::newRow("report") << u"2"_qs;
        QTest::newRow("mirror") << u"3"_qs;
    }
    void wholeTrees() {
        QFETCH(QString, action);
        QRandomGenerator random(42);
        for (int round = 0; round < 12; ++round) {
            ProgramFixture fixture;
            fixture.Add(A, {{u"action"_qs, action}, {u"onlynew"_qs, u"N"_qs}, {u"logfile"_qs, QString()}});
            for (const QString& side : {u"src/"_qs, u"dst/"_qs})
                for (int file = 0; file < 25; ++file) {
                    QString path = side;
                    for (int depth = random.bounded(3); depth > 0; --depth)
                        path += u"d%1/"_qs.arg(random.bounded(3));
                    path += u"f%1"_qs.arg(random.bounded(8));
                    fixture.Write(path, QByteArray::number(random.generate()), early + random.bounded(1000));
                }
            Program& program = fixture.Start();
            const auto source = Tree(fixture.Path(src));
            auto expected = Tree(fixture.Path(dst));
            QVERIFY(program.RunNow(A).Succeeded());
            if (action == u"3")
                expected = source;
            else if (action != u"2")
                expected.insert(source);
            QCOMPARE(Tree(fixture.Path(dst)), expected);
            const auto left = Tree(fixture.Path(src));
            if (action == u"1")
                QCOMPARE(left.values().count("<dir>"), left.size());
            else
                QCOMPARE(left, source);
        }
    }

    void mirrorLogsEachDeletionAndSpareWhatTheFilterDoes() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"extensions"_qs, u"txt"_qs}});
        for (const auto& file : {u"src/keep.txt"_qs, u"dst/gone.txt"_qs, u"dst/other.doc"_qs, u"dst/old/a.txt"_qs,
                                 u"dst/old/b.doc"_qs, u"dst/empty/a.txt"_qs})
            fixture.Write(file, "1");
        fixture.Start().RunNow(A);
        QCOMPARE(Tree(fixture.Path(dst)).keys(),
                 QStringList({u"keep.txt"_qs, u"old"_qs, u"old/b.doc"_qs, u"other.doc"_qs}));
        const QStringList log = fixture.Log(A);
        for (const auto& line : {u"Deleting file '~/dst/gone.txt' ..."_qs, u"Deleting file '~/dst/old/a.txt' ..."_qs,
                                 u"Deleting directory '~/dst/empty"_qs})
            QVERIFY2(log.contains(line), qPrintable(line));
    }

    void mirrorEndsWithoutDeletingWhenTheSourceIsReplaced() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"alert"_qs, u"Y"_qs}});
        fixture.Write(u"dst/a"_qs, "1");
        fixture.Write(u"dst/b"_qs, "2");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) {
            QDir().rename(fixture.Path(src), fixture.Path(u"away"_qs));
            QDir().mkpath(fixture.Path(src));
        };
        QVERIFY(program.RunNow(A).interrupted);
        QVERIFY(fixture.Exists(u"dst/a"_qs));
        QVERIFY(fixture.Exists(u"dst/b"_qs));
    }

    void mirrorDeletesNothingForAFolderItCannotList() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}});
        fixture.Write(u"src/sub/folder/f"_qs, "1");
        fixture.Write(u"dst/sub/folder/f"_qs, "2");
        Program& program = fixture.Start();
        const fs::path root = fixture.Native();
        for (const auto& entry : fs::recursive_directory_iterator(root))
            fs::permissions(entry.path(), fs::perms::all);
        fs::permissions(root, fs::perms::all);
        fs::permissions(root / "src/sub", fs::perms(0444)); // names, and no more
        const uid_t user = geteuid();
        QVERIFY(user != 0 || seteuid(65534) == 0); // an administrator can list everything
        const RunOutcome outcome = program.RunNow(A);
        QVERIFY(user != 0 || seteuid(0) == 0);
        fs::permissions(root / "src/sub", fs::perms::all);
        QVERIFY(outcome.failures > 0 && outcome.interrupted);
        QCOMPARE(fixture.Read(u"dst/sub/folder/f"_qs), QByteArray("2"));
    }

    void nestedAndEqualDirectoriesLoseNothing_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        QTest::addColumn<QString>("mayGo"); // from a mirror's destination: what is no part of its source
        QTest::newRow("same") << src << src << QString();
        QTest::newRow("same through a link") << src << u"link"_qs << QString();
        // A mirror clears its destination of what the source's own level lacks.
        QTest::newRow("destination below the source") << src << u"src/x/y"_qs << u"3"_qs;
        QTest::newRow("source below the destination") << u"src/x/y"_qs << src << u"12"_qs;
    }
    void nestedAndEqualDirectoriesLoseNothing() {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        QFETCH(QString, mayGo);
        for (const auto& action : {u"0"_qs, u"1"_qs, u"3"_qs}) {
            ProgramFixture fixture;
            fixture.Write(u"src/f"_qs, "1");
            fixture.Write(u"src/x/g"_qs, "2");
            fixture.Write(u"src/x/y/h"_qs, "3");
            fs::create_symlink("src", fixture.Path(u"link"_qs).toStdString());
            fixture.Add(A, {{u"sourcedir"_qs, fixture.Path(source)},
                            {u"targetdir"_qs, fixture.Path(destination)},
                            {u"action"_qs, action}});
            Program& program = fixture.Start();
            for (int run = 0; run < 3; ++run)
                program.RunNow(A);
            const auto tree = Tree(fixture.Path(src));
            QVERIFY2(tree.size() < 20, "copied into itself");
            for (const char content : {'1', '2', '3'})
                QVERIFY(tree.values().contains(QByteArray(1, content)) ||
                        (action == u"3" && mayGo.contains(QLatin1Char(content))));
        }
    }

    void whatCannotBeHandledIsLoggedAndLeft() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"1"_qs}});
        fixture.Write(u"src/fileOverFolder"_qs, "1");
        fixture.Write(u"dst/fileOverFolder/inner"_qs, "2");
        fixture.Write(u"src/folderOverFile/inner"_qs, "3");
        fixture.Write(u"dst/folderOverFile"_qs, "4");
        fixture.Write(u"src/good"_qs, "5");
        fixture.Write(u"elsewhere/e"_qs, "6");
        const fs::path root = fixture.Native();
        QCOMPARE(mkfifo((root / "src/fifo").c_str(), 0600), 0);
        fs::create_symlink("nowhere", root / "src/dangling");
        fs::create_directory_symlink(root / "elsewhere", root / "src/folderLink");
        fs::create_directory_symlink(root / "elsewhere", root / "dst/surplusLink");
        const RunOutcome outcome = fixture.Start().RunNow(A);
        QCOMPARE(outcome.failures, 2);
        QVERIFY(!outcome.interrupted);
        QCOMPARE(Tree(fixture.Path(src)).keys(),
                 QStringList({u"dangling"_qs, u"fifo"_qs, u"fileOverFolder"_qs, u"folderLink"_qs, u"folderOverFile"_qs,
                              u"folderOverFile/inner"_qs}));
        QCOMPARE(fixture.Read(u"dst/good"_qs), QByteArray("5"));
        QCOMPARE(fixture.Read(u"dst/fileOverFolder/inner"_qs), QByteArray("2"));
        QCOMPARE(fixture.Read(u"dst/folderOverFile"_qs), QByteArray("4"));
        QCOMPARE(fixture.Read(u"elsewhere/e"_qs), QByteArray("6"));
        QVERIFY(fixture.Log(A).contains(u"Copy/move from '~/src/fileOverFolder' failed - Error21"_qs));
    }

    void missingDirectories_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        QTest::addColumn<QString>("action");
        const auto row = [](const char* name, const char* source, const char* destination, const char* action) {
            QTest::newRow(name) << QString::fromLatin1(source) << QString::fromLatin1(destination)
                                << QString::fromLatin1(action);
        };
        row("source gone", "gone", "dst", "3");
        row("destination gone", "src", "gone", "3");
        row("source empty", "", "dst", "3");
        row("destination blank", "src", "  ", "0");
        row("source is a file", "file", "dst", "0");
        row("reporting needs no destination", "src", "", "2");
    }
    void missingDirectories() {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        QFETCH(QString, action);
        const bool missing = action != u"2";
        for (const bool stop : {true, false}) {
            ProgramFixture fixture;
            const auto absolute = [&](const QString& path) {
                return path.trimmed().isEmpty() ? path : fixture.Path(path);
            };
            fixture.Add(A, {{u"sourcedir"_qs, absolute(source)},
                            {u"targetdir"_qs, absolute(destination)},
                            {u"action"_qs, action}});
            fixture.Write(u"dst/keep"_qs, "1");
            fixture.Write(u"file"_qs, "2");
            fixture.Write(u"app.log"_qs, "");
            Program& program = fixture.Start();
            program.Options().StopIfFolderNotExist = stop ? 1 : 0;
            QCOMPARE(program.RunNow(A).directoryMissing, missing);
            QVERIFY(fixture.Exists(u"dst/keep"_qs));
            QCOMPARE(fixture.Runs(A), missing ? 0 : 1);
            QCOMPARE(program.List().IsChecked(0), !(missing && stop));
            const QByteArray line = stop ? "' not found, monitoring 'A' automatically stopped.\r\n"
                                         : "' not found, monitoring 'A' suspended for this interval.\r\n";
            QCOMPARE(fixture.Read(u"app.log"_qs).contains(line), missing);
        }
    }

    void reactionsComeInOrderAndOnlyForChanges() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"alert"_qs, u"Y"_qs},
                        {u"executeable"_qs, u"/bin/tool"_qs},
                        {u"sendmail"_qs, u"1"_qs},
                        {u"recipient"_qs, u"me@example.org"_qs}});
        fixture.Write(u"src/new"_qs, "1");
        Program& program = fixture.Start();
        bool boxFirst = false;
        fixture.prompter.onAsk = [&](const Message&) { boxFirst = fixture.process->opened.isEmpty(); };
        program.RunNow(A);
        program.RunNow(A);
        QVERIFY(boxFirst);
        QCOMPARE(fixture.process->opened, QStringList{u"/bin/tool"_qs});
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QStringList log = fixture.Log(A).mid(0, 7);
        log[4] = log[4].left(9);
        QCOMPARE(log,
                 QStringList({u"Monitoring in process ..."_qs, u"Checking starts ..."_qs,
                              u"Change detected - File/directory: ~/src/new"_qs, u"Executing file: '/bin/tool' ..."_qs,
                              u"Copy file"_qs, u"E-Mail send to 'me@example.org'"_qs, u"Checking finished."_qs}));
    }

    void safeExitEndsTheProgramOnlyWhenAllowed() {
        for (const bool allowed : {true, false}) {
            ProgramFixture fixture;
            fixture.Add(A);
            fixture.Write(u"src/f"_qs, "1");
            Program& program = fixture.Start();
            program.Options().ExitAlert = allowed ? 1 : 0;
            fixture.keys.down = true;
            program.RunNow(A);
            QCOMPARE(fixture.process->endedWith.has_value(), allowed);
            QCOMPARE(fixture.Exists(u"dst/f"_qs), !allowed);
            QCOMPARE(fixture.prompter.shown.size(), allowed ? 1U : 0U);
        }
    }

    void closingEndsTheRunAfterThePresentFile() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"alert"_qs, u"Y"_qs}});
        fixture.Write(u"src/a"_qs, "1");
        fixture.Write(u"src/b"_qs, "2");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) { program.RequestEnd(); };
        QVERIFY(program.RunNow(A).interrupted);
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QVERIFY(!fixture.Exists(u"dst/b"_qs));
        QVERIFY(fixture.Exists(u"src/a"_qs) && fixture.Exists(u"src/b"_qs));

        // A very large one is given up after a while: the system would kill a program that takes longer.
        ProgramFixture large;
        large.Add(A);
        large.Write(u"src/large"_qs, QByteArray(20'000'000, 'x'));
        Program& closing = large.Start();
        large.pump->onYield = [&] {
            if (closing.State().Progress().bytes > 0)
                closing.RequestEnd();
        };
        large.clock->step = std::chrono::seconds(5);
        QVERIFY(closing.RunNow(A).interrupted);
        QVERIFY(Tree(large.Path(dst)).isEmpty());
        QVERIFY(large.Exists(u"src/large"_qs));
    }
};

QTEST_GUILESS_MAIN(TestSynchronisation)
#include "test_synchronisation.moc"
