// The commands on activities and activity files, given through the real window.
#include "Drop.h"
#include "WindowFixture.h"

#include <QToolButton>

namespace {

const QStringList three{u"A"_qs, u"B"_qs, u"C"_qs};

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

struct World : AppFixture {
    explicit World(const QStringList& activities = three) {
        Fill(activities);
        Write(other,
              u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items>"_qs + Activity(u"Other"_qs) + u"</items>"_qs);
        prompter.yes = true;
    }
    const QString other = dir.filePath(u"other.kvd"_qs);
};

} // namespace

class TestCommands final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyEntryReadsAsItShould() {
        const QString entries =
            u"mnuAddDirMain 151, mnuDelDirMain 152, mnuImportActivities 140, mnuExportActivities 141, mnuStart 142, "
            "mnuDeleteAllActivities 143, mnuPreferences 144, mnuServiceOptions 428, mnuTimeSync 145, "
            "mnuViewLogfile 146, mnuDeleteLogfile 147, mnuExit 148, mnuHelpDoc 127, mnuCheckForUpdates 406, "
            "mnuAbout 150, mnuAddDir 151, mnuDelDir 152, mnuSelectAll 153, mnuDeselectAll 154, mnuShowLogfile 155, "
            "mnuDeleteActivityLog 156, mnuClearAll 143, mnuStartActivityNow 157, mnuExecuteAllMarkedActivities 383, "
            "mnuSearch 375, mnuSearchAgain 378, mnuRefreshList 381, mnuOpenSourceDir 398, mnuOpenTargetDir 399, "
            "mnuProperties 158, mnuPreferencesTray 144, mnuSyncTray 145, mnuStartTray 142, mnuViewLogfileTray 146, "
            "mnuDeleteLogfileTray 147, mnuExitTray 148, mnuAboutTray 150, StartStop 142, ViewLog 155, AddDir 151, "
            "DelDir 152, Options 144, Help 127"_qs;
        for (const Language language : {Language::English, Language::German}) {
            World world;
            const StringTable texts(language);
            DialogHost dialogs;
            FakeFilePicker picker;
            FakeEditor editor;
            Program program(world.services, world.prompter, world.keys, texts);
            const frmMain form(program, {dialogs, picker, editor});
            QMap<QString, QString> found;
            for (QWidget* window : QApplication::topLevelWidgets())
                for (const QAction* action : window->findChildren<QAction*>())
                    found[action->objectName()] = action->text();
            for (const QToolButton* button : form.findChildren<QToolButton*>())
                found[button->objectName()] = button->toolTip();
            for (const QString& entry : entries.split(u", "_qs)) {
                const QStringList parts = entry.split(u' ');
                QCOMPARE(parts[0] + found.value(parts[0]), parts[0] + texts.Text(parts[1].toInt()));
            }
        }
    }

    void deletes() {
        World world;
        Window window(world);
        const auto remove = [&](const QString& selected, bool yes) {
            world.prompter.shown.clear();
            world.prompter.yes = yes;
            window.Select({selected});
            window.Command("mnuDelDir").trigger();
            QCOMPARE(window.program.File().Names(), window.Names());
        };
        remove({}, true);
        QVERIFY(world.prompter.shown.empty());
        remove(u"B"_qs, false);
        QCOMPARE(world.prompter.Told(), QStringList{u"Delete activity: Should the activity 'B' really be deleted?"_qs});
        QCOMPARE(window.Names(), three);
        remove(u"C"_qs, true);
        QCOMPARE(window.Names(), three.mid(0, 2));
        QCOMPARE(window.View().CurrentName(), u"B"_qs);
        remove(u"A"_qs, true);
        QCOMPARE(window.Names(), QStringList{u"B"_qs});
        QCOMPARE(window.View().CurrentName(), u"B"_qs);
        window.Command("mnuDeleteAllActivities").trigger();
        QCOMPARE(window.Names(), QStringList());
        QVERIFY(bytesOf(world.DefaultFile()).endsWith("?><items></items>\r\n"));
    }

    void edits() {
        World world;
        Window window(world);
        window.Select({u"B"_qs});
        window.Command("mnuProperties").trigger();
        QCOMPARE(window.editor.opened, QStringList{u"B"_qs});
        QCOMPARE(window.editor.shown.Text(ActivityField::Interval), u"2"_qs);
        QCOMPARE(window.Names(), three);

        world.prompter.yes = false;
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord record = window.editor.shown;
            record.SetText(ActivityField::Comment, u"changed"_qs);
            return !write(u"A"_qs, record) && write(u"B"_qs, record); // the first name is taken
        };
        QTest::keyClick(&window.View(), Qt::Key_Return);
        QCOMPARE(world.prompter.shown.back().text, world.texts.Text(386));
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs}));
        QCOMPARE(window.View().CurrentName(), u"B"_qs);
        QVERIFY(bytesOf(world.DefaultFile()).contains("<comment>changed</comment>"));

        window.editor.onEdit = [&](const ActivityEditor::Writer& write) { return write(u"New"_qs, {}); };
        window.Command("mnuAddDirMain").trigger();
        QCOMPARE(window.editor.opened.last(), QString());
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs, u"New"_qs}));
    }

    void anEditThatCannotBeSavedCanBeRepeated() {
        World world;
        Window window(world);
        window.Select({u"B"_qs});
        const QString foreign = u"<items><Elsewhere/></items>"_qs;
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            AppFixture::Write(world.DefaultFile(), foreign); // by somebody else, meanwhile
            return write(u"B"_qs, window.editor.shown) || write(u"B"_qs, window.editor.shown);
        };
        window.Command("mnuProperties").trigger();
        QCOMPARE(world.prompter.Told(), QStringList(2, u"Error: "_qs + world.texts.Text(432)));
        QCOMPARE(bytesOf(world.DefaultFile()), foreign.toLatin1());
    }

    void imports_data() {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QString>("chosen"); // "" cancelled, "-" not even asked for
        QTest::addColumn<QList<int>>("boxes");
        QTest::newRow("other") << three << u"other.kvd"_qs << QList<int>{166};
        QTest::newRow("not wanted") << three << u"-"_qs << QList<int>{166};
        QTest::newRow("cancelled") << three << QString() << QList<int>{166};
        QTest::newRow("the same") << three << u"program/Kalvenor.kvd"_qs << QList<int>{166, 372};
        QTest::newRow("nothing to lose") << QStringList() << u"other.kvd"_qs << QList<int>{};
    }
    void imports() {
        QFETCH(QStringList, before);
        QFETCH(QString, chosen);
        QFETCH(QList<int>, boxes);
        const bool imported = chosen == u"other.kvd";
        World world(before);
        world.prompter.yes = chosen != u"-";
        Window window(world);
        if (!before.isEmpty())
            window.program.Monitoring().ToggleMonitoring();
        window.picker.answers = {chosen.isEmpty() ? QString() : world.dir.filePath(chosen)};
        window.Command("mnuImportActivities").trigger();
        QCOMPARE(window.picker.requests.size(), chosen == u"-" ? 0 : 1);
        QCOMPARE(window.Names(), imported ? QStringList{u"Other"_qs} : before);
        QCOMPARE(world.prompter.shown.size(), static_cast<std::size_t>(boxes.size()));
        for (const Message& box : world.prompter.shown)
            QVERIFY(box.text.endsWith(world.texts.Text(boxes.takeFirst())));
        QCOMPARE(window.program.Monitoring().IsOn(), !imported);
        QCOMPARE(world.settings->values.value(u"Kalvenor/LastFile/DBPath"_qs), imported ? world.other : QString());
        QCOMPARE(window.program.File().CurrentPath(), imported ? world.other : world.DefaultFile());
        QVERIFY(window.form.windowTitle().endsWith(u'[' + window.program.File().CurrentPath() + u']'));
    }

    void exports_data() {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("box");
        QTest::newRow("new file") << u"copy.kvd"_qs << QString();
        QTest::newRow("existing file") << u"other.kvd"_qs << QString();
        QTest::newRow("cancelled") << QString() << u"The file is in use"_qs;
        QTest::newRow("the same") << u"program/Kalvenor.kvd"_qs << u"The file is in use"_qs;
        QTest::newRow("no such folder") << u"none/copy.kvd"_qs << u"could not be saved"_qs;
    }
    void exports() {
        QFETCH(QString, chosen);
        QFETCH(QString, box);
        World world;
        Window window(world);
        window.program.Monitoring().ToggleMonitoring();
        const QString path = chosen.isEmpty() ? QString() : world.dir.filePath(chosen);
        window.picker.answers = {path};
        window.Command("mnuExportActivities").trigger();
        QCOMPARE(window.picker.requests.first().file, world.DefaultFile());
        QVERIFY(window.program.Monitoring().IsOn());
        if (!box.isEmpty()) {
            QCOMPARE(world.prompter.shown.size(), 1U);
            QCOMPARE(world.prompter.shown.front().title, world.texts.Text(162));
            QVERIFY(world.prompter.shown.front().text.contains(box));
            QCOMPARE(window.program.File().CurrentPath(), world.DefaultFile());
            return;
        }
        QVERIFY(world.prompter.shown.empty());
        QCOMPARE(window.program.File().CurrentPath(), path);
        QVERIFY(bytesOf(path).contains("<A>") && bytesOf(path).contains("<C>"));
        // The lock has moved along: the old file may be monitored elsewhere, the new one may not.
        QVERIFY(ActivityFile::LockForMonitoring(*world.locks, world.DefaultFile()) != nullptr);
        QVERIFY(ActivityFile::LockForMonitoring(*world.locks, path) == nullptr);
    }

    void sortingChangesTheViewAlone() {
        const QStringList stored{u"B"_qs, u"C"_qs, u"A"_qs};
        World world(stored);
        {
            Window window(world);
            window.View().sortByColumn(0, Qt::AscendingOrder);
            window.View().setColumnWidth(2, 321);
            QCOMPARE(window.View().model()->index(0, 0).data().toString(), u"A"_qs);
            QCOMPARE(window.Names(), stored);
            window.Command("mnuSelectAll").trigger();
            QCOMPARE(window.View().SelectedNames(), stored);
            window.Command("mnuDeselectAll").trigger();
            QCOMPARE(window.View().SelectedNames(), QStringList());
            window.form.close();
        }
        Window again(world);
        QCOMPARE(again.View().model()->index(0, 0).data().toString(), u"A"_qs);
        QCOMPARE(again.View().columnWidth(2), 321);
    }

    void drops() {
        World world;
        Window window(world);
        const QString folder = world.Folder(u"dragged"_qs);
        QVERIFY(Drop(window.form, folder));
        QCOMPARE(window.editor.opened, QStringList{QString()});
        QCOMPARE(window.editor.shown.Text(ActivityField::SourceDir), folder);
        AppFixture::Write(world.dir.filePath(u"note.txt"_qs), u"x"_qs);
        QVERIFY(!Drop(window.form, world.dir.filePath(u"note.txt"_qs)));
        QVERIFY(Drop(window.form, world.other));
        QCOMPARE(window.Names(), QStringList{u"Other"_qs});
    }
};

QTEST_MAIN(TestCommands)
#include "test_commands.moc"
