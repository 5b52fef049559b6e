#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "Table.h"
#include "Trees.h"
#include "modDateCompare.h"

namespace {
const QString A = u"A"_qs;
const QString src = u"src"_qs;
const QString dst = u"dst"_qs;
constexpr qint64 early = 1'600'000'000;
constexpr qint64 same = 1'650'000'000;
constexpr qint64 late = 1'700'000'000;
const QString transcript = uR"(Activity 'Mirror' - Monitoring in process ...
Activity 'Mirror' - Checking starts ...
Activity 'Mirror' - Copy '~/src/newer' [14.11.2023 22:13:20] to '~/dst/newer' [13.09.2020 12:26:40] and overwrite with newer file ...
Activity 'Mirror' - Deleting file '~/dst/surplus' ...
Activity 'Mirror' - Copy file '~/src/new' [14.11.2023 22:13:20] to '~/dst/new'
Activity 'Mirror' - File '~/src/newer' [14.11.2023 22:13:20] older/equal as/to file '~/dst/newer' [14.11.2023 22:13:20]
Activity 'Mirror' - File '~/src/older' [13.09.2020 12:26:40] older/equal as/to file '~/dst/older' [14.11.2023 22:13:20]
Activity 'Mirror' - Copying directory '~/src/sub' to '~/dst/sub
Activity 'Mirror' - Deleting directory '~/dst/old
Activity 'Mirror' - Checking finished.
Activity 'Mirror' - idle
Activity 'Move' - Monitoring in process ...
Activity 'Move' - Checking starts ...
Activity 'Move' - Move file '~/from/moved' [14.11.2023 22:13:20] to '~/dst/moved'
Activity 'Move' - Checking finished.
Activity 'Move' - idle
Activity 'Report' - Monitoring in process ...
Activity 'Report' - Checking starts ...
Activity 'Report' - Change detected - - No action selected! (~/src/new) 
Activity 'Report' - Change detected - - No action selected! (~/src/newer) 
Activity 'Report' - Change detected - - No action selected! (~/src/older) 
Activity 'Report' - Change detected - - No action selected! (~/src/sub/new) 
Activity 'Report' - Checking finished.
Activity 'Report' - idle
Activity 'Missing' - Monitoring in process ...
Activity 'Missing' - Checking starts ...
Activity 'Missing' - Directory '~/none' not found, monitoring stopped automatically.
Activity 'Missing' - idle
Directory '~/none' not found, monitoring 'Missing' automatically stopped.
moved: from/moved
new: src/new
newer: src/newer
older: newer
sub: <dir>
sub/new: src/sub/new
)"_qs;
} // namespace

// What a run says, asks and starts, and when it does nothing. What it does to the two trees is test_model's.
class TestSynchronisation final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void linesOfAFileOnBothSides_data() {
        // Fields: action, overwrite, onlynew; an answer of "": nothing is asked; S and D: the files with their dates.
        const Table<QString, qint64, QString, QString> row;
        row.Add("0/Y/Y", late, "", "Copy S to D and overwrite with newer file ...");
        row.Add("1/Y/N", early, "", "Move S to D and overwrite with newer file ...");
        row.Add("3/Y/Y", early, "", "File S older/equal as/to file D");
        row.Add("0/N/Y", late, "", "Overwrite D with S");
        row.Add("0/N/N", same, "", "Copy and overwrite with newer file S to D");
        row.Add("1/N/N", early, "Yes", "Move and overwrite with newer file S to D");
        row.Add("1/N/N", early, "No", "Overwrite from file '~/src/f' declined by user.");
        row.Add("2/N/Y", early, "Yes", "Change detected - - No action selected! (~/src/f) ");
    }
    void linesOfAFileOnBothSides() {
        auto [record, sourceTime, answer, line] = Table<QString, qint64, QString, QString>::Current();
        const QStringList fields = record.split(u'/');
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, fields[0]}, {u"overwrite"_qs, fields[1]}, {u"onlynew"_qs, fields[2]}});
        fixture.Write(u"src/f"_qs, "source", sourceTime);
        fixture.Write(u"dst/f"_qs, "destination", same);
        fixture.prompter.yes = answer == u"Yes";
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        const QString date = QDateTime::fromSecsSinceEpoch(sourceTime).toString(u"dd.MM.yyyy HH:mm:ss"_qs);
        line.replace(u" S"_qs, u" '~/src/f' ["_qs + date + u']');
        line.replace(u" D"_qs, u" '~/dst/f' [15.04.2022 05:20:00]"_qs);
        const QStringList log = fixture.Log(A);
        QCOMPARE(log[log.size() - 3], line);
        QCOMPARE(fixture.prompter.shown.size(), answer.isEmpty() ? 0U : 1U);
        if (!answer.isEmpty())
            QVERIFY(fixture.prompter.shown[0].text.contains(date + u" - 6 bytes] replace the file"));
    }

    void timesOnFatAreEvenSeconds() {
        constexpr qint64 s = 1'000'000'000;
        QCOMPARE(modDateCompare::Compare({5 * s + 5, 1}, {4 * s, 2 * s}), 0);
        QCOMPARE(modDateCompare::Compare({4 * s, 2 * s}, {3 * s + 5, 1}), 1);
    }

    void linesOfAMirror() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"extensions"_qs, u"txt"_qs}});
        for (const auto& file :
             {u"src/a.txt"_qs, u"src/keep.txt"_qs, u"src/new/n"_qs, u"dst/a.txt/inner.doc"_qs, u"dst/gone.txt"_qs,
              u"dst/other.doc"_qs, u"dst/old/a.txt"_qs, u"dst/old/b.doc"_qs, u"dst/empty/a.txt"_qs})
            fixture.Write(file, "1");
        Program& program = fixture.Start();
        QCOMPARE(program.RunNow(A).failures, 1);
        QCOMPARE(
            fixture.Log(A).mid(2, 8),
            QStringList({u"Deleting file '~/dst/gone.txt' ..."_qs, u"Copy/move from '~/src/a.txt' failed - Error21"_qs,
                         u"Copy file '~/src/keep.txt' [14.11.2023 22:13:20] to '~/dst/keep.txt'"_qs,
                         u"Copying directory '~/src/new' to '~/dst/new"_qs, u"Deleting file '~/dst/empty/a.txt' ..."_qs,
                         u"Deleting directory '~/dst/empty"_qs, u"Deleting file '~/dst/old/a.txt' ..."_qs,
                         u"Checking finished."_qs}));
        program.File().Write(A, ActivityField::Extensions, {});
        program.RunNow(A);
        QCOMPARE(fixture.Log(A).filter(u"Deleting directory"_qs).last(), u"Deleting directory '~/dst/old"_qs);
        QCOMPARE(fixture.Log(A).filter(u"/dst/old/"_qs).size(), 1); // one line for the whole tree
    }

    void nestedAndEqualDirectoriesLoseNothing_data() {
        // The last: what may go from a mirror's destination, as it is no part of its source.
        const Table<QString, QString, QString> row;
        row("same", src, src, QString());
        row("same through a link", src, "link", QString());
        // A mirror clears its destination of what the source's own level lacks.
        row("destination below the source", src, "src/x/y", "34");
        row("source below the destination", "src/x/y", src, "12");
    }
    void nestedAndEqualDirectoriesLoseNothing() {
        const auto [source, destination, mayGo] = Table<QString, QString, QString>::Current();
        for (const auto& action : {u"0"_qs, u"1"_qs, u"3"_qs}) {
            ProgramFixture fixture;
            fixture.Write(u"src/f"_qs, "1");
            fixture.Write(u"src/x/g"_qs, "2");
            fixture.Write(u"src/x/y/h"_qs, "3");
            fixture.Write(u"src/x/y/x/y/k"_qs, "4");
            if (!SystemWorld::Link("src", fixture.Native(u"link"_qs)) && destination == u"link")
                QSKIP("this system makes no links");
            fixture.Add(A, {{u"sourcedir"_qs, fixture.Path(source)},
                            {u"targetdir"_qs, fixture.Path(destination)},
                            {u"action"_qs, action}});
            Program& program = fixture.Start();
            for (int run = 0; run < 3; ++run)
                program.RunNow(A);
            const auto tree = Tree(fixture.Path(src));
            QVERIFY2(tree.size() < 20, "copied into itself");
            for (const char content : {'1', '2', '3', '4'})
                QVERIFY(tree.values().contains(QByteArray(1, content)) ||
                        (action == u"3" && mayGo.contains(QLatin1Char(content))));
            // The walk took the source for a destination once, and deleted its files.
            QCOMPARE(fixture.Log(A).contains(
                         u"Directory '~/src/x' is left alone: it is or contains a directory of this activity."_qs),
                     source != src);
        }
    }

    void missingDirectories_data() {
        const Table<QString, QString, QString> row;
        row("source gone", "gone", "dst", "3");
        row("destination gone", "src", "gone", "3");
        row("source empty", "", "dst", "3");
        row("destination blank", "src", "  ", "0");
        row("source is a file", "app.log", "dst", "0");
        row("reporting needs no destination", "src", "", "2");
    }
    void missingDirectories() {
        const auto [source, destination, action] = Table<QString, QString, QString>::Current();
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
        fixture.Add(A, u"alert=Y executeable=/bin/tool sendmail=1 recipient=me@example.org"_qs);
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

    // The system would kill a program that takes longer.
    void closingGivesUpALargeFileAfterAWhile() {
        ProgramFixture fixture;
        fixture.Add(A);
        fixture.Write(u"src/large"_qs, QByteArray(20'000'000, 'x'));
        Program& program = fixture.Start();
        fixture.pump->onYield = [&] {
            if (program.State().Progress().done.bytes > 0)
                program.RequestEnd();
        };
        fixture.clock->step = std::chrono::seconds(5);
        QVERIFY(program.RunNow(A).interrupted);
        QVERIFY(Tree(fixture.Path(dst)).isEmpty());
        QVERIFY(fixture.Exists(u"src/large"_qs));
    }

    // Whoever uses none of the safety settings, no summary and no notices gets the logs and files of ever.
    void nothingShowsOfWhatIsNotUsed() {
        ProgramFixture fixture;
        fixture.Add(u"Mirror"_qs, {{u"action"_qs, u"3"_qs}});
        fixture.Add(u"Move"_qs, {{u"action"_qs, u"1"_qs}, {u"sourcedir"_qs, fixture.Folder(u"from"_qs)}});
        fixture.Add(u"Report"_qs, {{u"action"_qs, u"2"_qs}});
        fixture.Add(u"Missing"_qs, {{u"sourcedir"_qs, fixture.Path(u"none"_qs)}});
        for (const auto* file : {"src/new", "src/newer", "src/sub/new", "from/moved"})
            fixture.Write(QLatin1String(file), file, 1'700'000'000);
        for (const auto* file : {"dst/newer", "src/older", "dst/surplus", "dst/old/sub/surplus"})
            fixture.Write(QLatin1String(file), file, 1'600'000'000);
        fixture.Write(u"dst/older"_qs, "newer", 1'700'000'000);
        Program& program = fixture.Start();
        fixture.Write(u"app.log"_qs, {});
        QByteArray all;
        for (const QString& name : program.File().Names()) {
            std::ignore = program.RunNow(name);
            all += fixture.Read(name + u".log"_qs);
        }
        all += fixture.Read(u"app.log"_qs);
        const QMap<QString, QByteArray> tree = Tree(fixture.Path(u"dst"_qs));
        for (auto entry = tree.begin(); entry != tree.end(); ++entry)
            all += entry.key().toUtf8() + ": " + entry.value() + "\n";
        QString text = QString::fromLocal8Bit(all).replace(fixture.Path(), u"~"_qs).remove(u'\r');
        text.remove(QRegularExpression(u"(?m)^-> \\[[^\\]]*\\] "_qs)).replace(u'\\', u'/');
        QCOMPARE(text.split(u'\n'), transcript.split(u'\n'));
    }
};

QTEST_GUILESS_MAIN(TestSynchronisation)
#include "test_synchronisation.moc"
