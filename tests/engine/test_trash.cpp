// What a run deletes and replaces is kept, comes back, and goes when its time is over.
#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "Table.h"
#include "Trees.h"

#include <fstream>

namespace {
const QString A = u"A"_qs;
constexpr qint64 early = 1'600'000'000;
constexpr qint64 late = 1'700'000'000;
constexpr std::chrono::hours day{24};

/// An activity that keeps for three days.
class Keeping : public ProgramFixture {
  public:
    explicit Keeping(const QString& action = u"3"_qs) {
        Add(A, {{u"action"_qs, action}, {u"keepdays"_qs, u"3"_qs}});
        Write(u"src/replaced"_qs, "new", late);
        Write(u"src/sub/replaced"_qs, "new", late);
        Write(u"dst/replaced"_qs, "old", early);
        Write(u"dst/sub/replaced"_qs, "old", early);
        Write(u"dst/deleted"_qs, "surplus", early);
        Write(u"dst/gone/sub/deleted"_qs, "surplus", early);
        Folder(u"dst/gone/empty"_qs);
        before = destination();
    }

    RunOutcome Run() { return program->RunNow(A); }
    UndoOutcome UndoLast() {
        const std::vector<KeptRun> runs = program->KeptIn(Native(u"dst"_qs));
        return runs.empty() ? UndoOutcome{.isInterrupted = true} : program->Undo(Native(u"dst"_qs), runs.front());
    }

    /// Without the trash.
    QMap<QString, QByteArray> destination() const {
        QMap<QString, QByteArray> tree = Tree(Path(u"dst"_qs));
        for (const QString& path : tree.keys())
            if (path.startsWith(u".kalvenor-trash"_qs))
                tree.remove(path);
        return tree;
    }
    /// The kept files, by their old paths.
    QMap<QString, QByteArray> Kept() const {
        QMap<QString, QByteArray> tree;
        for (const QString& run : QDir(Path(u"dst/.kalvenor-trash"_qs)).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            tree.insert(Tree(Path(u"dst/.kalvenor-trash/"_qs + run + u"/files"_qs)));
        return tree;
    }

    QMap<QString, QByteArray> before;
};
} // namespace

class TestTrash final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void whatARunTakesComesBack_data() {
        const Table<QString, int> row;
        row("copy", "0", 2);
        row("move", "1", 2);
        row("mirror", "3", 7); // two replaced, two deleted, three folders
    }
    void whatARunTakesComesBack() {
        const auto [action, count] = Table<QString, int>::Current();
        Keeping fixture(action);
        fixture.Start();
        QVERIFY(fixture.Run().Succeeded());
        QCOMPARE(fixture.Read(u"dst/replaced"_qs), QByteArray("new"));
        QCOMPARE(fixture.Exists(u"dst/gone"_qs), action != u"3");
        QCOMPARE(fixture.Kept().value(u"sub/replaced"_qs), QByteArray("old"));
        QCOMPARE(fixture.Log(A).filter(u"kept in '~/dst/.kalvenor-trash/"_qs).size(), 1);
        const UndoOutcome undone = fixture.UndoLast();
        QVERIFY(undone.Succeeded());
        QCOMPARE(undone.restored, count);
        QCOMPARE(fixture.destination(), fixture.before);
        QCOMPARE(QFileInfo(fixture.Path(u"dst/replaced"_qs)).lastModified().toSecsSinceEpoch(), early);
        // What had taken their place is kept in turn, so that the undo can be undone.
        QCOMPARE(fixture.Kept().value(u"sub/replaced"_qs), QByteArray("new"));
        QVERIFY(fixture.UndoLast().Succeeded());
        QCOMPARE(fixture.Read(u"dst/sub/replaced"_qs), QByteArray("new"));
    }

    void nothingIsKeptUnasked() {
        Keeping fixture;
        fixture.Start().File().Write(A, ActivityField::KeepDays, QString());
        QVERIFY(fixture.Run().Succeeded());
        QVERIFY(!fixture.Exists(u"dst/.kalvenor-trash"_qs) && !fixture.Exists(u"dst/deleted"_qs));
        QVERIFY(fixture.Log(A).filter(u"kept"_qs).isEmpty());
    }

    // Whoever has used a name since, or changed a file: it is theirs.
    void whatIsNotOfTheRunStays() {
        Keeping fixture;
        fixture.Start();
        QVERIFY(fixture.Run().Succeeded());
        fixture.Write(u"dst/replaced"_qs, "mine", late + 5);
        fixture.Write(u"dst/deleted"_qs, "mine too", early);
        fixture.Write(u"dst/gone"_qs, "a file", early);
        const UndoOutcome undone = fixture.UndoLast();
        QCOMPARE(undone.restored, 1);
        QCOMPARE(undone.left, 3);
        QCOMPARE(undone.notes.size(), 3);
        QCOMPARE(fixture.Read(u"dst/replaced"_qs), QByteArray("mine"));
        QCOMPARE(fixture.Read(u"dst/deleted"_qs), QByteArray("mine too"));
        QCOMPARE(fixture.Read(u"dst/gone"_qs), QByteArray("a file"));
        QCOMPARE(fixture.Kept().value(u"gone/sub/deleted"_qs), QByteArray("surplus"));
        // With the names free again, the rest comes back.
        for (const auto* name : {"dst/replaced", "dst/deleted", "dst/gone"})
            QVERIFY(QFile::remove(fixture.Path(QLatin1String(name))));
        const std::vector<KeptRun> runs = fixture.program->KeptIn(fixture.Native(u"dst"_qs));
        QVERIFY(fixture.program->Undo(fixture.Native(u"dst"_qs), runs.back()).Succeeded());
        QCOMPARE(fixture.Read(u"dst/replaced"_qs), QByteArray("old"));
        QVERIFY(fixture.Exists(u"dst/gone/empty"_qs));
    }

    void theTrashIsNobodysSource() {
        Keeping fixture;
        fixture.Add(u"Onward"_qs,
                    {{u"sourcedir"_qs, fixture.Path("dst")}, {u"targetdir"_qs, fixture.Folder(u"far"_qs)}});
        fixture.Add(u"Over"_qs, {{u"sourcedir"_qs, fixture.Folder(u"none"_qs)}, {u"action"_qs, u"3"_qs}});
        Program& program = fixture.Start();
        QVERIFY(fixture.Run().Succeeded());
        QVERIFY(program.RunNow(u"Onward"_qs).Succeeded());
        QVERIFY(!fixture.Exists(u"far/.kalvenor-trash"_qs) && fixture.Exists(u"far/replaced"_qs));
        QVERIFY(program.RunNow(u"Over"_qs).Succeeded()); // a mirror of an empty folder
        QVERIFY(fixture.destination().isEmpty());
        QCOMPARE(fixture.Kept().value(u"deleted"_qs), QByteArray("surplus"));
        QVERIFY(fixture.UndoLast().Succeeded());
    }

    void keptFilesGoWhenTheirTimeIsOver() {
        Keeping fixture;
        fixture.Start();
        QVERIFY(fixture.Run().Succeeded());
        const QString trash = fixture.Path(u"dst/.kalvenor-trash/"_qs);
        QVERIFY(QDir(trash).mkpath(u"not ours/files"_qs));
        fixture.clock->Advance(3 * day - std::chrono::seconds(1));
        QVERIFY(fixture.Run().Succeeded());
        QCOMPARE(fixture.Kept().value(u"deleted"_qs), QByteArray("surplus"));
        fixture.program->File().Write(A, ActivityField::KeepDays, QString()); // kept is kept, as long as was said
        fixture.clock->Advance(std::chrono::hours(1));                        // it is looked for now and then only
        QVERIFY(fixture.Run().Succeeded());
        QCOMPARE(QDir(trash).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList{u"not ours"_qs});
    }

    // The journal is written before the deed, and a process may be killed or the power fail anywhere.
    void aTornJournalLosesNothing_data() {
        // what is left of the journal: its first so many lines; of the rest, half of one
        const Table<int> row;
        for (const int lines : {1, 2, 3})
            row.Add(lines);
    }
    void aTornJournalLosesNothing() {
        const auto [lines] = Table<int>::Current();
        Keeping fixture;
        fixture.Start();
        QVERIFY(fixture.Run().Succeeded());
        const QString run =
            QDir(fixture.Path(u"dst/.kalvenor-trash"_qs)).entryList(QDir::NoDotAndDotDot | QDir::Dirs)[0];
        const QString journal = u"dst/.kalvenor-trash/"_qs + run + u"/journal"_qs;
        QByteArrayList all = fixture.Read(journal).split('\n');
        QCOMPARE(all.size(), 1 + 4 + 1); // the run, its files, and the end
        fixture.Write(journal, QByteArrayList(all.mid(0, lines)).join('\n') + '\n' + all[lines].left(9));
        const UndoOutcome undone = fixture.UndoLast();
        // Without its line, what took a file's place may be anybody's.
        QVERIFY(undone.left <= 2);
        QVERIFY(fixture.Exists(u"dst/deleted"_qs) && fixture.Exists(u"dst/gone/sub/deleted"_qs));
        for (const auto* name : {"replaced", "sub/replaced"})
            QVERIFY(fixture.Read(u"dst/"_qs + QLatin1String(name)) == "old" ||
                    fixture.Kept().value(QLatin1String(name)) == "old");
    }

    void whatCannotBeKeptStays() {
        Keeping fixture;
        fixture.Start();
        QVERIFY(QDir(fixture.Path(u"dst"_qs)).mkpath(u"."_qs));
        fixture.Write(u"dst/.kalvenor-trash"_qs, "somebody's file");
        const RunOutcome outcome = fixture.Run();
        QVERIFY(!outcome.Succeeded());
        QCOMPARE(fixture.Read(u"dst/replaced"_qs), QByteArray("old"));
        QCOMPARE(fixture.Read(u"dst/deleted"_qs), QByteArray("surplus"));
        QVERIFY(fixture.Exists(u"dst/gone/sub/deleted"_qs));
    }
};

QTEST_GUILESS_MAIN(TestTrash)
#include "test_trash.moc"
