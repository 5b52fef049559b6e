// The general options as the user edits them: what is stored, created and started with the session.
#include "AppFixture.h"
#include "DialogHost.h"
#include "FakeFilePicker.h"
#include "HelpCommands.h"
#include "ModalForm.h"
#include "OptionsCommand.h"
#include "frmStartOptions.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace {

struct Scene : AppFixture {
    Scene() { program.Options().ReadRegistry(); }

    /// Opens the dialog and acts in it.
    template <typename Act>
    void Edit(Act act) {
        WhenOpen<frmStartOptions>(act);
        command.ShowOptions();
    }
    QString Stored(const char* key) const {
        return settings->values.value(u"Kalvenor/Options/"_qs + QLatin1String(key));
    }
    QString Path(const char* name) const { return dir.filePath(QLatin1String(name)); }

    Program program{services, prompter, keys, texts};
    DialogHost dialogs;
    FakeFilePicker picker;
    HelpCommands help{program, dialogs};
    OptionsCommand command{program, dialogs, picker, help};
};

void save(frmStartOptions& form) {
    Find<QPushButton>(form, "cmdSave").click();
}

} // namespace

class TestOptionsCommand : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyControlIsItsOption_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("key");
        QTest::newRow("session") << u"chkStartWithWindows"_qs << u"ActivateWhileWindowsStarting"_qs;
        QTest::newRow("tray") << u"chkMinToTray"_qs << u"ToTray"_qs;
        QTest::newRow("shutdown") << u"chkShutdown"_qs << u"Shutdown"_qs;
        QTest::newRow("start") << u"chkStartUp"_qs << u"StartUp"_qs;
        QTest::newRow("refresh") << u"chkLogfileRefresh"_qs << u"LogfileRefresh"_qs;
        QTest::newRow("abort") << u"chkExitAlert"_qs << u"ExitAlert"_qs;
        QTest::newRow("missing folder") << u"chkStopIfFolderNotExist"_qs << u"StopIfFolderNotExist"_qs;
    }
    void everyControlIsItsOption() {
        QFETCH(QString, control);
        QFETCH(QString, key);
        Scene scene;
        const bool before = key == u"ExitAlert" || key == u"StopIfFolderNotExist";
        for (const bool expected : {!before, before}) { // there, and back from what is stored by then
            scene.Edit([&](frmStartOptions& form) {
                auto& box = Find<QCheckBox>(form, control.toLatin1().constData());
                QCOMPARE(box.isChecked(), !expected);
                box.click();
                save(form);
            });
            int changed = 0;
            for (const auto& byDefault : {"ActivateWhileWindowsStarting", "ToTray", "Shutdown", "StartUp",
                                          "LogfileRefresh", "ExitAlert", "StopIfFolderNotExist"}) {
                const bool safety =
                    QLatin1String(byDefault) == u"ExitAlert" || QLatin1String(byDefault) == u"StopIfFolderNotExist";
                changed += scene.Stored(byDefault) != (safety ? u"1" : u"0") ? 1 : 0;
            }
            QCOMPARE(changed, expected == before ? 0 : 1);
            QCOMPARE(scene.Stored(key.toLatin1().constData()), expected ? u"1"_qs : u"0"_qs);
            QVERIFY(!scene.program.Options().CancelOptions);
        }
    }

    void cancelWritesWhatWas() {
        Scene scene;
        scene.program.Options().ToTray = 7;
        scene.program.Options().LoggingPath = u"/a, b.log"_qs;
        scene.Edit([&](frmStartOptions& form) {
            QVERIFY(!Find<QCheckBox>(form, "chkMinToTray").isChecked());
            Find<QCheckBox>(form, "chkStartWithWindows").click();
            Find<QLineEdit>(form, "txtLoggingPath").setText(scene.Path("new.log"));
            form.close();
        });
        QCOMPARE(scene.Stored("ToTray"), u"7"_qs);
        QCOMPARE(scene.Stored("LoggingPath"), u"/a, b.log"_qs);
        QCOMPARE(scene.Stored("ExitAlert"), u"1"_qs);
        QVERIFY(scene.program.Options().CancelOptions);
        QVERIFY(scene.autostart->entries.isEmpty());
        QVERIFY(!QFile::exists(scene.Path("new.log")));
    }

    void logPath_data() {
        QTest::addColumn<QString>("typed"); // ~ stands for the test's folder
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("new file") << u"~/x/../new.log"_qs << u"~/new.log"_qs << QByteArray();
        QTest::newRow("a log with entries") << u"~/old.log"_qs << u"~/old.log"_qs << QByteArray("entries");
        QTest::newRow("none") << QString() << QString() << QByteArray();
        QTest::newRow("blanks") << u"  "_qs << QString() << QByteArray();
        QTest::newRow("missing folder") << u"~/no/new.log"_qs << u"refused"_qs << QByteArray();
        QTest::newRow("below a file") << u"~/old.log/new.log"_qs << u"refused"_qs << QByteArray();
    }
    void logPath() {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        Scene scene;
        AppFixture::Write(scene.Path("old.log"), u"entries"_qs);
        const bool isRefused = stored == u"refused";
        scene.Edit([&](frmStartOptions& form) {
            auto& path = Find<QLineEdit>(form, "txtLoggingPath");
            path.setText(typed.replace(u'~', scene.dir.path()));
            save(form);
            QCOMPARE(form.isVisible(), isRefused);
            QVERIFY(!isRefused || form.focusWidget() == &path);
        });
        QCOMPARE(scene.prompter.shown.size(), std::size_t(isRefused ? 1 : 0));
        if (isRefused) {
            QCOMPARE(scene.prompter.shown.front().text, u"The selected directory '"_qs + typed.section(u'/', 0, -2) +
                                                            u"' doesn't exist.\n\nPlease select a valid directory."_qs);
            QCOMPARE(scene.prompter.shown.front().title, u"Directory not found"_qs);
            QVERIFY(!QFile::exists(scene.Path("no")));
            return;
        }
        QCOMPARE(scene.Stored("LoggingPath"), stored.replace(u'~', scene.dir.path()));
        if (!stored.isEmpty()) {
            QFile log(stored);
            QVERIFY(log.open(QIODevice::ReadOnly));
            QTEST(log.readAll(), "content");
        }
    }

    void startWithTheSession() {
        Scene scene;
        const auto& entries = scene.autostart->entries;
        scene.Edit([](frmStartOptions& form) {
            Find<QCheckBox>(form, "chkStartWithWindows").click();
            save(form);
        });
        QCOMPARE(entries.value(u"Kalvenor"_qs), scene.Folder(u"program"_qs) + u"/Kalvenor"_qs);

        // Somebody else's entry, and the option says no: the box shows the entry, clearing it removes the entry.
        scene.program.Options().ActivateWhileWindowsStarting = 0;
        scene.autostart->entries[u"Kalvenor"_qs] = u"/other/program"_qs;
        scene.Edit([](frmStartOptions& form) {
            QVERIFY(Find<QCheckBox>(form, "chkStartWithWindows").isChecked());
            Find<QCheckBox>(form, "chkStartWithWindows").click();
            save(form);
        });
        QVERIFY(entries.isEmpty());

        scene.autostart->failure = std::make_error_code(std::errc::read_only_file_system);
        scene.Edit(save);
        QCOMPARE(scene.prompter.shown.size(), std::size_t(1));
        QVERIFY(!scene.program.Options().CancelOptions);
    }

    void selectFile() {
        Scene scene;
        scene.settings->values[u"Kalvenor/LastFile/AppLogfilePath"_qs] = u"/last/time.log"_qs;
        AppFixture::Write(scene.Path("old.log"), u"entries"_qs);
        scene.picker.answers = {QString(), scene.Path("new.log"), scene.Path("old.log")};
        scene.Edit([&](frmStartOptions& form) {
            auto& path = Find<QLineEdit>(form, "txtLoggingPath");
            const auto choose = [&] { Find<QPushButton>(form, "cmdSelectFile").click(); };
            path.setText(u"/typed.log"_qs);
            choose();
            QCOMPARE(path.text(), u"/typed.log"_qs);
            choose();
            QCOMPARE(path.text(), scene.Path("new.log"));
            choose();
        });
        const FileRequest& first = scene.picker.requests.first();
        QCOMPARE(first.title, u"Please select logging file"_qs);
        QCOMPARE(first.filters, (QStringList{u"Log file (*.log)"_qs, u"All files (*.*)"_qs}));
        QCOMPARE(first.folder, u"/last"_qs);
        QCOMPARE(first.file, u"/typed.log"_qs);
        // The dialog was cancelled; the new file and the memory of the choice stay.
        QCOMPARE(QFileInfo(scene.Path("new.log")).size(), 0);
        QCOMPARE(QFileInfo(scene.Path("old.log")).size(), 7);
        QCOMPARE(scene.settings->values[u"Kalvenor/LastFile/AppLogfilePath"_qs], scene.Path("old.log"));
        QCOMPARE(scene.Stored("LoggingPath"), QString());
    }

    void pathIsSelectedWithTheFocus() {
        Scene scene;
        scene.program.Options().LoggingPath = u"/a.log"_qs;
        scene.Edit([&](frmStartOptions& form) {
            auto& path = Find<QLineEdit>(form, "txtLoggingPath");
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QVERIFY(!path.hasFocus());
            QTest::mouseClick(&path, Qt::LeftButton);
            QTRY_COMPARE(path.selectedText(), u"/a.log"_qs);
        });
    }

    void leftAloneByTheClosing() {
        Scene scene;
        scene.Edit([&](frmStartOptions& form) {
            Find<QCheckBox>(form, "chkShutdown").click();
            scene.command.ShowOptions(); // from the tray, while the dialog is open
            QVERIFY(scene.settings->values.size() == 1);
            scene.dialogs.StopWaiting();
        });
        QCOMPARE(scene.Stored("Shutdown"), u"0"_qs);
        scene.command.ShowOptions(); // hangs if it still opens
    }
};

QTEST_MAIN(TestOptionsCommand)
#include "test_optionscommand.moc"
