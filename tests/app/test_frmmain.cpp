// The real main window over a real program: monitoring, running now, and above all how it closes.
#include "ActivityEditor.h"
#include "ModalForm.h"
#include "RunChart.h"
#include "WindowFixture.h"
#include "frmLogFile.h"
#include "frmOptions.h"
#include "frmPreview.h"
#include "frmStatistics.h"
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

namespace {

struct World : ProgramFixture {
    explicit World(const QStringList& activities = {u"A"_qs}, const QStringList& files = {u"f"_qs}) {
        Fill(activities, files);
    }
    QStringList Copies(const QString& name) const { return Entries(name + u"-out"_qs); }
    QString Stored(const char* key) const {
        return settings->values.value(u"Kalvenor/WindowPos/"_qs + QLatin1String(key));
    }
};

const QStringList three{u"A"_qs, u"B"_qs, u"C"_qs};

} // namespace

class TestFrmMain : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void refusesToStartWithNothingActive() {
        World world;
        world.WriteActivities(world.DefaultFile(), world.Copying(u"A"_qs, false));
        Window window(world);
        window.Command("mnuStart").trigger();
        QVERIFY(!window.program.Monitoring().IsOn() && !window.Command("mnuStart").isChecked());
    }

    void runNow() {
        /// What was asked, and who has run.
        const auto run = [](const char* command, bool yes) {
            World world(three);
            world.prompter.yes = yes;
            Window window(world);
            window.Select({u"C"_qs, u"B"_qs}); // B is the current one
            if (qstrcmp(command, "RunNow") == 0)
                window.form.findChild<QToolButton*>(u"RunNow"_qs)->click();
            else
                window.Command(command).trigger();
            QStringList said;
            for (const Message& message : world.prompter.shown)
                said.append(message.text);
            for (const QString& name : three)
                if (!world.Copies(name).isEmpty())
                    said.append(name);
            return said;
        };
        const StringTable texts(Language::English);
        QCOMPARE(run("mnuStartActivityNow", false), QStringList{texts[Text::StartNowQuestion]});
        QCOMPARE(run("RunNow", true), (QStringList{texts[Text::StartNowQuestion], u"B"_qs}));
        QCOMPARE(run("mnuExecuteAllMarkedActivities", false), QStringList{texts[Text::StartMarkedQuestion]});
        QCOMPARE(run("mnuExecuteAllMarkedActivities", true),
                 (QStringList{texts[Text::StartMarkedQuestion], u"B"_qs, u"C"_qs}));
    }

    void closingAsksWhileMonitoring() {
        World world;
        Window window(world);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.program.Options().LoggingPath = world.Path(u"app.log"_qs);
        window.Command("mnuActivityLogWindow").trigger();
        const auto hasLogWindow = [] {
            const QWidgetList all = QApplication::topLevelWidgets();
            return std::any_of(all.begin(), all.end(), [](const QWidget* one) {
                return one->objectName() == u"frmLogFile" && one->isVisible();
            });
        };
        window.Command("mnuStart").trigger();
        window.Command("mnuExit").trigger();
        QVERIFY(hasLogWindow());
        QCOMPARE(world.prompter.shown.size(), 1U);
        QCOMPARE(world.prompter.shown.front().text, world.texts[Text::ExitWhileMonitoring]);
        QVERIFY(window.program.Monitoring().IsOn() && window.form.isVisible());
        QVERIFY(world.Stored("Top").isEmpty());

        world.prompter.yes = true;
        window.form.close();
        QVERIFY(!window.program.Monitoring().IsOn() && !window.form.isVisible());
        QVERIFY(!hasLogWindow());
        QCOMPARE(world.Stored("WindowState"), u"0"_qs);
        QTRY_COMPARE(closed.size(), 1);
    }

    void exitAsksAboutAChangedEditorAndTheSystemDoesNot() {
        World world;
        const QByteArray before = world.Read(world.DefaultFile());
        Window window(world);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        window.Command("mnuStart").trigger();
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            EditorDialog editor(window.program, window.dialogs, window.picker);
            return editor.Edit(u"A"_qs, window.editor.shown, write);
        };
        WhenOpen<frmOptions>([&](frmOptions& form) {
            Find<QPlainTextEdit>(form, "txtComment").setPlainText(u"typed"_qs);
            window.Command("mnuExit").trigger();
            QCOMPARE(world.prompter.shown.size(), 1U);
            QCOMPARE(world.prompter.shown.front().text, world.texts[Text::DropChanges]);
            QVERIFY(form.isVisible() && window.form.isVisible());
            window.form.CloseWithoutQuestion();
            QVERIFY(!form.isVisible());
        });
        window.Select({u"A"_qs});
        window.Command("mnuProperties").trigger();
        QCOMPARE(world.prompter.shown.size(), 1U);
        QCOMPARE(world.Read(world.DefaultFile()), before);
        QVERIFY(!window.program.Monitoring().IsOn() && !world.Stored("Top").isEmpty());
        QTRY_COMPARE(closed.size(), 1);
    }

    void aPreviewOpensFromTheEditor() {
        World world;
        Window window(world);
        window.editor.onEdit = [&](const ActivityEditor::Writer& write) {
            ActivityRecord mirror = window.editor.shown;
            mirror.SetNumber(ActivityField::Action, 3);
            EditorDialog editor(window.program, window.dialogs, window.picker);
            return editor.Edit(u"A"_qs, mirror, write);
        };
        bool isShown = false;
        WhenOpen<frmOptions>([&](frmOptions& form) {
            WhenOpen<frmPreview>([&](frmPreview& preview) {
                isShown = true;
                preview.reject();
            });
            Find<QPushButton>(form, "cmdPreview").click();
            QVERIFY(form.isVisible());
            form.reject();
        });
        window.Select({u"A"_qs});
        window.Command("mnuProperties").trigger();
        QVERIFY(isShown);
    }

    void aPreviewIsFilteredSavedAndRun() {
        World world({u"A"_qs}, {u"f1"_qs, u"f2"_qs, u"g"_qs});
        world.Write(u"A-out/g"_qs, "content of g"); // is left alone
        Window window(world);
        window.Select({u"A"_qs});
        QByteArray saved;
        WhenOpen<frmPreview>([&](frmPreview& form) {
            const QAbstractItemModel& shown = *Find<QTreeView>(form, "lvwPlan").model();
            QCOMPARE(shown.rowCount(), 2);
            Find<QCheckBox>(form, "chkDeed5").click();
            QCOMPARE(shown.rowCount(), 3);
            Find<QLineEdit>(form, "txtFilter").setText(u"F2"_qs);
            QCOMPARE(shown.rowCount(), 1);
            window.picker.answers = {world.Path(u"plan.csv"_qs)};
            Find<QPushButton>(form, "cmdSave").click();
            saved = world.Read(u"plan.csv"_qs);
            QVERIFY(world.Entries(u"A-out"_qs) == QStringList{u"g"_qs});
            Find<QPushButton>(form, "cmdRun").click();
        });
        window.Command("mnuPreview").trigger();
        QCOMPARE(saved.count("\r\n"), 2);
        QVERIFY(saved.contains("f2") && saved.contains(",13,"));
        QCOMPARE(world.Copies(u"A"_qs), (QStringList{u"f1"_qs, u"f2"_qs, u"g"_qs}));
        QVERIFY(world.prompter.shown.empty());
        window.program.RunNow(u"A"_qs); // has nothing to do
        WhenOpen<frmStatistics>([&](frmStatistics& form) {
            auto& chart = Find<RunChart>(form, "chtRuns");
            const auto& run = Find<QLabel>(form, "lblRun");
            QVERIFY(Find<QLabel>(form, "lblTotals").text().contains(u"2 runs"_qs));
            QVERIFY(run.text().contains(u": 0 copied"_qs));
            QTest::keyClick(&chart, Qt::Key_Left);
            QVERIFY(run.text().contains(u": 2 copied"_qs));
            QCOMPARE(chart.accessibleDescription(), run.text());
            QTest::mouseClick(&chart, Qt::LeftButton, {}, {chart.width() - 8, chart.height() / 2});
            QVERIFY(run.text().contains(u": 0 copied"_qs));
            for (const int measure : {2, 1, 0})
                Find<QComboBox>(form, "cboMeasure").setCurrentIndex(measure);
            QVERIFY(!chart.grab().isNull());
            form.accept();
        });
        window.Command("mnuStatistics").trigger();
    }

    void aRunIsStoppedAndItsResultOpened() {
        World world({u"A"_qs, u"B"_qs}, {u"f1"_qs, u"f2"_qs, u"f3"_qs, u"f4"_qs});
        QByteArray xml = world.Read(u"Kalvenor.kvd"_qs);
        xml.replace("<logfile>", QByteArray("<logfile>" + world.Path(u"log"_qs).toLatin1()));
        QVERIFY(world.ScratchFolder::Write(u"Kalvenor.kvd"_qs, xml));
        world.prompter.yes = true;
        Window window(world);
        window.Select({u"A"_qs, u"B"_qs});
        world.pump->onYield = [&] {
            if (window.program.State().Running())
                window.form.findChild<QToolButton*>(u"btnStopRun"_qs)->click();
        };
        window.Command("mnuExecuteAllMarkedActivities").trigger();
        QVERIFY(world.Copies(u"A"_qs).size() < 4 && world.Copies(u"B"_qs).isEmpty());
        auto* result = window.form.findChild<QToolButton*>(u"btnResult"_qs);
        QVERIFY(result->isVisible() && result->text().startsWith(u"A: Ended early"_qs));
        result->click();
        const frmLogFile* log = nullptr;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            log = log != nullptr ? log : qobject_cast<const frmLogFile*>(widget);
        QVERIFY(log != nullptr);
        const auto* text = log->findChild<QPlainTextEdit*>(u"rtfText"_qs);
        QTRY_VERIFY(text->textCursor().block().text().contains(u"you stopped it"_qs));
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
            world.prompter.yes = false;
            window.form.close(); // asks, and goes on
            QCOMPARE(world.prompter.shown.back().text, world.texts[Text::ExitDuringRun]);
            QVERIFY(window.form.isVisible());
            world.prompter.yes = true;
            window.form.close();
            // The window looks whether the run has ended.
            const auto* waiter = window.form.findChild<RunEndWaiter*>();
            QVERIFY(QMetaObject::invokeMethod(waiter->findChild<QTimer*>(), "timeout"));
            isOver = !closed.isEmpty();
        };
        window.Command("mnuStartActivityNow").trigger();
        QVERIFY(!isOver && !window.form.isVisible());
        QVERIFY(world.Copies(u"A"_qs).size() < 4);
        QTRY_COMPARE(closed.size(), 1);
    }

    void endDuringTheNoticeSavesNothing() {
        World world;
        world.settings->values.clear();
        DialogHost dialogs;
        FakeFilePicker picker;
        FakeEditor editor;
        frmMain form(world.Build(), {dialogs, picker, editor});
        QSignalSpy closed(&form, &frmMain::Closed);
        QTimer::singleShot(0, &form, [&] { form.CloseWithoutQuestion(); });
        QCOMPARE(form.Start({}), StartUpResult::Ended);
        QTRY_COMPARE(closed.size(), 1);
        QCOMPARE(world.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs});
    }

    void positionIsKept() {
        World world;
        world.settings->values[u"Kalvenor/WindowPos/Top"_qs] = u"607"_qs; // 40.5 pixels
        world.settings->values[u"Kalvenor/WindowPos/Left"_qs] = u"nan"_qs;
        world.settings->values[u"Kalvenor/WindowPos/WindowState"_qs] = u"9"_qs;
        Window window(world);
        QCOMPARE(window.form.pos(), QPoint(13, 40));
        window.form.resize(500, 300);
        window.form.close();
        QStringList stored;
        for (const char* key : {"Top", "Left", "Width", "Height", "WindowState"})
            stored.append(world.Stored(key));
        QCOMPARE(stored, (QStringList{u"607"_qs, u"200"_qs, u"7500"_qs, u"4500"_qs, u"0"_qs}));
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
};

QTEST_MAIN(TestFrmMain)
#include "test_frmmain.moc"
