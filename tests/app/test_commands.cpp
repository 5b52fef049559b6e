// The commands on activities and activity files, given through the real window.
#include "WindowFixture.h"

namespace {

const QStringList three{u"A"_qs, u"B"_qs, u"C"_qs};

struct World : ProgramFixture {
    World() {
        Fill(three);
        WriteActivities(other, Copying(u"Other"_qs));
        prompter.yes = true;
    }
    const QString other = Path(u"other.kvd"_qs);
};

} // namespace

class TestCommands final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void deletes() {
        World world;
        Window window(world);
        world.prompter.yes = false;
        window.Select({u"B"_qs});
        window.Command("mnuDelDir").trigger();
        QCOMPARE(world.prompter.Told(), QStringList{u"Delete activity: Should the activity 'B' really be deleted?"_qs});
        QCOMPARE(window.Names(), three);
        world.prompter.yes = true;
        window.View().sortByColumn(0, Qt::DescendingOrder);
        window.Command("mnuDelDir").trigger();
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs}));
        QCOMPARE(window.program.File().Names(), window.Names());
        QCOMPARE(window.View().CurrentName(), u"A"_qs); // the next one on the screen
        window.Command("mnuDelDir").trigger();
        QCOMPARE(window.View().CurrentName(), u"C"_qs);
    }

    void edits() {
        World world;
        Window window(world);
        world.prompter.yes = false;
        window.program.Monitoring().ToggleMonitoring();
        window.program.List().TakeOut(u"B"_qs);
        QTest::keyClick(&window.View(), Qt::Key_Return); // nothing is selected
        QVERIFY(window.editor.opened.isEmpty() && !window.Command("mnuDelDir").isEnabled());
        window.Select({u"B"_qs});
        QVERIFY(window.Command("mnuDelDir").isEnabled());
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord record = window.editor.shown;
            record.SetText(ActivityField::Comment, u"changed"_qs);
            return !write(u"A"_qs, record) && write(u"B"_qs, record); // the first name is taken
        };
        QTest::keyClick(&window.View(), Qt::Key_Return);
        QCOMPARE(window.editor.shown.Text(ActivityField::Interval), u"2"_qs);
        QCOMPARE(world.prompter.shown.back().text, world.texts[Text::NameTaken]);
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs}));
        QVERIFY(world.Read(world.DefaultFile()).contains("<comment>changed</comment>"));
        QVERIFY(window.program.List().IsChecked(2) && !window.program.List().IsTakenOut(u"B"_qs));

        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord record = window.editor.shown;
            record.SetNumber(ActivityField::Interval, 70); // the mark of a minute's counter wraps, the record does not
            return write(u"New"_qs, record);
        };
        window.Command("mnuAddDirMain").trigger();
        QCOMPARE(window.editor.opened, (QStringList{u"B"_qs, QString()}));
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs, u"New"_qs}));
        QCOMPARE(window.program.File().Read(u"New"_qs, ActivityField::ExceedTime), u"10"_qs);
    }

    void anEditOverAChangedFileIsSavedAfterAReload() {
        for (const bool reloads : {false, true}) {
            World world;
            Window window(world);
            window.Select({u"B"_qs});
            const QByteArray foreign = "<items><Elsewhere/></items>";
            world.prompter.yes = reloads;
            window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
                world.Write(world.DefaultFile(), foreign); // by another program, meanwhile
                return write(u"B"_qs, window.editor.shown) || write(u"B"_qs, window.editor.shown);
            };
            window.Command("mnuProperties").trigger();
            const QString asked = u"Error: "_qs + world.texts[Text::FileChangedOutside] + u"\n\n"_qs +
                                  world.texts[Text::LoadAgainQuestion];
            QCOMPARE(world.prompter.Told(), QStringList(reloads ? 1 : 2, asked));
            QCOMPARE(world.Read(world.DefaultFile()) == foreign, !reloads);
            QCOMPARE(window.Names(), reloads ? QStringList({u"Elsewhere"_qs, u"B"_qs}) : three);
        }
    }

    void aCommandThatThrowsEndsInABox() {
        World world;
        Window window(world);
        window.Select({u"B"_qs});
        window.editor.onEdit = [](const ActivityEditor::Writer&) -> bool { throw std::runtime_error("no memory"); };
        window.Command("mnuProperties").trigger();
        QTest::keyClick(&window.View(), Qt::Key_Return);
        QCOMPARE(world.prompter.Told(), QStringList(2, u"Error: no memory"_qs));
        world.prompter.onAsk = [&](const Message& asked) {
            if (asked.text == world.texts[Text::StartNowQuestion])
                throw std::runtime_error("no box");
        };
        window.Command("mnuStartActivityNow").trigger();
        QCOMPARE(world.prompter.shown.back().text, u"no box"_qs);
        QVERIFY(window.Command("mnuStartActivityNow").isEnabled());
    }

    void nothingIsTypedForAFileThatWasNotLoaded() {
        World world;
        world.prompter.yes = false;
        world.Write(world.DefaultFile(), "damaged");
        Window window(world);
        window.Command("mnuAddDir").trigger();
        QVERIFY(window.editor.opened.isEmpty());
        QCOMPARE(world.prompter.shown.back().text, world.texts[Text::FileNotLoaded]);
    }

    /// Another program has changed the file, so nothing can be saved.
    void aRefusedChangeIsTakenBack_data() {
        QTest::addColumn<QString>("command");
        QTest::newRow("editor, then Cancel") << u"mnuProperties"_qs;
        QTest::newRow("delete") << u"mnuDelDir"_qs;
    }
    void aRefusedChangeIsTakenBack() {
        QFETCH(QString, command);
        World world;
        Window window(world);
        window.program.Monitoring().ToggleMonitoring();
        window.Select({u"B"_qs});
        world.prompter.onAsk = [&](const Message& asked) {
            world.prompter.yes = !asked.text.startsWith(world.texts[Text::FileChangedOutside]);
        };
        const QString before = window.program.Document().XML();
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord record = window.editor.shown;
            record.SetNumber(ActivityField::Action, 3);
            std::ignore = write(u"B"_qs, record) || write(u"New"_qs, record);
            return false;
        };
        const QByteArray bytes = world.Read(world.DefaultFile());
        world.Write(world.DefaultFile(), bytes + ' ');
        window.Command(qPrintable(command)).trigger();
        QVERIFY(world.prompter.shown.back().text.startsWith(world.texts[Text::FileChangedOutside]));
        QCOMPARE(window.program.Document().XML(), before);
        QVERIFY(window.Names() == three && window.program.List().IsChecked(1));
        world.Write(world.DefaultFile(), bytes);
    }

    void clears_data() {
        QTest::addColumn<QString>("current");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<bool>("canBeDeleted");
        QTest::addColumn<QList<Text>>("boxes");
        QTest::newRow("another file") << u"other.kvd"_qs << true << true
                                      << QList<Text>{Text::ClearAllQuestion, Text::DefaultListRestored};
        QTest::newRow("the default file") << QString() << true << true << QList<Text>{Text::ClearAllQuestion};
        QTest::newRow("not wanted") << u"other.kvd"_qs << false << true << QList<Text>{Text::ClearAllQuestion};
        QTest::newRow("refused") << u"other.kvd"_qs << true << false << QList<Text>{Text::ClearAllQuestion, Text::None};
    }
    void clears() {
        QFETCH(QString, current);
        QFETCH(bool, yes);
        QFETCH(bool, canBeDeleted);
        QFETCH(QList<Text>, boxes);
        World world;
        Window window(world);
        Program& program = window.program;
        if (!current.isEmpty()) {
            program.File().SetCurrentPath(world.other);
            program.List().Refill();
        }
        const QStringList names = window.Names();
        const QString path = program.File().CurrentPath();
        program.Monitoring().ToggleMonitoring();
        program.List().TakeOut(u"A"_qs); // of this name the default file has one, too
        if (!canBeDeleted) {
            QVERIFY(QFile::remove(world.other) && QDir(world.Path()).mkdir(u"other.kvd"_qs));
        }
        world.prompter.yes = yes;
        world.prompter.onAsk = [&](const Message& message) {
            if (message.text == world.texts[Text::DefaultListRestored])
                QVERIFY(!program.Monitoring().IsOn() && world.locks->held.empty() && window.Names() == three);
        };
        window.Command("mnuDeleteAllActivities").trigger();
        QCOMPARE(world.prompter.shown.size(), static_cast<std::size_t>(boxes.size()));
        for (const Message& box : world.prompter.shown)
            if (const Text text = boxes.takeFirst(); text != Text::None)
                QCOMPARE(box.text, world.texts[text]);
        const bool cleared = yes && canBeDeleted;
        QCOMPARE(program.Monitoring().IsOn(), !cleared);
        QCOMPARE(program.File().CurrentPath(), cleared ? world.DefaultFile() : path);
        QCOMPARE(QFile::exists(path), !cleared || current.isEmpty());
        QCOMPARE(window.Names(), !cleared ? names : current.isEmpty() ? QStringList() : three);
        QVERIFY(!cleared || !program.List().IsTakenOut(u"A"_qs));
    }

    void imports_data() {
        QTest::addColumn<QString>("chosen"); // "" not even asked for
        QTest::addColumn<QList<Text>>("boxes");
        QTest::newRow("other") << u"other.kvd"_qs << QList<Text>{Text::ReallyProceed};
        QTest::newRow("not wanted") << QString() << QList<Text>{Text::ReallyProceed};
        QTest::newRow("the same") << u"Kalvenor.kvd"_qs << QList<Text>{Text::ReallyProceed, Text::CannotImportCurrent};
    }
    void imports() {
        QFETCH(QString, chosen);
        QFETCH(QList<Text>, boxes);
        const bool imported = chosen == u"other.kvd";
        World world;
        world.prompter.yes = !chosen.isEmpty();
        Window window(world);
        window.program.Monitoring().ToggleMonitoring();
        window.picker.answers = {world.Path(chosen)};
        window.Command("mnuImportActivities").trigger();
        QCOMPARE(window.Names(), imported ? QStringList{u"Other"_qs} : three);
        QCOMPARE(world.prompter.shown.size(), static_cast<std::size_t>(boxes.size()));
        for (const Message& box : world.prompter.shown)
            QVERIFY(box.text.endsWith(world.texts[boxes.takeFirst()]));
        QCOMPARE(window.program.Monitoring().IsOn(), !imported);
        QCOMPARE(world.settings->values.value(u"Kalvenor/LastFile/DBPath"_qs), imported ? world.other : QString());
        QCOMPARE(window.program.File().CurrentPath(), imported ? world.other : world.DefaultFile());
    }

    void exports_data() {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("box");
        QTest::newRow("existing file") << u"other.kvd"_qs << QString();
        QTest::newRow("the same") << u"Kalvenor.kvd"_qs << u"The file is in use"_qs;
        QTest::newRow("no such folder") << u"none/copy.kvd"_qs << u"could not be saved"_qs;
    }
    void exports() {
        QFETCH(QString, chosen);
        QFETCH(QString, box);
        World world;
        Window window(world);
        window.program.Monitoring().ToggleMonitoring();
        const QString path = world.Path(chosen);
        window.picker.answers = {path};
        window.Command("mnuExportActivities").trigger();
        QVERIFY(window.program.Monitoring().IsOn());
        if (!box.isEmpty()) {
            QVERIFY(world.prompter.Told().join(u'|').contains(box));
            QCOMPARE(window.program.File().CurrentPath(), world.DefaultFile());
            return;
        }
        QVERIFY(world.prompter.shown.empty());
        QCOMPARE(window.program.File().CurrentPath(), path);
        QVERIFY(window.form.windowTitle().contains(path));
        QVERIFY(world.Read(path).contains("<A>") && world.Read(path).contains("<C>"));
        // The lock has moved along: the old file may be monitored elsewhere, the new one may not.
        EngineLock elsewhere(*world.locks, *world.services.ownFiles);
        LockRefusal refusal{};
        QVERIFY(elsewhere.Take(world.DefaultFile(), refusal) != nullptr);
        QVERIFY(elsewhere.Take(path, refusal) == nullptr);
    }
};

QTEST_MAIN(TestCommands)
#include "test_commands.moc"
