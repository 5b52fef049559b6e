// What the help menu shows, and the desktop's programs that commands call on.
#include "DialogHost.h"
#include "HelpCommands.h"
#include "ProgramFixture.h"
#include "modOpenExplorer.h"

class TestHelpCommands : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void manual() {
        const auto told = [](bool isThere, bool isShown) {
            ProgramFixture fixture;
            DialogHost dialogs;
            HelpCommands commands(fixture.Start(), dialogs);
            const QString name = u"Kalvenor Pro Anleitung.mht"_qs;
            if (isThere)
                fixture.Write(name, "manual");
            fixture.process->succeeds = isShown;
            commands.OpenManual();
            const QStringList opened = isThere ? QStringList{fixture.Path(name)} : QStringList();
            return fixture.process->opened == opened ? fixture.prompter.Told() : fixture.process->opened;
        };
        const StringTable texts(Language::English);
        const QString box = u"Help can not be opened: "_qs + texts.Text(136) + u'\n' + texts.Text(137);
        QCOMPARE(told(true, true), QStringList());
        QCOMPARE(told(true, false), QStringList{box});
        QCOMPARE(told(false, true), QStringList{box});
    }

    void folders() {
        ProgramFixture fixture;
        fixture.Add(u"A"_qs);
        fixture.Add(u"B"_qs, {{u"sourcedir"_qs, u"/no/where"_qs}});
        Program& program = fixture.Start();
        modOpenExplorer::OpenSource(program, u"A"_qs);
        modOpenExplorer::OpenTarget(program, u"A"_qs);
        modOpenExplorer::OpenSource(program, QString());
        QCOMPARE(fixture.process->folders, (QStringList{fixture.Path(u"src"_qs), fixture.Path(u"dst"_qs)}));
        QVERIFY(fixture.prompter.shown.empty());
        fixture.process->succeeds = false;
        modOpenExplorer::OpenSource(program, u"B"_qs);
        modOpenExplorer::OpenTarget(program, u"B"_qs); // is there, but nothing shows it
        QCOMPARE(fixture.prompter.Told(),
                 (QStringList{u"Directory not found: The selected source directory '/no/where' doesn't exist."_qs,
                              u"Error: "_qs + fixture.texts.Text(545).arg(fixture.Path(u"dst"_qs))}));
    }
};

QTEST_MAIN(TestHelpCommands)
#include "test_helpcommands.moc"
