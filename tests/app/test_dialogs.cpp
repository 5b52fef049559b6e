// The logs and the general options in the window: what is shown, stored, created and deleted, and what is not.
#include "DialogHost.h"
#include "FakeFilePicker.h"
#include "HelpCommands.h"
#include "LogCommands.h"
#include "ModalForm.h"
#include "OptionsCommand.h"
#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "frmLogFile.h"
#include "frmStartOptions.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>

namespace {

struct Scene : ProgramFixture {
    Scene() { program->Options().ReadRegistry(); }

    /// Opens the options, acts in them and saves, unless the act has ended the dialog.
    template <typename Act>
    void Edit(Act act) {
        WhenOpen<frmStartOptions>([act](frmStartOptions& form) {
            act(form);
            if (form.isVisible())
                Find<QPushButton>(form, "cmdSave").click();
        });
        options.ShowOptions();
    }
    QString Stored(const QString& key) const { return settings->values.value(u"Kalvenor/Options/"_qs + key); }

    DialogHost dialogs;
    FakeFilePicker picker;
    LogCommands logs{startWithActivities(), dialogs};
    HelpCommands help{*program, dialogs};
    OptionsCommand options{*program, dialogs, picker, help};

  private:
    Program& startWithActivities() {
        for (const char* name : {"A", "B", "C"})
            Add(QLatin1String(name));
        return Start();
    }
};

QPlainTextEdit& textOf(const frmLogFile& viewer) {
    return Find<QPlainTextEdit>(viewer, "rtfText");
}

} // namespace

class TestDialogs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void showsOneAfterTheOther() {
        Scene scene;
        scene.Write(u"A.log"_qs, "first\r\nlast \xC3\xA4\xFF\r\n");
        scene.Write(u"B.log"_qs, "b");
        QStringList shown;
        const auto look = [&](const frmLogFile& viewer) { shown.append(textOf(viewer).toPlainText()); };
        WhenOpen<frmLogFile>([&](frmLogFile& viewer) {
            look(viewer);
            scene.Write(u"A.log"_qs, "new");
            QTest::keyClick(&viewer, Qt::Key_F5);
            look(viewer);
            WhenOpen<frmLogFile>(look);
        });
        scene.logs.ShowActivityLogs({u"A"_qs, u"gone"_qs, u"B"_qs, u"C"_qs, u"A"_qs});
        QCOMPARE(shown,
                 (QStringList{u"first\nlast %1\n"_qs.arg(QString::fromLocal8Bit("\xC3\xA4\xFF")), u"new"_qs, u"b"_qs}));
        QCOMPARE(scene.prompter.Told(), QStringList{u"No logfile found: No logfile found for this activity."_qs});
    }

    void largeLogIsReadInParts() {
        Scene scene;
        constexpr int lines = 100'000;
        QByteArray log;
        for (int line = 0; line < lines; ++line)
            log += QByteArray::number(line) + QByteArray(70, line % 2 == 0 ? 'x' : 'y') + "\r\n";
        scene.Write(u"A.log"_qs, log + QByteArray(3'000'000, 'z') + "last");
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(u"A.log"_qs));
        viewer.show();
        QPlainTextEdit& box = textOf(viewer);
        QScrollBar& bar = *box.verticalScrollBar();
        const auto isBounded = [&] {
            for (const QString& line : box.toPlainText().split(u'\n'))
                if (line.size() > 10'000) // the box would need minutes for one line of millions
                    return false;
            return box.toPlainText().size() <= 2 * 1024 * 1024 + 1000;
        };
        const auto lineAt = [&](int row) { return box.document()->findBlockByNumber(row).text(); };
        QVERIFY(box.toPlainText().endsWith(u"zlast") && isBounded());
        // Up to the beginning: no line is left out between two parts, and what was in view stays there.
        int next = -1;
        for (int parts = 0; !box.toPlainText().startsWith(u"0x") && parts < 20; ++parts) {
            const QString top = lineAt(0);
            bar.setValue(bar.minimum());
            QCoreApplication::processEvents();
            QVERIFY(isBounded());
            QCOMPARE(lineAt(bar.value()), top);
            QVERIFY(bar.value() > 0);
            const int above = lineAt(bar.value() - 1).remove(QRegularExpression(u"[xyz].*"_qs)).toInt();
            if (next >= 0)
                QCOMPARE(above, next);
            next = top.startsWith(u'z') ? -1 : lineAt(0).remove(QRegularExpression(u"[xyz].*"_qs)).toInt() - 1;
        }
        QVERIFY(box.toPlainText().startsWith(u"0x"));
        // And down again.
        for (int parts = 0; !box.toPlainText().endsWith(u"last") && parts < 20; ++parts) {
            const QString bottom = box.toPlainText().trimmed().section(u'\n', -1);
            bar.setValue(bar.maximum());
            QCoreApplication::processEvents();
            QVERIFY(isBounded() && box.toPlainText().contains(bottom));
        }
        QVERIFY(box.toPlainText().endsWith(u"last"));
        QTest::keyClick(&box, Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(box.toPlainText().startsWith(u"0x"));
        QTest::keyClick(&viewer, Qt::Key_F5);
        QVERIFY(box.toPlainText().endsWith(u"last"));
    }

    void deletesConfirmedRegularFilesOnly() {
        /// What the boxes say, and "gone" when the file is.
        const auto removal = [](const QString& log, const QString& kind, bool yes) {
            Scene scene;
            scene.prompter.yes = yes;
            if (kind != u"not set")
                scene.program->Options().LoggingPath = scene.Path(u"app.log"_qs);
            if (kind == u"file")
                scene.Write(log, "text");
            else if (kind == u"folder")
                QDir().mkpath(scene.Path(log));
            else if (kind == u"pipe")
                SystemWorld::MakeFifo(scene.Native(log));
            const bool before = scene.Exists(log);
            if (log == u"app.log")
                scene.logs.DeleteApplicationLog();
            else
                scene.logs.DeleteActivityLog(u"A"_qs);
            if (before && !scene.Exists(log))
                scene.prompter.shown.push_back({{}, u"gone"_qs});
            return QDir::fromNativeSeparators(scene.prompter.Told().join(u' ').replace(scene.Path(), u"~"_qs));
        };
        const QString ask = u"Delete Kalvenor logfile: Really delete the Kalvenor logfile?"_qs;
        const QString none = u"No logfile found: No logfile found for Kalvenor Pro."_qs;
        QCOMPARE(removal(u"app.log"_qs, u"file"_qs, true), ask + u" gone: ");
        QCOMPARE(removal(u"app.log"_qs, u"file"_qs, false), ask);
        for (const QString& kind : {u"folder"_qs, u"not set"_qs})
            QCOMPARE(removal(u"app.log"_qs, kind, true), none);
        const QString askOne = u"Delete activity logfile: Should the logfile '~/A.log' really be deleted?"_qs;
        const QString noneOne = u"No logfile found: There is no logfile for this activity that can be deleted."_qs;
        QCOMPARE(removal(u"A.log"_qs, u"file"_qs, true), askOne + u" gone: ");
        QCOMPARE(removal(u"A.log"_qs, u"file"_qs, false), askOne);
        for (const QString& kind : {u"missing"_qs, u"folder"_qs, u"pipe"_qs})
            QCOMPARE(removal(u"A.log"_qs, kind, true), noneOne);
    }

    void whatIsNoLogIsNotWaitedFor() {
        if (!SystemWorld::CanMake("fifo"))
            QSKIP("this system has no pipes among its files");
        Scene scene;
        SystemWorld::MakeFifo(scene.Native(u"pipe"_qs));
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(u"pipe"_qs)); // hangs if it waits for the other end
        QCOMPARE(textOf(viewer).toPlainText(), QString());
        QVERIFY(textOf(viewer).placeholderText().startsWith(scene.texts[Text::LogUnreadable]));
    }

    void whatIsNoNumberSwitchesNoSafetyOff() {
        const auto read = [](const std::optional<QString>& stored) {
            MemorySettings settings;
            if (stored)
                for (const char* key : {"Shutdown", "StartUp", "ExitAlert", "StopIfFolderNotExist"})
                    settings.values[u"Kalvenor/Options/"_qs + QLatin1String(key)] = *stored;
            clsWatcher options(settings);
            options.Shutdown = 9; // must not be left over
            options.ReadRegistry();
            return QList<int>{options.Shutdown, options.StartUp, options.ExitAlert, options.StopIfFolderNotExist};
        };
        const QList byDefault{0, 0, 1, 1};
        QCOMPARE(read(u" 1 "_qs), QList({1, 1, 1, 1}));
        QCOMPARE(read(u"0"_qs), QList({0, 0, 0, 0}));
        QCOMPARE(read(std::nullopt), byDefault);
        for (const QString& broken : {QString(), u"256"_qs, u"4294967296"_qs, u"-1"_qs, u"0x"_qs})
            QCOMPARE(read(broken), byDefault);
    }

    void everyControlIsItsOption() {
        const QMap<const char*, QString> switches{{"chkStartWithWindows", u"ActivateWhileWindowsStarting"_qs},
                                                  {"chkMinToTray", u"ToTray"_qs},
                                                  {"chkShutdown", u"Shutdown"_qs},
                                                  {"chkStartUp", u"StartUp"_qs},
                                                  {"chkLogfileRefresh", u"LogfileRefresh"_qs},
                                                  {"chkExitAlert", u"ExitAlert"_qs},
                                                  {"chkStopIfFolderNotExist", u"StopIfFolderNotExist"_qs}};
        const QStringList onByDefault{u"ExitAlert"_qs, u"StopIfFolderNotExist"_qs};
        for (const char* control : switches.keys()) {
            Scene scene;
            scene.Edit([&](frmStartOptions& form) { Find<QCheckBox>(form, control).click(); });
            for (const QString& key : switches) {
                const bool isOn = onByDefault.contains(key) != (key == switches[control]);
                QCOMPARE(key + scene.Stored(key), key + (isOn ? u'1' : u'0'));
            }
        }
    }

    void cancelWritesWhatWas() {
        Scene scene;
        scene.program->Options().ToTray = 7;
        scene.program->Options().LoggingPath = u"/a, b.log"_qs;
        scene.Edit([&](frmStartOptions& form) {
            QVERIFY(!Find<QCheckBox>(form, "chkMinToTray").isChecked());
            Find<QCheckBox>(form, "chkStartWithWindows").click();
            Find<QLineEdit>(form, "txtLoggingPath").setText(scene.Path("new.log"));
            form.close();
        });
        QCOMPARE(scene.Stored(u"ToTray"_qs), u"7"_qs);
        QCOMPARE(scene.Stored(u"LoggingPath"_qs), u"/a, b.log"_qs);
        QCOMPARE(scene.Stored(u"ExitAlert"_qs), u"1"_qs);
        QVERIFY(scene.program->Options().CancelOptions);
        QVERIFY(scene.autostart->entries.isEmpty());
        QVERIFY(!QFile::exists(scene.Path("new.log")));
    }

    void whatCannotBeStoredIsToldAndTakenBack() {
        Scene scene;
        scene.settings->failing = u"ToTray"_qs;
        scene.Edit([](frmStartOptions& form) { Find<QCheckBox>(form, "chkExitAlert").click(); });
        QCOMPARE(scene.prompter.shown.size(), 1U);
        QVERIFY(scene.prompter.shown.front().text.startsWith(scene.texts[Text::OptionsNotStored]));
        QCOMPARE(scene.Stored(u"ExitAlert"_qs), QString());
        QVERIFY(scene.program->Options().SafeExit());
    }

    void createsTheLogButNoFolder() {
        Scene scene;
        scene.Write(u"old.log"_qs, "entries");
        scene.Edit([&](frmStartOptions& form) {
            for (const char* refused : {"no/new.log", "old.log/new.log", "."}) {
                Find<QLineEdit>(form, "txtLoggingPath").setText(scene.Path(refused));
                Find<QPushButton>(form, "cmdSave").click();
                QVERIFY(form.isVisible());
            }
            Find<QLineEdit>(form, "txtLoggingPath").setText(scene.Path("old.log") + u"  "_qs);
        });
        QCOMPARE(scene.prompter.shown.size(), 3U);
        QCOMPARE(scene.Stored(u"LoggingPath"_qs), scene.Path("old.log"));
        QCOMPARE(QFileInfo(scene.Path("old.log")).size(), 7);
        scene.Edit(
            [&](frmStartOptions& form) { Find<QLineEdit>(form, "txtLoggingPath").setText(scene.Path("new.log")); });
        QVERIFY(QFile::exists(scene.Path("new.log")) && !QFile::exists(scene.Path("no")));
        qputenv("HOME", qPrintable(scene.Path()));
        scene.Edit([](frmStartOptions& form) { Find<QLineEdit>(form, "txtLoggingPath").setText(u"~/home.log"_qs); });
        const QString inHome = QDir::home().filePath(u"home.log"_qs); // which Windows takes from the user's account
        QCOMPARE(scene.Stored(u"LoggingPath"_qs), QDir::toNativeSeparators(inHome));
        QVERIFY(QFile::remove(inHome));
    }

    void startWithTheSession() {
        Scene scene;
        const auto& entries = scene.autostart->entries;
        const auto click = [](frmStartOptions& form) { Find<QCheckBox>(form, "chkStartWithWindows").click(); };
        scene.Edit(click);
        QCOMPARE(entries.value(u"Kalvenor"_qs), scene.Path("Kalvenor"));

        // Somebody else's entry, and the option says no: the box shows the entry, clearing it removes the entry.
        scene.program->Options().ActivateWhileWindowsStarting = 0;
        scene.autostart->entries[u"Kalvenor"_qs] = u"/other/program"_qs;
        scene.Edit(click);
        QVERIFY(entries.isEmpty());

        scene.autostart->failure = std::make_error_code(std::errc::read_only_file_system);
        scene.Edit([](frmStartOptions&) {});
        QCOMPARE(scene.prompter.shown.size(), 1U);
        QVERIFY(!scene.program->Options().CancelOptions);
    }
};

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
