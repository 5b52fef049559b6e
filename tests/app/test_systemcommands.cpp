// Clock, updates and service, as the menus reach them.
#include "ModalForm.h"
#include "WindowFixture.h"
#include "frmServiceOptions.h"

#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

class TestSystemCommands final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theTrayAsksForADialUpLine() {
        AppFixture fixture;
        Window window(fixture);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == u"mnuPopUpTray")
                widget->findChild<QAction*>(u"mnuSyncTray"_qs)->trigger();
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().title, fixture.texts.Text(201));
        QVERIFY(fixture.systemClock->set.empty());
    }

    void theServiceDialog_data() {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<int>("message");
        QTest::addColumn<bool>("ends");
        QTest::newRow("install") << QByteArray("cmdInstallSvc") << u"install"_qs << 412 << false;
        QTest::newRow("start") << QByteArray("cmdStartSvc") << u"start KalvenorPro"_qs << 426 << true;
    }
    void theServiceDialog() {
        QFETCH(QByteArray, button);
        QFETCH(QString, asked);
        QFETCH(int, message);
        QFETCH(bool, ends);
        AppFixture fixture;
        Window window(fixture);
        QSignalSpy closed(&window.form, &frmMain::Closed);
        WhenOpen<frmServiceOptions>(
            [&](frmServiceOptions& form) { Find<QPushButton>(form, button.constData()).click(); });
        window.Command("mnuServiceOptions").trigger();
        QCOMPARE(fixture.serviceManager->asked, QStringList{asked});
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(message));
        QCOMPARE(closed.wait(500), ends);
    }
};

QTEST_MAIN(TestSystemCommands)
#include "test_systemcommands.moc"
