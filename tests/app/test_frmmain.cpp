// The real main window over a real program, driven through its commands.
#include "WindowFixture.h"
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

class TestFrmMain : public QObject {
    Q_OBJECT

    static void fill(AppFixture& fixture, const QString& name, const QStringList& files) {
        for (const QString& file : files)
            AppFixture::Write(fixture.Folder(name + u"-in"_qs) + u'/' + file, u"content of "_qs + file);
    }
    static QStringList copies(AppFixture& fixture, const QString& name) {
        return QDir(fixture.Folder(name + u"-out"_qs)).entryList(QDir::Files);
    }
    static QString setting(AppFixture& fixture, const char* key) {
        return fixture.settings->values.value(u"Kalvenor/WindowPos/"_qs + QLatin1String(key));
    }

  private Q_SLOTS:
    void showsTheFileItOpened() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs), fixture.Activity(u"B"_qs, false)});
        Window window(fixture);
        QCOMPARE(window.form.windowTitle(), u"Kalvenor Pro 2.1  ["_qs + fixture.DefaultFile() + u']');
        QCOMPARE(window.View().model()->columnCount(), 10);
        QCOMPARE(window.View().model()->rowCount(), 2);
        QCOMPARE(window.form.findChild<QLabel*>(u"lblCount"_qs)->text(), u"Activities: 2, active: 1"_qs);
        QVERIFY(window.form.statusBar()->currentMessage().isEmpty());
    }

    void startCommandShowsTheState() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Window window(fixture);
        QAction& start = window.Command("mnuStart");
        const auto* button = window.form.findChild<QToolButton*>(u"StartStop"_qs);
        QVERIFY(button != nullptr);
        QAction* tray = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == u"mnuPopUpTray")
                tray = widget->findChild<QAction*>(u"mnuStartTray"_qs);
        }
        QVERIFY(tray != nullptr);
        const auto compare = [&](bool on, const QString& caption) {
            QCOMPARE(window.program.Monitoring().IsOn(), on);
            QCOMPARE(start.isChecked(), on);
            QCOMPARE(tray->isChecked(), on);
            QCOMPARE(start.text(), caption);
            QCOMPARE(tray->text(), caption);
            QCOMPARE(button->toolTip(), caption);
        };
        compare(false, u"Start monitoring"_qs);
        start.trigger();
        compare(true, u"Stop monitoring"_qs);
        tray->trigger();
        compare(false, u"Start monitoring"_qs);
        QVERIFY(fixture.prompter.shown.empty());
    }

    void refusedStartLeavesTheMarksOff() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs, false)});
        Window window(fixture);
        window.Command("mnuStart").trigger();
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(217));
        QVERIFY(!window.Command("mnuStart").isChecked());
        QCOMPARE(window.Command("mnuStart").text(), fixture.texts.Text(142));
    }

    void runNow_data() {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("selected");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<int>("question");
        QTest::addColumn<QStringList>("ran");
        const QString one = u"mnuStartActivityNow"_qs;
        const QString all = u"mnuExecuteAllMarkedActivities"_qs;
        QTest::newRow("current") << one << QStringList{u"B"_qs} << true << 195 << QStringList{u"B"_qs};
        QTest::newRow("declined") << one << QStringList{u"B"_qs} << false << 195 << QStringList{};
        QTest::newRow("current of several")
            << one << QStringList{u"A"_qs, u"C"_qs} << true << 195 << QStringList{u"C"_qs};
        QTest::newRow("marked") << all << QStringList{u"C"_qs, u"A"_qs} << true << 384 << QStringList{u"A"_qs, u"C"_qs};
        QTest::newRow("marked, declined") << all << QStringList{u"A"_qs} << false << 384 << QStringList{};
        QTest::newRow("nothing marked") << all << QStringList{} << true << 0 << QStringList{};
    }
    void runNow() {
        QFETCH(QString, command);
        QFETCH(QStringList, selected);
        QFETCH(int, question);
        AppFixture fixture;
        const QStringList names = {u"A"_qs, u"B"_qs, u"C"_qs};
        QStringList activities;
        for (const QString& name : names) {
            activities.append(fixture.Activity(name, name == u"A"));
            fill(fixture, name, {u"f"_qs});
        }
        fixture.WriteActivities(activities);
        QFETCH(bool, yes);
        fixture.prompter.yes = yes;
        Window window(fixture);
        window.Select(selected);
        window.Command(command.toLatin1().constData()).trigger();

        QStringList ran;
        for (const QString& name : names) {
            if (copies(fixture, name) != QStringList{u"f"_qs})
                continue;
            ran.append(name);
            QCOMPARE(window.program.List().Text(name, ActivityList::Status), fixture.texts.Text(198));
        }
        QTEST(ran, "ran");
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(question == 0 ? 0 : 1));
        if (question != 0) {
            QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(question));
            QCOMPARE(fixture.prompter.shown.front().title, fixture.texts.Text(question + 1));
        }
    }

    void runNowOnAnEmptyList() {
        AppFixture fixture;
        Window window(fixture);
        for (const char* command : {"mnuStartActivityNow", "mnuExecuteAllMarkedActivities"}) {
            fixture.prompter.shown.clear();
            window.Command(command).trigger();
            QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
            QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(215));
            QCOMPARE(fixture.prompter.shown.front().title, fixture.texts.Text(216));
        }
    }

    void closingAsksWhileMonitoring() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Window window(fixture);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.Command("mnuStart").trigger();
        window.Command("mnuExit").trigger();
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(159));
        QVERIFY(window.program.Monitoring().IsOn());
        QVERIFY(window.form.isVisible());
        QVERIFY(setting(fixture, "Top").isEmpty());

        fixture.prompter.yes = true;
        window.form.close();
        QVERIFY(!window.program.Monitoring().IsOn());
        QVERIFY(!window.form.isVisible());
        QCOMPARE(setting(fixture, "WindowState"), u"0"_qs);
        QVERIFY(closed.wait());
    }

    void closingDuringARunWaitsForItsFile() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        fill(fixture, u"A"_qs, {u"f1"_qs, u"f2"_qs, u"f3"_qs, u"f4"_qs});
        fixture.prompter.yes = true;
        Window window(fixture);
        window.Select({u"A"_qs});
        QSignalSpy closed(&window.form, &frmMain::Closed);
        int closedDuringTheRun = -1;
        fixture.pump->onYield = [&] {
            if (!window.program.State().Running())
                return;
            window.form.close();
            QTest::qWait(60); // longer than the window takes to look again
            closedDuringTheRun = static_cast<int>(closed.size());
        };
        window.Command("mnuStartActivityNow").trigger();
        QCOMPARE(closedDuringTheRun, 0);
        QVERIFY(!window.form.isVisible());
        QVERIFY(copies(fixture, u"A"_qs).size() < 4);
        QVERIFY(closed.wait());
    }

    void sessionEndAsksNothing() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Window window(fixture);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.Command("mnuStart").trigger();
        window.form.CloseWithoutQuestion();
        QVERIFY(fixture.prompter.shown.empty());
        QVERIFY(!window.program.Monitoring().IsOn());
        QVERIFY(closed.wait());
        QVERIFY(!setting(fixture, "Top").isEmpty());
    }

    void endDuringTheNoticeSavesNothing() {
        AppFixture fixture;
        fixture.settings->values.clear();
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        DialogHost dialogs;
        FakeFilePicker picker;
        FakeEditor editor;
        frmMain form(program, {dialogs, picker, editor});
        QSignalSpy closed(&form, &frmMain::Closed);
        QTimer::singleShot(0, &form, [&] { form.CloseWithoutQuestion(); });
        QCOMPARE(form.Start({}), StartUpResult::Ended);
        QVERIFY(closed.wait());
        QCOMPARE(fixture.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs});
    }

    void positionIsKept() {
        AppFixture fixture;
        fixture.settings->values[u"Kalvenor/WindowPos/Top"_qs] = u"607"_qs; // 40.5 pixels
        {
            Window window(fixture);
            QCOMPARE(window.form.pos(), QPoint(13, 40));
            window.form.resize(500, 300);
            window.form.showMinimized();
            window.form.close();
        }
        QCOMPARE(setting(fixture, "Top"), u"607"_qs);
        QCOMPARE(setting(fixture, "Left"), u"200"_qs);
        QCOMPARE(setting(fixture, "Width"), u"7500"_qs);
        QCOMPARE(setting(fixture, "Height"), u"4500"_qs);
        QCOMPARE(setting(fixture, "WindowState"), u"1"_qs);
    }

    void minimisedWithoutATrayItStaysInTheTaskBar() {
        AppFixture fixture;
        fixture.SetOption("ToTray", u"1"_qs);
        Window window(fixture);
        QVERIFY(!TrayIcon::IsAvailable());
        window.form.showMinimized();
        QCoreApplication::processEvents();
        QVERIFY(window.form.isVisible());
        QVERIFY(window.form.isMinimized());
    }

    void refreshKeepsTheSelection() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs), fixture.Activity(u"B"_qs), fixture.Activity(u"C"_qs)});
        Window window(fixture);
        window.Select({u"A"_qs, u"C"_qs});
        fixture.WriteActivities({fixture.Activity(u"C"_qs), fixture.Activity(u"B"_qs)});
        window.Command("mnuRefreshList").trigger();
        QCOMPARE(window.View().SelectedNames(), QStringList{u"C"_qs});
        QCOMPARE(window.View().CurrentName(), u"C"_qs);
        QCOMPARE(window.View().model()->rowCount(), 2);
    }

    void doubleClickOnTheBoxOnlyToggles() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Window window(fixture);
        QSignalSpy opened(&window.View(), &ActivityListView::RowOpened);
        const QRect row = window.View().visualRect(window.View().model()->index(0, 0));
        const QPoint box(row.left() + 10, row.center().y());
        QTest::mouseClick(window.View().viewport(), Qt::LeftButton, {}, box);
        QVERIFY(!window.program.List().IsChecked(0));
        QTest::mouseDClick(window.View().viewport(), Qt::LeftButton, {}, box);
        QCOMPARE(opened.size(), 0);
        QTest::mouseDClick(window.View().viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened.first().first().toString(), u"A"_qs);
    }

    void spaceTogglesFromEveryColumn() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Window window(fixture);
        window.View().setCurrentIndex(window.View().model()->index(0, ActivityList::Schedule));
        QTest::keyClick(&window.View(), Qt::Key_Space);
        QVERIFY(!window.program.List().IsChecked(0));
    }
};

QTEST_MAIN(TestFrmMain)
#include "test_frmmain.moc"
