// The menu's commands on activities, activity files, clock and service, given through the real window.
#include "ModalForm.h"
#include "Table.h"
#include "WindowFixture.h"
#include "frmSearch.h"
#include "frmServiceOptions.h"
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

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
        QVERIFY(!window.Command("mnuDeleteSelected").isEnabled()); // for more than one
    }

    void deletesTheSelectedAfterOneQuestion() {
        World world;
        Window window(world);
        window.Select({u"A"_qs, u"B"_qs});
        for (const bool yes : {false, true}) {
            world.prompter.yes = yes;
            QCOMPARE(window.Names(), three);
            world.prompter.shown.clear();
            window.Command("mnuDeleteSelected").trigger();
            QCOMPARE(world.prompter.shown.size(), std::size_t(1));
            QVERIFY(world.prompter.shown.front().text.endsWith(u"\n\nA\nB"_qs));
        }
        QCOMPARE(window.Names(), QStringList{u"C"_qs});
        QCOMPARE(window.program.File().Names(), window.Names());
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
        QVERIFY(window.editor.opened.isEmpty() && !window.Hint().isVisible());
        QCOMPARE(world.prompter.shown.back().text, world.texts[Text::FileNotLoaded]);
    }

    void theEmptyListLeadsToTheFirstActivity() {
        World world;
        world.WriteActivities(world.DefaultFile(), QString());
        Window window(world);
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            return write(u"First"_qs, window.editor.shown);
        };
        QMimeData folder;
        folder.setUrls({QUrl::fromLocalFile(world.Path(u"."_qs))});
        const QPoint middle = window.Hint().rect().center();
        QDragEnterEvent enter(middle, Qt::CopyAction, &folder, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window.Hint(), &enter);
        QVERIFY(window.Hint().isVisible() && enter.isAccepted());
        window.Hint().findChild<QPushButton*>(u"cmdAddFirst"_qs)->click();
        QCOMPARE(window.Names(), QStringList{u"First"_qs});
        QVERIFY(!window.Hint().isVisible());
    }

    /// Another program has changed the file, so nothing can be saved.
    void aRefusedChangeIsTakenBack() {
        for (const char* command : {"mnuProperties", "mnuDelDir"}) { // the editor is cancelled then
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
            window.Command(command).trigger();
            QVERIFY(world.prompter.shown.back().text.startsWith(world.texts[Text::FileChangedOutside]));
            QCOMPARE(window.program.Document().XML(), before);
            QVERIFY(window.Names() == three && window.program.List().IsChecked(1));
            world.Write(world.DefaultFile(), bytes);
        }
    }

    void clears_data() {
        const Table<bool, bool, bool, int> row;
        row("another file", true, true, true, 2);
        row("the default file", false, true, true, 1);
        row("not wanted", true, false, true, 1);
        row("refused", true, true, false, 2);
    }
    void clears() {
        const auto [isOther, yes, canBeDeleted, boxes] = Table<bool, bool, bool, int>::Current();
        World world;
        Window window(world);
        Program& program = window.program;
        if (isOther) {
            program.File().SetCurrentPath(world.other);
            program.List().Refill();
        }
        const QStringList names = window.Names();
        const QString path = program.File().CurrentPath();
        const QByteArray bytes = world.Read(path);
        program.Monitoring().ToggleMonitoring();
        program.List().TakeOut(u"A"_qs); // of this name the default file has one, too
        if (!canBeDeleted)
            QVERIFY(QFile::remove(world.other) && QDir().mkdir(world.other));
        world.prompter.yes = yes;
        bool isRestored = false;
        world.prompter.onAsk = [&](const Message& message) {
            isRestored = message.text == world.texts[Text::DefaultListRestored];
            if (isRestored)
                QVERIFY(!program.Monitoring().IsOn() && world.locks->held.empty() && window.Names() == three);
        };
        window.Command("mnuDeleteAllActivities").trigger();
        QCOMPARE(int(world.prompter.shown.size()), boxes);
        QCOMPARE(world.prompter.shown.front().text, world.texts[Text::ClearAllQuestion]);
        const bool cleared = yes && canBeDeleted;
        QCOMPARE(isRestored, cleared && isOther);
        QCOMPARE(program.Monitoring().IsOn(), !cleared);
        QCOMPARE(program.File().CurrentPath(), cleared ? world.DefaultFile() : path);
        QCOMPARE(QFile::exists(path), !cleared || !isOther);
        const QStringList dated = QDir(QFileInfo(path).path()).entryList({QFileInfo(path).baseName() + u" *.kvd"_qs});
        QCOMPARE(dated.size(), cleared ? 1 : 0);
        QVERIFY(!cleared || world.Read(QFileInfo(path).path() + u'/' + dated.first()) == bytes);
        QCOMPARE(window.Names(), !cleared ? names : isOther ? three : QStringList());
        QCOMPARE(window.Hint().isVisible(), cleared && !isOther);
        QVERIFY(!cleared || !program.List().IsTakenOut(u"A"_qs));
    }

    void theExampleOverwritesNothing() {
        World world;
        Window window(world);
        const QString folder = world.Path(u"Kalvenor example"_qs);
        world.Folder(u"Kalvenor example/Source"_qs);
        world.Write(folder + u"/Source/Welcome.txt"_qs, "mine");
        window.picker.answers = {QString(), world.Path(QString())};
        QAction& create = window.Command("mnuExample");
        create.trigger(); // cancelled
        QVERIFY(window.Names() == three && !QFile::exists(folder + u"/Example.log"_qs));
        create.trigger();
        const QStringList four = three + QStringList{u"Example"_qs};
        QCOMPARE(window.Names(), four);
        QCOMPARE(window.View().CurrentName(), u"Example"_qs);
        QVERIFY(window.program.List().IsChecked(3) && world.prompter.shown.empty());
        QVERIFY(window.program.RunNow(u"Example"_qs).Succeeded());
        QCOMPARE(world.Read(folder + u"/Destination/Welcome.txt"_qs), QByteArray("mine"));
        QVERIFY(world.Read(folder + u"/Destination/Change me.txt"_qs).startsWith("Change this"));
        QVERIFY(world.Read(folder + u"/Example.log"_qs).contains("Change me.txt"));
        window.Select({u"A"_qs});
        create.trigger();
        QCOMPARE(window.View().CurrentName(), u"Example"_qs);
        QCOMPARE(world.prompter.shown.back().text, world.texts[Text::ExampleIsThere].arg(u"Example"_qs));
        QCOMPARE(window.Names(), four);
    }

    void noActivityWithoutTheFilesOfTheExample() {
        World world;
        Window window(world);
        world.Write(world.Path(u"Kalvenor example"_qs), "a file");
        window.picker.answers = {world.Path(QString())};
        window.Command("mnuExample").trigger();
        QCOMPARE(world.prompter.shown.size(), std::size_t(1));
        QCOMPARE(window.Names(), three);
        QCOMPARE(world.Read(world.Path(u"Kalvenor example"_qs)), QByteArray("a file"));
    }

    void imports() {
        for (const QString& chosen : {u"other.kvd"_qs, QString(), u"Kalvenor.kvd"_qs}) { // "": the question is denied
            const bool imported = chosen == u"other.kvd";
            World world;
            world.prompter.yes = !chosen.isEmpty();
            Window window(world);
            window.program.Monitoring().ToggleMonitoring();
            window.picker.answers = {world.Path(chosen)};
            window.Command("mnuImportActivities").trigger();
            QCOMPARE(window.Names(), imported ? QStringList{u"Other"_qs} : three);
            QCOMPARE(world.prompter.shown.size(), chosen == u"Kalvenor.kvd" ? 2U : 1U);
            QVERIFY(world.prompter.shown.front().text.endsWith(world.texts[Text::ReallyProceed]));
            QCOMPARE(window.program.Monitoring().IsOn(), !imported);
            QCOMPARE(world.settings->values.value(u"Kalvenor/LastFile/DBPath"_qs), imported ? world.other : QString());
            QCOMPARE(window.program.File().CurrentPath(), imported ? world.other : world.DefaultFile());
        }
    }

    void theLastFilesAreOfferedAgain() {
        World world;
        const QString gone = world.Path(u"gone.kvd"_qs);
        world.settings->values[u"Kalvenor/LastFile/ActivityFiles"_qs] = gone;
        Window window(world);
        auto& menu = *window.form.findChild<QMenu*>(u"mnuLastFiles"_qs);
        const auto offered = [&] {
            Q_EMIT menu.aboutToShow();
            QStringList paths;
            for (const QAction* action : menu.actions())
                if (!action->isSeparator())
                    paths.append(action->text());
            paths.removeLast(); // clears
            return paths;
        };
        QCOMPARE(offered(), QStringList());
        window.picker.answers = {world.other};
        window.Command("mnuImportActivities").trigger();
        QCOMPARE(offered(), QStringList{world.DefaultFile()}); // the file in use is not offered
        menu.actions().first()->trigger();
        QVERIFY(window.Names() == three && offered() == QStringList{world.other});
        QVERIFY(world.settings->values[u"Kalvenor/LastFile/ActivityFiles"_qs].endsWith(gone)); // it may come back
        window.Command("mnuClearLastFiles").trigger();
        QVERIFY(offered().isEmpty() && !window.Command("mnuClearLastFiles").isEnabled());
    }

    void exports() {
        for (const auto& [chosen, box] : {std::pair(u"other.kvd"_qs, QString()), // is there already
                                          std::pair(u"Kalvenor.kvd"_qs, u"The file is in use"_qs),
                                          std::pair(u"none/copy.kvd"_qs, u"could not be saved"_qs)}) {
            World world;
            Window window(world);
            window.program.Monitoring().ToggleMonitoring();
            const QString path = world.Path(chosen);
            const QByteArray before = world.Read(world.DefaultFile());
            window.picker.answers = {path};
            window.Command("mnuExportActivities").trigger();
            QCOMPARE(world.Read(world.DefaultFile()), before);
            QVERIFY(window.program.Monitoring().IsOn());
            QCOMPARE(world.prompter.shown.empty(), box.isEmpty());
            QVERIFY(world.prompter.Told().join(u'|').contains(box));
            QCOMPARE(window.program.File().CurrentPath(), box.isEmpty() ? path : world.DefaultFile());
            if (!box.isEmpty())
                continue;
            QVERIFY(window.form.windowTitle().contains(path));
            QVERIFY(world.Read(path).contains("<A>") && world.Read(path).contains("<C>"));
            window.program.File().Save(); // throws if it takes the file for one changed by another program
            // The lock has moved along: the old file may be monitored elsewhere, the new one may not.
            EngineLock elsewhere(*world.locks, *world.services.ownFiles);
            LockRefusal refusal{};
            QVERIFY(elsewhere.Take(world.DefaultFile(), refusal) != nullptr);
            QVERIFY(elsewhere.Take(path, refusal) == nullptr);
        }
    }

    void searchWalksFromHitToHit() {
        World world;
        world.WriteActivities(
            world.DefaultFile(),
            world.Activity(u"Alpha"_qs, {{u"sourcedir"_qs, u"/in/Photos"_qs}, {u"targetdir"_qs, u"/out/one"_qs}}) +
                world.Activity(u"Beta"_qs, {{u"comment"_qs, u"xABCx"_qs}, {u"extensions"_qs, u"hidden"_qs}}) +
                world.Activity(u"Gamma"_qs, {{u"sourcedir"_qs, u"/in/photos"_qs}, {u"action"_qs, u"1"_qs}}));
        Window window(world);
        window.program.List().SetText(u"Gamma"_qs, ActivityList::Status, u"Stra\u00dfe"_qs);
        /// The rows that are found one after the other, until the box says that there is no more.
        const auto found = [&](const QString& text) {
            WhenOpen<frmSearch>([&](frmSearch& form) {
                Find<QLineEdit>(form, "txtSearchText").setText(text);
                Find<QPushButton>(form, "cmdOK").click();
            });
            world.prompter.shown.clear();
            QString names;
            for (window.Command("mnuSearch").trigger(); world.prompter.shown.empty() && names.size() < 4;
                 window.Command("mnuSearchAgain").trigger())
                names += window.View().CurrentName().front();
            return names;
        };
        QVERIFY(!window.Command("mnuSearchAgain").isEnabled());
        QCOMPARE(found(u"a"_qs), u"ABG"_qs); // names
        window.View().sortByColumn(0, Qt::DescendingOrder);
        QCOMPARE(found(u"a"_qs), u"GBA"_qs); // down the screen
        window.View().sortByColumn(-1, Qt::AscendingOrder);
        QCOMPARE(found(u"PHOTOS"_qs), u"AG"_qs);  // sources
        QCOMPARE(found(u"strasse"_qs), u"G"_qs);  // status
        QCOMPARE(found(u"abc"_qs), u"B"_qs);      // comment
        QCOMPARE(found(u"hidden"_qs), QString()); // what the list does not show
        QCOMPARE(world.prompter.shown.front().text, u"Text not found!"_qs);
    }

    void theTrayAsksForADialUpLine() {
        World world;
        Window window(world);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == u"mnuPopUpTray")
                widget->findChild<QAction*>(u"mnuSyncTray"_qs)->trigger();
        QCOMPARE(world.prompter.shown.size(), std::size_t(1));
        QCOMPARE(world.prompter.shown.front().title, world.texts[Text::NoConnectionTitle]);
        QVERIFY(world.systemClock->set.empty());
    }

    void theServiceDialogEndsTheWindowForTheService() {
        for (const bool starts : {false, true}) {
            World world;
            Window window(world);
            QSignalSpy closed(&window.form, &frmMain::Closed);
            world.serviceManager->later = [](const std::function<void()>&) {}; // no answer yet
            world.serviceManager->state.kind = ServiceState::Kind::Stopped;
            WhenOpen<frmServiceOptions>([&](const frmServiceOptions& form) {
                QCOMPARE(Find<QLabel>(form, "lblState").text(), world.texts[Text::ServiceIsStopped]);
                Find<QPushButton>(form, starts ? "cmdStartSvc" : "cmdInstallSvc").click();
                QCOMPARE(Find<QPushButton>(form, "cmdStopSvc").isEnabled(), starts);
            });
            window.Command("mnuServiceOptions").trigger();
            QCOMPARE(world.serviceManager->asked, QStringList{starts ? u"start KalvenorPro"_qs : u"install"_qs});
            QCOMPARE(window.form.isVisible(), !starts);
            QTRY_COMPARE(closed.size(), starts ? 1 : 0);
        }
    }
};

QTEST_MAIN(TestCommands)
#include "test_commands.moc"
