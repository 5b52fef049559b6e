// The commands on activities and activity files, given through the real window.
#include "WindowFixture.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QToolButton>

namespace {

QStringList textsOf(const std::vector<Message>& shown) {
    QStringList texts;
    for (const Message& message : shown)
        texts.append(message.title + u": "_qs + message.text);
    return texts;
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

} // namespace

class TestCommands final : public QObject {
    Q_OBJECT

    static void writeThree(AppFixture& fixture) {
        fixture.WriteActivities({fixture.Activity(u"A"_qs), fixture.Activity(u"B"_qs), fixture.Activity(u"C"_qs)});
    }
    static QString otherFile(AppFixture& fixture) {
        const QString path = fixture.dir.filePath(u"other.kvd"_qs);
        AppFixture::Write(path, u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items>"_qs +
                                    fixture.Activity(u"Other"_qs) + u"</items>"_qs);
        return path;
    }

  private Q_SLOTS:
    void everyEntryReadsAsItShould_data() {
        QTest::addColumn<int>("language");
        QTest::newRow("English") << static_cast<int>(Language::English);
        QTest::newRow("German") << static_cast<int>(Language::German);
    }
    void everyEntryReadsAsItShould() {
        QFETCH(int, language);
        const QMap<QString, int> entries{{u"mnuAddDirMain"_qs, 151},
                                         {u"mnuDelDirMain"_qs, 152},
                                         {u"mnuImportActivities"_qs, 140},
                                         {u"mnuExportActivities"_qs, 141},
                                         {u"mnuStart"_qs, 142},
                                         {u"mnuDeleteAllActivities"_qs, 143},
                                         {u"mnuPreferences"_qs, 144},
                                         {u"mnuServiceOptions"_qs, 428},
                                         {u"mnuTimeSync"_qs, 145},
                                         {u"mnuViewLogfile"_qs, 146},
                                         {u"mnuDeleteLogfile"_qs, 147},
                                         {u"mnuExit"_qs, 148},
                                         {u"mnuHelpDoc"_qs, 127},
                                         {u"mnuCheckForUpdates"_qs, 406},
                                         {u"mnuAbout"_qs, 150},
                                         {u"mnuAddDir"_qs, 151},
                                         {u"mnuDelDir"_qs, 152},
                                         {u"mnuSelectAll"_qs, 153},
                                         {u"mnuDeselectAll"_qs, 154},
                                         {u"mnuShowLogfile"_qs, 155},
                                         {u"mnuDeleteActivityLog"_qs, 156},
                                         {u"mnuClearAll"_qs, 143},
                                         {u"mnuStartActivityNow"_qs, 157},
                                         {u"mnuExecuteAllMarkedActivities"_qs, 383},
                                         {u"mnuSearch"_qs, 375},
                                         {u"mnuSearchAgain"_qs, 378},
                                         {u"mnuRefreshList"_qs, 381},
                                         {u"mnuOpenSourceDir"_qs, 398},
                                         {u"mnuOpenTargetDir"_qs, 399},
                                         {u"mnuProperties"_qs, 158},
                                         {u"mnuPreferencesTray"_qs, 144},
                                         {u"mnuSyncTray"_qs, 145},
                                         {u"mnuStartTray"_qs, 142},
                                         {u"mnuViewLogfileTray"_qs, 146},
                                         {u"mnuDeleteLogfileTray"_qs, 147},
                                         {u"mnuExitTray"_qs, 148},
                                         {u"mnuAboutTray"_qs, 150}};
        AppFixture fixture;
        const StringTable texts(static_cast<Language>(language));
        DialogHost dialogs;
        FakeFilePicker picker;
        FakeEditor editor;
        Program program(fixture.services, fixture.prompter, fixture.keys, texts);
        frmMain form(program, {dialogs, picker, editor});
        QMap<QString, QString> found;
        for (QWidget* window : QApplication::topLevelWidgets())
            for (const QAction* action : window->findChildren<QAction*>())
                if (entries.contains(action->objectName()))
                    found[action->objectName()] = action->text();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry)
            QCOMPARE(entry.key() + found.value(entry.key()), entry.key() + texts.Text(entry.value()));
        QCOMPARE(form.findChild<QAction*>(u"mnuSysInfo"_qs)->text(), u"Systeminfo"_qs);
        const QMap<QString, int> buttons{{u"StartStop"_qs, 142}, {u"ViewLog"_qs, 155}, {u"AddDir"_qs, 151},
                                         {u"DelDir"_qs, 152},    {u"Options"_qs, 144}, {u"Help"_qs, 127}};
        for (auto button = buttons.begin(); button != buttons.end(); ++button)
            QCOMPARE(form.findChild<QToolButton*>(button.key())->toolTip(), texts.Text(button.value()));
    }

    void deletes_data() {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QStringList>("left");
        QTest::addColumn<QString>("current");
        QTest::newRow("first") << u"A"_qs << true << QStringList{u"B"_qs, u"C"_qs} << u"B"_qs;
        QTest::newRow("last") << u"C"_qs << true << QStringList{u"A"_qs, u"B"_qs} << u"B"_qs;
        QTest::newRow("no") << u"B"_qs << false << QStringList{u"A"_qs, u"B"_qs, u"C"_qs} << u"B"_qs;
        QTest::newRow("nothing selected") << QString() << true << QStringList{u"A"_qs, u"B"_qs, u"C"_qs} << QString();
    }
    void deletes() {
        QFETCH(QString, selected);
        QFETCH(bool, yes);
        AppFixture fixture;
        writeThree(fixture);
        fixture.prompter.yes = yes;
        Window window(fixture);
        window.Select({selected});
        window.Command("mnuDelDir").trigger();
        QTEST(window.Names(), "left");
        QTEST(window.View().CurrentName(), "current");
        QCOMPARE(window.program.File().Names(), window.Names());
        QCOMPARE(textsOf(fixture.prompter.shown), selected.isEmpty()
                                                      ? QStringList()
                                                      : QStringList{u"Delete activity: Should the activity '"_qs +
                                                                    selected + u"' really be deleted?"_qs});
    }

    void edits() {
        AppFixture fixture;
        writeThree(fixture);
        Window window(fixture);
        window.Select({u"B"_qs});
        window.Command("mnuProperties").trigger();
        QCOMPARE(window.editor.opened, QStringList{u"B"_qs});
        QCOMPARE(window.editor.shown.Text(ActivityField::Interval), u"2"_qs);
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"B"_qs, u"C"_qs}));

        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord record = window.editor.shown;
            record.SetText(ActivityField::Comment, u"changed"_qs);
            return !write(u"A"_qs, record) && write(u"B"_qs, record); // the first name is taken
        };
        QTest::keyClick(&window.View(), Qt::Key_Return);
        QCOMPARE(fixture.prompter.shown.back().text, fixture.texts.Text(386));
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs}));
        QCOMPARE(window.View().CurrentName(), u"B"_qs);
        QVERIFY(bytesOf(fixture.DefaultFile()).contains("<comment>changed</comment>"));

        window.editor.onEdit = [&](const ActivityEditor::Writer& write) { return write(u"New"_qs, {}); };
        window.Command("mnuAddDirMain").trigger();
        QCOMPARE(window.editor.opened.last(), QString());
        QCOMPARE(window.Names(), (QStringList{u"A"_qs, u"C"_qs, u"B"_qs, u"New"_qs}));
    }

    void anEditThatCannotBeSavedCanBeRepeated() {
        AppFixture fixture;
        writeThree(fixture);
        Window window(fixture);
        window.Select({u"B"_qs});
        bool first = true;
        bool second = false;
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            const QByteArray before = bytesOf(fixture.DefaultFile());
            AppFixture::Write(fixture.DefaultFile(), u"<items><Elsewhere/></items>"_qs); // by somebody else
            first = write(u"B"_qs, window.editor.shown);
            second = write(u"B"_qs, window.editor.shown);
            return false;
        };
        window.Command("mnuProperties").trigger();
        QVERIFY(!first && !second);
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(2));
        QCOMPARE(fixture.prompter.shown.back().text, fixture.texts.Text(432));
        QCOMPARE(bytesOf(fixture.DefaultFile()), QByteArray("<items><Elsewhere/></items>"));
    }

    void imports_data() {
        QTest::addColumn<bool>("empty");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QString>("chosen"); // "" cancelled, "same", "other"
        QTest::addColumn<QList<int>>("boxes");
        QTest::addColumn<QStringList>("names");
        const QStringList three{u"A"_qs, u"B"_qs, u"C"_qs};
        const QStringList other{u"Other"_qs};
        QTest::newRow("other") << false << true << u"other"_qs << QList<int>{166} << other;
        QTest::newRow("not wanted") << false << false << u"other"_qs << QList<int>{166} << three;
        QTest::newRow("cancelled") << false << true << QString() << QList<int>{166} << three;
        QTest::newRow("the same") << false << true << u"same"_qs << QList<int>{166, 372} << three;
        QTest::newRow("nothing to lose") << true << false << u"other"_qs << QList<int>{} << other;
    }
    void imports() {
        QFETCH(bool, empty);
        QFETCH(bool, yes);
        QFETCH(QString, chosen);
        QFETCH(QList<int>, boxes);
        AppFixture fixture;
        if (!empty)
            writeThree(fixture);
        const QString other = otherFile(fixture);
        fixture.prompter.yes = yes;
        Window window(fixture);
        if (!empty)
            window.program.Monitoring().ToggleMonitoring();
        window.picker.answers = {chosen == u"same" ? fixture.DefaultFile() : chosen == u"other" ? other : QString()};
        window.Command("mnuImportActivities").trigger();
        QTEST(window.Names(), "names");
        QCOMPARE(fixture.prompter.shown.size(), static_cast<std::size_t>(boxes.size()));
        for (qsizetype i = 0; i < boxes.size(); ++i)
            QVERIFY(fixture.prompter.shown[static_cast<std::size_t>(i)].text.endsWith(fixture.texts.Text(boxes[i])));
        const bool isImported = window.Names() == QStringList{u"Other"_qs};
        QCOMPARE(window.program.Monitoring().IsOn(), !isImported);
        QCOMPARE(fixture.settings->values.value(u"Kalvenor/LastFile/DBPath"_qs), isImported ? other : QString());
        QVERIFY(window.form.windowTitle().endsWith(u'[' + window.program.File().CurrentPath() + u']'));
        QCOMPARE(window.program.File().CurrentPath(), isImported ? other : fixture.DefaultFile());
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
        AppFixture fixture;
        writeThree(fixture);
        otherFile(fixture);
        Window window(fixture);
        window.program.Monitoring().ToggleMonitoring();
        const QString path = chosen.isEmpty() ? QString() : fixture.dir.filePath(chosen);
        window.picker.answers = {path};
        window.Command("mnuExportActivities").trigger();
        QCOMPARE(window.picker.requests.first().file, fixture.DefaultFile());
        QVERIFY(window.program.Monitoring().IsOn());
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(box.isEmpty() ? 0 : 1));
        if (!box.isEmpty()) {
            QCOMPARE(fixture.prompter.shown.front().title, fixture.texts.Text(162));
            QCOMPARE(window.program.File().CurrentPath(), fixture.DefaultFile());
            return;
        }
        QCOMPARE(window.program.File().CurrentPath(), path);
        QVERIFY(bytesOf(path).contains("<A>") && bytesOf(path).contains("<C>"));
        // The lock has moved along: the old file may be monitored elsewhere, the new one may not.
        QVERIFY(ActivityFile::LockForMonitoring(*fixture.locks, fixture.DefaultFile()) != nullptr);
        QVERIFY(ActivityFile::LockForMonitoring(*fixture.locks, path) == nullptr);
    }

    void clearsAll() {
        AppFixture fixture;
        writeThree(fixture);
        fixture.prompter.yes = true;
        Window window(fixture);
        window.Command("mnuDeleteAllActivities").trigger();
        QCOMPARE(window.Names(), QStringList());
        QCOMPARE(bytesOf(fixture.DefaultFile()),
                 QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n"));
    }

    void sortingChangesTheViewAlone() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"B"_qs), fixture.Activity(u"C"_qs), fixture.Activity(u"A"_qs)});
        QString layout;
        {
            Window window(fixture);
            window.View().sortByColumn(0, Qt::AscendingOrder);
            window.View().setColumnWidth(2, 321);
            QCOMPARE(window.View().model()->index(0, 0).data().toString(), u"A"_qs);
            QCOMPARE(window.Names(), (QStringList{u"B"_qs, u"C"_qs, u"A"_qs}));
            window.Command("mnuSelectAll").trigger();
            QCOMPARE(window.View().SelectedNames(), window.Names());
            window.Command("mnuDeselectAll").trigger();
            QCOMPARE(window.View().SelectedNames(), QStringList());
            window.form.close();
        }
        Window again(fixture);
        QCOMPARE(again.View().model()->index(0, 0).data().toString(), u"A"_qs);
        QCOMPARE(again.View().columnWidth(2), 321);
    }

    void drops() {
        AppFixture fixture;
        writeThree(fixture);
        fixture.prompter.yes = true;
        const QString other = otherFile(fixture);
        Window window(fixture);
        const auto drop = [&](const QString& path) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(path)});
            QDragEnterEvent enter(QPoint(50, 150), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window.form, &enter);
            if (!enter.isAccepted())
                return false;
            QDropEvent event(QPointF(50, 150), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window.form, &event);
            QCoreApplication::processEvents();
            return true;
        };
        const QString folder = fixture.Folder(u"dragged"_qs);
        QVERIFY(drop(folder));
        QCOMPARE(window.editor.opened, QStringList{QString()});
        QCOMPARE(window.editor.shown.Text(ActivityField::SourceDir), folder);
        AppFixture::Write(fixture.dir.filePath(u"note.txt"_qs), u"x"_qs);
        QVERIFY(!drop(fixture.dir.filePath(u"note.txt"_qs)));
        QVERIFY(drop(other));
        QCOMPARE(window.Names(), QStringList{u"Other"_qs});
    }

    void theStatusBarShowsWhatRuns() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        for (const char* name : {"1", "2", "3"})
            AppFixture::Write(fixture.Folder(u"A-in"_qs) + u'/' + QLatin1String(name), u"12345"_qs);
        Window window(fixture);
        window.Select({u"A"_qs});
        const auto* bar = window.form.findChild<QProgressBar*>(u"prgRun"_qs);
        const auto* label = window.form.findChild<QLabel*>(u"lblRunning"_qs);
        QVERIFY(bar->isHidden());
        QString seen;
        fixture.process->succeeds = true;
        fixture.prompter.yes = true;
        fixture.pump->onYield = [&] {
            QTest::qWait(250);
            if (!bar->isHidden())
                seen = label->text();
        };
        window.Command("mnuStartActivityNow").trigger();
        QCOMPARE(seen.left(2), u"A:"_qs);
        QTRY_VERIFY(bar->isHidden());
        QVERIFY(!window.program.State().anyFailed);
    }
};

QTEST_MAIN(TestCommands)
#include "test_commands.moc"
