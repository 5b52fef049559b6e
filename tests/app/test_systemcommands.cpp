// Clock, updates and service, as the menus reach them.
#include "ModalForm.h"
#include "WindowFixture.h"
#include "frmServiceOptions.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

class TestSystemCommands final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theTrayAsksForADialUpLine() {
        ProgramFixture fixture;
        Window window(fixture);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == u"mnuPopUpTray")
                widget->findChild<QAction*>(u"mnuSyncTray"_qs)->trigger();
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().title, fixture.texts[Text::NoConnectionTitle]);
        QVERIFY(fixture.systemClock->set.empty());
    }

    void theServiceDialogEndsTheWindowForTheService() {
        for (const bool starts : {false, true}) {
            ProgramFixture fixture;
            Window window(fixture);
            QSignalSpy closed(&window.form, &frmMain::Closed);
            fixture.serviceManager->later = [](const std::function<void()>&) {}; // no answer yet
            fixture.serviceManager->state.kind = ServiceState::Kind::Stopped;
            WhenOpen<frmServiceOptions>([&](const frmServiceOptions& form) {
                QCOMPARE(Find<QLabel>(form, "lblState").text(), fixture.texts[Text::ServiceIsStopped]);
                Find<QPushButton>(form, starts ? "cmdStartSvc" : "cmdInstallSvc").click();
                QCOMPARE(Find<QPushButton>(form, "cmdStopSvc").isEnabled(), starts);
            });
            window.Command("mnuServiceOptions").trigger();
            QCOMPARE(fixture.serviceManager->asked, QStringList{starts ? u"start KalvenorPro"_qs : u"install"_qs});
            QCOMPARE(window.form.isVisible(), !starts);
            QTRY_COMPARE(closed.size(), starts ? 1 : 0);
        }
    }
};

QTEST_MAIN(TestSystemCommands)
#include "test_systemcommands.moc"
