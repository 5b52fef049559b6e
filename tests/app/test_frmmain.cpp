// The real main window over a real program: monitoring, running now, and above all how it closes.
#include "WindowFixture.h"
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QtTest>

namespace {

struct World : AppFixture {
    explicit World(const QStringList& activities = {u"A"_qs}, const QStringList& files = {u"f"_qs}) {
        Fill(activities, files);
    }
    QStringList Copies(const QString& name) { return QDir(Folder(name + u"-out"_qs)).entryList(QDir::Files); }
    QString Stored(const char* key) const {
        return settings->values.value(u"Kalvenor/WindowPos/"_qs + QLatin1String(key));
    }
};

const QStringList three{u"A"_qs, u"B"_qs, u"C"_qs};

} // namespace

class TestFrmMain : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void startCommandShowsTheState() {
        World world;
        world.WriteActivities({world.Activity(u"A"_qs), world.Activity(u"B"_qs, false)});
        Window window(world);
        QCOMPARE(window.form.findChild<QLabel*>(u"lblCount"_qs)->text(), u"Activities: 2, active: 1"_qs);
        QAction& start = window.Command("mnuStart");
        const auto* button = window.form.findChild<QToolButton*>(u"StartStop"_qs);
        QAction* tray = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == u"mnuPopUpTray")
                tray = widget->findChild<QAction*>(u"mnuStartTray"_qs);
        QVERIFY(button != nullptr && tray != nullptr);
        const auto compare = [&](bool on, const QString& caption) {
            QCOMPARE(window.program.Monitoring().IsOn(), on);
            QVERIFY(start.isChecked() == on && tray->isChecked() == on);
            QCOMPARE((QStringList{start.text(), tray->text(), button->toolTip()}), QStringList(3, caption));
        };
        compare(false, u"Start monitoring"_qs);
        start.trigger();
        compare(true, u"Stop monitoring"_qs);
        tray->trigger();
        compare(false, u"Start monitoring"_qs);
        QVERIFY(world.prompter.shown.empty());
        window.program.List().SetChecked(u"A"_qs, false);
        start.trigger(); // refused: nothing is active
        compare(false, u"Start monitoring"_qs);
        QCOMPARE(world.prompter.shown.size(), 1U);
        QCOMPARE(world.prompter.shown.front().text, world.texts.Text(217));
    }

    void runNow() {
        /// What was asked or told, and who has run.
        const auto run = [](const char* command, const QStringList& selected, bool yes,
                            const QStringList& names = three) {
            World world(names);
            world.prompter.yes = yes;
            Window window(world);
            window.Select(selected);
            window.Command(command).trigger();
            QStringList said = world.prompter.Told();
            for (const QString& name : names)
                if (!world.Copies(name).isEmpty())
                    said.append(name + u' ' + window.program.List().Text(name, ActivityList::Status));
            return said;
        };
        const StringTable texts(Language::English);
        const auto box = [&](int text) { return QString(texts.Text(text + 1) + u": " + texts.Text(text)); };
        const char* const one = "mnuStartActivityNow";
        const char* const all = "mnuExecuteAllMarkedActivities";
        const QString ready = u' ' + texts.Text(198);
        QCOMPARE(run(one, {u"B"_qs}, false), QStringList{box(195)});
        QCOMPARE(run(one, {u"A"_qs, u"C"_qs}, true), (QStringList{box(195), u'C' + ready})); // the current one
        QCOMPARE(run(all, {u"A"_qs}, false), QStringList{box(384)});
        QCOMPARE(run(all, {u"C"_qs, u"B"_qs}, true), (QStringList{box(384), u'B' + ready, u'C' + ready}));
        QCOMPARE(run(all, {}, true), QStringList());
        for (const char* command : {one, all})
            QCOMPARE(run(command, {}, true, {}), QStringList{box(215)});
    }

    void closingAsksWhileMonitoring() {
        World world;
        Window window(world);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.Command("mnuStart").trigger();
        window.Command("mnuExit").trigger();
        QCOMPARE(world.prompter.shown.size(), 1U);
        QCOMPARE(world.prompter.shown.front().text, world.texts.Text(159));
        QVERIFY(window.program.Monitoring().IsOn() && window.form.isVisible());
        QVERIFY(world.Stored("Top").isEmpty());

        world.prompter.yes = true;
        window.form.close();
        QVERIFY(!window.program.Monitoring().IsOn() && !window.form.isVisible());
        QCOMPARE(world.Stored("WindowState"), u"0"_qs);
        QVERIFY(closed.wait());
    }

    void closingDuringARunWaitsForItsFile() {
        World world({u"A"_qs}, {u"f1"_qs, u"f2"_qs, u"f3"_qs, u"f4"_qs});
        world.prompter.yes = true;
        Window window(world);
        window.Select({u"A"_qs});
        QSignalSpy closed(&window.form, &frmMain::Closed);
        bool isOver = true;
        world.pump->onYield = [&] {
            if (!window.program.State().Running())
                return;
            window.form.close();
            QTest::qWait(60); // longer than the window takes to look again
            isOver = !closed.isEmpty();
        };
        window.Command("mnuStartActivityNow").trigger();
        QVERIFY(!isOver && !window.form.isVisible());
        QVERIFY(world.Copies(u"A"_qs).size() < 4);
        QVERIFY(closed.wait());
    }

    void sessionEndAsksNothing() {
        World world;
        Window window(world);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.Command("mnuStart").trigger();
        window.form.CloseWithoutQuestion();
        QVERIFY(world.prompter.shown.empty());
        QVERIFY(!window.program.Monitoring().IsOn());
        QVERIFY(closed.wait());
        QVERIFY(!world.Stored("Top").isEmpty());
    }

    void endDuringTheNoticeSavesNothing() {
        World world;
        world.settings->values.clear();
        Program program(world.services, world.prompter, world.keys, world.texts);
        DialogHost dialogs;
        FakeFilePicker picker;
        FakeEditor editor;
        frmMain form(program, {dialogs, picker, editor});
        QSignalSpy closed(&form, &frmMain::Closed);
        QTimer::singleShot(0, &form, [&] { form.CloseWithoutQuestion(); });
        QCOMPARE(form.Start({}), StartUpResult::Ended);
        QVERIFY(closed.wait());
        QCOMPARE(world.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs});
    }

    void positionIsKept() {
        World world;
        world.settings->values[u"Kalvenor/WindowPos/Top"_qs] = u"607"_qs; // 40.5 pixels
        Window window(world);
        QCOMPARE(window.form.pos(), QPoint(13, 40));
        window.form.resize(500, 300);
        window.form.showMinimized();
        window.form.close();
        QStringList stored;
        for (const char* key : {"Top", "Left", "Width", "Height", "WindowState"})
            stored.append(world.Stored(key));
        QCOMPARE(stored, (QStringList{u"607"_qs, u"200"_qs, u"7500"_qs, u"4500"_qs, u"1"_qs}));
    }

    void minimisedWithoutATrayItStaysInTheTaskBar() {
        World world;
        world.SetOption("ToTray", u"1"_qs);
        Window window(world);
        QVERIFY(!TrayIcon::IsAvailable());
        window.form.showMinimized();
        QCoreApplication::processEvents();
        QVERIFY(window.form.isVisible() && window.form.isMinimized());
    }

    void refreshKeepsTheSelection() {
        World world(three);
        Window window(world);
        window.Select({u"A"_qs, u"C"_qs});
        world.WriteActivities({world.Activity(u"C"_qs), world.Activity(u"B"_qs)});
        window.Command("mnuRefreshList").trigger();
        QCOMPARE(window.View().SelectedNames(), QStringList{u"C"_qs});
        QCOMPARE(window.View().CurrentName(), u"C"_qs);
        QCOMPARE(window.View().model()->rowCount(), 2);
    }

    void theBoxOnlyToggles() {
        World world;
        Window window(world);
        QSignalSpy opened(&window.View(), &ActivityListView::RowOpened);
        const QRect row = window.View().visualRect(window.View().model()->index(0, 0));
        const QPoint box(row.left() + 10, row.center().y());
        QTest::mouseClick(window.View().viewport(), Qt::LeftButton, {}, box);
        QVERIFY(!window.program.List().IsChecked(0));
        QTest::mouseDClick(window.View().viewport(), Qt::LeftButton, {}, box);
        QCOMPARE(opened.size(), 0);
        QTest::mouseDClick(window.View().viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(opened, QList<QVariantList>{{u"A"_qs}});

        const bool before = window.program.List().IsChecked(0);
        window.View().setCurrentIndex(window.View().model()->index(0, ActivityList::Schedule));
        QTest::keyClick(&window.View(), Qt::Key_Space); // from every column
        QCOMPARE(window.program.List().IsChecked(0), !before);
    }
};

QTEST_MAIN(TestFrmMain)
#include "test_frmmain.moc"
