#include "ProgramFixture.h"
#include "Trees.h"

#include <QRandomGenerator>
#include <filesystem>
#include <sys/stat.h>

namespace {
const QString A = QStringLiteral("A");
QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}
constexpr qint64 early = 1'600'000'000;
constexpr qint64 late = 1'700'000'000;
} // namespace

class TestSynchronisation final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    // One file on both sides: what the rules make of it, with the lines that say so.
    void overwriteRules_data() {
        QTest::addColumn<QString>("flags"); // action, overwrite, onlynew
        QTest::addColumn<qint64>("sourceTime");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<int>("questions");
        QTest::addColumn<bool>("replaced");
        QTest::addColumn<QString>("line"); // start of the last action line
        QTest::newRow("newer replaces") << "0YY" << late << false << 0 << true
                                        << "Copy '~/src/f' [14.11.2023 22:13:20] to '~/dst/f' [";
        QTest::newRow("older is left") << "0YY" << early << false << 0 << false
                                       << "File '~/src/f' [13.09.2020 12:26:40] older/equal as/to file '~/dst/f' [";
        QTest::newRow("older replaces when dates do not count")
            << "0YN" << early << false << 0 << true << "Copy '~/src/f' [";
        QTest::newRow("older asks, No") << "0NY" << early << false << 1 << false
                                        << "Overwrite from file '~/src/f' declined by user.";
        QTest::newRow("older asks, Yes") << "0NY" << early << true << 1 << true << "Overwrite '~/dst/f' [";
        QTest::newRow("newer does not ask") << "0NY" << late << false << 0 << true << "Overwrite '~/dst/f' [";
        QTest::newRow("newer does not ask, any date")
            << "0NN" << late << false << 0 << true << "Copy and overwrite with newer file '~/src/f' [";
        QTest::newRow("move, older asks, Yes")
            << "1NN" << early << true << 1 << true << "Move and overwrite with newer file '~/src/f' [";
        QTest::newRow("move, older asks, No")
            << "1NN" << early << false << 1 << false << "Overwrite from file '~/src/f' declined by user.";
        QTest::newRow("move newer") << "1YY" << late << false << 0 << true << "Move '~/src/f' [";
        QTest::newRow("report") << "2YY" << late << false << 0 << false
                                << "Change detected - - No action selected! (~/src/f) ";
        QTest::newRow("report asks first")
            << "2NY" << early << true << 1 << false << "Change detected - - No action selected! (~/src/f) ";
        QTest::newRow("mirror brings an older source back")
            << "3YN" << early << false << 0 << true << "Copy '~/src/f' [";
    }
    void overwriteRules() {
        QFETCH(QString, flags);
        QFETCH(qint64, sourceTime);
        QFETCH(bool, yes);
        QFETCH(bool, replaced);
        QFETCH(QString, line);
        ProgramFixture fixture;
        fixture.Add(A, {{text("action"), flags.mid(0, 1)},
                        {text("overwrite"), flags.mid(1, 1)},
                        {text("onlynew"), flags.mid(2, 1)}});
        fixture.Write(text("src/f"), "source", sourceTime);
        fixture.Write(text("dst/f"), "destination", (early + late) / 2);
        fixture.prompter.yes = yes;
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        QTEST(int(fixture.prompter.shown.size()), "questions");
        QCOMPARE(fixture.Read(text("dst/f")), replaced ? QByteArray("source") : QByteArray("destination"));
        QCOMPARE(fixture.Exists(text("src/f")), !(replaced && flags.startsWith(u'1')));
        const QStringList log = fixture.Log(A);
        QVERIFY2(log[log.size() - 3].startsWith(line), qPrintable(log.join(u'\n')));
    }

    void wholeTrees_data() {
        QTest::addColumn<QString>("action");
        QTest::newRow("copy") << "0";
        QTest::newRow("move") << "1";
        QTest::newRow("report") << "2";
        QTest::newRow("mirror") << "3";
    }
    void wholeTrees() {
        QFETCH(QString, action);
        QRandomGenerator random(42);
        for (int round = 0; round < 12; ++round) {
            ProgramFixture fixture;
            fixture.Add(A, {{text("action"), action}, {text("onlynew"), text("N")}, {text("logfile"), QString()}});
            for (const QString& side : {text("src/"), text("dst/")})
                for (int file = 0; file < 25; ++file) {
                    QString path = side;
                    for (int depth = random.bounded(3); depth > 0; --depth)
                        path += QStringLiteral("d%1/").arg(random.bounded(3));
                    path += QStringLiteral("f%1").arg(random.bounded(8));
                    fixture.Write(path, QByteArray::number(random.generate()), early + random.bounded(1000));
                }
            Program& program = fixture.Start();
            const auto source = Tree(fixture.Path(text("src")));
            const auto destination = Tree(fixture.Path(text("dst")));
            QVERIFY(program.RunNow(A).Succeeded());
            auto expected = destination;
            if (action == u"3")
                expected = source;
            else if (action != u"2")
                expected.insert(source);
            QCOMPARE(Tree(fixture.Path(text("dst"))), expected);
            const auto left = Tree(fixture.Path(text("src")));
            if (action == u"1")
                QVERIFY(
                    std::all_of(left.begin(), left.end(), [](const QByteArray& entry) { return entry == "<dir>"; }));
            else
                QCOMPARE(left, source);
        }
    }

    void mirrorLogsEachDeletionAndSpareWhatTheFilterDoes() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("action"), text("3")}, {text("extensions"), text("txt")}});
        fixture.Write(text("src/keep.txt"), "1");
        fixture.Write(text("dst/gone.txt"), "2");
        fixture.Write(text("dst/other.doc"), "3");
        fixture.Write(text("dst/old/a.txt"), "4");
        fixture.Write(text("dst/old/b.doc"), "5");
        fixture.Write(text("dst/empty/a.txt"), "6");
        fixture.Start().RunNow(A);
        QCOMPARE(Tree(fixture.Path(text("dst"))).keys(),
                 QStringList({text("keep.txt"), text("old"), text("old/b.doc"), text("other.doc")}));
        const QStringList log = fixture.Log(A);
        for (const char* line : {"Deleting file '~/dst/gone.txt' ...", "Deleting file '~/dst/old/a.txt' ...",
                                 "Deleting directory '~/dst/empty"})
            QVERIFY2(log.contains(text(line)), line);
    }

    void mirrorEndsWithoutDeletingWhenTheSourceIsReplaced() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("action"), text("3")}, {text("alert"), text("Y")}});
        fixture.Write(text("dst/a"), "1");
        fixture.Write(text("dst/b"), "2");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) {
            QDir().rename(fixture.Path(text("src")), fixture.Path(text("away")));
            QDir().mkpath(fixture.Path(text("src")));
        };
        QVERIFY(program.RunNow(A).interrupted);
        QVERIFY(fixture.Exists(text("dst/a")));
        QVERIFY(fixture.Exists(text("dst/b")));
    }

    void nestedAndEqualDirectoriesLoseNothing_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        QTest::newRow("same") << "src"
                              << "src";
        QTest::newRow("same through a link") << "src"
                                             << "link";
        QTest::newRow("destination below the source") << "src"
                                                      << "src/x/y";
        QTest::newRow("source below the destination") << "src/x/y"
                                                      << "src";
    }
    void nestedAndEqualDirectoriesLoseNothing() {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        for (const char* action : {"0", "1", "3"}) {
            ProgramFixture fixture;
            fixture.Write(text("src/f"), "1");
            fixture.Write(text("src/x/g"), "2");
            fixture.Write(text("src/x/y/h"), "3");
            std::filesystem::create_symlink("src", fixture.Path(text("link")).toStdString());
            fixture.Add(A, {{text("sourcedir"), fixture.Path(source)},
                            {text("targetdir"), fixture.Path(destination)},
                            {text("action"), text(action)}});
            Program& program = fixture.Start();
            for (int run = 0; run < 3; ++run)
                program.RunNow(A);
            const auto tree = Tree(fixture.Path(text("src")));
            QVERIFY2(tree.size() < 20, "copied into itself");
            // A mirror may delete what is no part of its source; the source itself must be whole.
            const bool mirrorsUp = destination == u"src" && source != u"src";
            if (!(mirrorsUp && *action == '3')) {
                QVERIFY(tree.values().contains("1"));
                QVERIFY(tree.values().contains("2"));
            }
            // A mirror clears its destination of what the source's own level lacks.
            if (!(destination == u"src/x/y" && *action == '3'))
                QVERIFY(tree.values().contains("3"));
        }
    }

    void whatCannotBeHandledIsLoggedAndLeft() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("action"), text("1")}});
        fixture.Write(text("src/fileOverFolder"), "1");
        fixture.Write(text("dst/fileOverFolder/inner"), "2");
        fixture.Write(text("src/folderOverFile/inner"), "3");
        fixture.Write(text("dst/folderOverFile"), "4");
        fixture.Write(text("src/good"), "5");
        fixture.Write(text("elsewhere/e"), "6");
        const auto native = [&](const char* path) { return fixture.Path(text(path)).toStdString(); };
        QCOMPARE(mkfifo(native("src/fifo").c_str(), 0600), 0);
        std::filesystem::create_symlink("nowhere", native("src/dangling"));
        std::filesystem::create_directory_symlink(native("elsewhere"), native("src/folderLink"));
        std::filesystem::create_directory_symlink(native("elsewhere"), native("dst/surplusLink"));
        const RunOutcome outcome = fixture.Start().RunNow(A);
        QCOMPARE(outcome.failures, 2);
        QVERIFY(!outcome.interrupted);
        const auto source = Tree(fixture.Path(text("src")));
        QCOMPARE(source.keys(), QStringList({text("dangling"), text("fifo"), text("fileOverFolder"), text("folderLink"),
                                             text("folderOverFile"), text("folderOverFile/inner")}));
        QCOMPARE(fixture.Read(text("dst/good")), QByteArray("5"));
        QCOMPARE(fixture.Read(text("dst/fileOverFolder/inner")), QByteArray("2"));
        QCOMPARE(fixture.Read(text("dst/folderOverFile")), QByteArray("4"));
        QCOMPARE(fixture.Read(text("elsewhere/e")), QByteArray("6"));
        QVERIFY(fixture.Log(A).contains(text("Copy/move from '~/src/fileOverFolder' failed - Error21")));
    }

    void missingDirectories_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("missing");
        QTest::newRow("source gone") << "gone"
                                     << "dst"
                                     << "3" << true;
        QTest::newRow("destination gone") << "src"
                                          << "gone"
                                          << "3" << true;
        QTest::newRow("source empty") << ""
                                      << "dst"
                                      << "3" << true;
        QTest::newRow("destination blank") << "src"
                                           << "  "
                                           << "0" << true;
        QTest::newRow("source is a file") << "file"
                                          << "dst"
                                          << "0" << true;
        QTest::newRow("reporting needs no destination") << "src"
                                                        << ""
                                                        << "2" << false;
    }
    void missingDirectories() {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        QFETCH(QString, action);
        QFETCH(bool, missing);
        for (const bool stop : {true, false}) {
            ProgramFixture fixture;
            const auto absolute = [&](const QString& path) {
                return path.trimmed().isEmpty() ? path : fixture.Path(path);
            };
            fixture.Add(A, {{text("sourcedir"), absolute(source)},
                            {text("targetdir"), absolute(destination)},
                            {text("action"), action}});
            fixture.Write(text("dst/keep"), "1");
            fixture.Write(text("file"), "2");
            fixture.Write(text("app.log"), "");
            Program& program = fixture.Start();
            program.Options().StopIfFolderNotExist = stop ? 1 : 0;
            QCOMPARE(program.RunNow(A).directoryMissing, missing);
            QVERIFY(fixture.Exists(text("dst/keep")));
            QCOMPARE(fixture.Runs(A), missing ? 0 : 1);
            QCOMPARE(program.List().IsChecked(0), !(missing && stop));
            if (missing) {
                const QString directory = source == u"src" || source == u"file" ? QString() : absolute(source);
                QVERIFY(fixture.Log(A).join(u'\n').contains(
                    text(stop ? "' not found, monitoring stopped automatically."
                              : "' not found, monitoring suspended for this interval.")));
                QVERIFY(fixture.Read(text("app.log"))
                            .contains(stop ? "' not found, monitoring 'A' automatically stopped.\r\n"
                                           : "' not found, monitoring 'A' suspended for this interval.\r\n"));
            }
        }
    }

    void reactionsComeInOrderAndOnlyForChanges() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("alert"), text("Y")},
                        {text("executeable"), text("/bin/tool")},
                        {text("sendmail"), text("1")},
                        {text("recipient"), text("me@example.org")}});
        fixture.Write(text("src/new"), "1");
        Program& program = fixture.Start();
        bool boxFirst = false;
        fixture.prompter.onAsk = [&](const Message&) { boxFirst = fixture.process->opened.isEmpty(); };
        program.RunNow(A);
        program.RunNow(A);
        QVERIFY(boxFirst);
        QCOMPARE(fixture.process->opened, QStringList{text("/bin/tool")});
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QStringList log = fixture.Log(A).mid(0, 7);
        log[4] = log[4].left(9);
        QCOMPARE(log, QStringList({text("Monitoring in process ..."), text("Checking starts ..."),
                                   text("Change detected - File/directory: ~/src/new"),
                                   text("Executing file: '/bin/tool' ..."), text("Copy file"),
                                   text("E-Mail send to 'me@example.org'"), text("Checking finished.")}));
    }

    void safeExitEndsTheProgramOnlyWhenAllowed() {
        for (const bool allowed : {true, false}) {
            ProgramFixture fixture;
            fixture.Add(A);
            fixture.Write(text("src/f"), "1");
            Program& program = fixture.Start();
            program.Options().ExitAlert = allowed ? 1 : 0;
            fixture.keys.down = true;
            program.RunNow(A);
            QCOMPARE(fixture.process->endedWith.has_value(), allowed);
            QCOMPARE(fixture.Exists(text("dst/f")), !allowed);
            QCOMPARE(fixture.prompter.shown.size(), allowed ? 1U : 0U);
        }
    }

    void closingEndsTheRunAfterThePresentFile() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("alert"), text("Y")}});
        fixture.Write(text("src/a"), "1");
        fixture.Write(text("src/b"), "2");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) { program.RequestEnd(); };
        QVERIFY(program.RunNow(A).interrupted);
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QVERIFY(!fixture.Exists(text("dst/b")));
        QVERIFY(fixture.Exists(text("src/a")) && fixture.Exists(text("src/b")));
    }
};

QTEST_GUILESS_MAIN(TestSynchronisation)
#include "test_synchronisation.moc"
