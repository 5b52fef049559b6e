// What the help menu shows, and the desktop's programs that commands call on.
#include "DialogHost.h"
#include "HelpCommands.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "frmAbout.h"
#include "frmText.h"
#include "modOpenExplorer.h"
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

class TestHelpCommands : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void manual_data() {
        QTest::addColumn<bool>("isThere");
        QTest::addColumn<bool>("isShown");
        QTest::newRow("shown") << true << true;
        QTest::newRow("missing") << false << true;
        QTest::newRow("nothing to show it with") << true << false;
    }
    void manual() {
        QFETCH(bool, isThere);
        QFETCH(bool, isShown);
        ProgramFixture fixture;
        DialogHost dialogs;
        HelpCommands commands(fixture.Start(), dialogs);
        const QString name = QStringLiteral("Kalvenor Pro Anleitung.mht");
        if (isThere)
            fixture.Write(name, "manual");
        fixture.process->succeeds = isShown;
        commands.OpenManual();
        QCOMPARE(fixture.process->opened, isThere ? QStringList{fixture.Path(name)} : QStringList());
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(isThere && isShown ? 0 : 1));
        if (!fixture.prompter.shown.empty()) {
            QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(136) + u'\n' + fixture.texts.Text(137));
            QCOMPARE(fixture.prompter.shown.front().title, QStringLiteral("Help can not be opened"));
        }
    }

    void about() {
        ProgramFixture fixture;
        DialogHost dialogs;
        HelpCommands commands(fixture.Start(), dialogs);
        QString report;
        WhenOpen<frmAbout>([&](frmAbout& form) {
            auto& link = Find<QLabel>(form, "lblLink");
            QCOMPARE(link.accessibleName(), QStringLiteral("Visit Orrindale in the world wide web ..."));
            link.setFocus();
            QTest::keyClick(&link, Qt::Key_Tab); // to the link inside the label
            QTest::keyClick(&link, Qt::Key_Return);
            WhenOpen<frmText>([&](const frmText& inner) {
                report = Find<QPlainTextEdit>(inner, "txtText").toPlainText();
                commands.ShowAbout(); // from the tray: the open dialogs stay the only ones
            });
            Find<QPushButton>(form, "cmdSysInfo").click();
            Find<QPushButton>(form, "cmdOK").click();
        });
        commands.ShowAbout();
        QCOMPARE(fixture.process->webPages, QStringList{QString(HelpCommands::HomePage)});
        for (const QString& part : {QStringLiteral("Some System 12"), QStringLiteral("8.00 GiB"), fixture.dir.path(),
                                    fixture.program->File().CurrentPath(), QStringLiteral(KALVENOR_VERSION)})
            QVERIFY2(report.contains(part), qPrintable(part));
    }

    void noSystemInformation() {
        ProgramFixture fixture;
        DialogHost dialogs;
        HelpCommands commands(fixture.Start(), dialogs);
        fixture.systemInformation->facts.reset();
        commands.ShowSystemInformation();
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(105));
    }

    void folders() {
        ProgramFixture fixture;
        fixture.Add(QStringLiteral("A"));
        fixture.Add(QStringLiteral("B"), {{QStringLiteral("sourcedir"), QStringLiteral("/no/where")}});
        Program& program = fixture.Start();
        modOpenExplorer::OpenSource(program, QStringLiteral("A"));
        modOpenExplorer::OpenTarget(program, QStringLiteral("A"));
        modOpenExplorer::OpenSource(program, QString());
        QCOMPARE(fixture.process->folders,
                 (QStringList{fixture.Path(QStringLiteral("src")), fixture.Path(QStringLiteral("dst"))}));
        QVERIFY(fixture.prompter.shown.empty());
        fixture.process->succeeds = false;
        modOpenExplorer::OpenSource(program, QStringLiteral("B"));
        QCOMPARE(fixture.prompter.shown.front().text,
                 QStringLiteral("The selected source directory '/no/where' doesn't exist."));
        modOpenExplorer::OpenTarget(program, QStringLiteral("B"));
        QVERIFY(fixture.prompter.shown.back().text.contains(fixture.Path(QStringLiteral("dst"))));
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(2));
    }
};

QTEST_MAIN(TestHelpCommands)
#include "test_helpcommands.moc"
