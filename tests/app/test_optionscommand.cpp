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

    /// Opens the dialog, acts in it and saves, unless the act has ended it.
    template <typename Act>
    void Edit(Act act) {
        WhenOpen<frmStartOptions>([act](frmStartOptions& form) {
            act(form);
            if (form.isVisible())
                Find<QPushButton>(form, "cmdSave").click();
        });
        command.ShowOptions();
    }
    QString Stored(const QString& key) const { return settings->values.value(u"Kalvenor/Options/"_qs + key); }
    QString Path(const char* name) const { return dir.filePath(QLatin1String(name)); }

    Program program{services, prompter, keys, texts};
    DialogHost dialogs;
    FakeFilePicker picker;
    HelpCommands help{program, dialogs};
    OptionsCommand command{program, dialogs, picker, help};
};

struct Control {
    const char* name;
    QString key;
    bool byDefault;
};

const std::vector<Control> controls{{"chkStartWithWindows", u"ActivateWhileWindowsStarting"_qs, false},
                                    {"chkMinToTray", u"ToTray"_qs, false},
                                    {"chkShutdown", u"Shutdown"_qs, false},
                                    {"chkStartUp", u"StartUp"_qs, false},
                                    {"chkLogfileRefresh", u"LogfileRefresh"_qs, false},
                                    {"chkExitAlert", u"ExitAlert"_qs, true},
                                    {"chkStopIfFolderNotExist", u"StopIfFolderNotExist"_qs, true}};

} // namespace

class TestOptionsCommand : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyControlIsItsOption() {
        for (const Control& control : controls) {
            Scene scene;
            for (const bool expected : {!control.byDefault, control.byDefault}) { // there and back
                scene.Edit([&](frmStartOptions& form) {
                    auto& box = Find<QCheckBox>(form, control.name);
                    QCOMPARE(box.isChecked(), !expected);
                    box.click();
                });
                for (const Control& each : controls) {
                    const bool isOn = each.key == control.key ? expected : each.byDefault;
                    QCOMPARE(each.key + scene.Stored(each.key), each.key + (isOn ? u'1' : u'0'));
                }
                QVERIFY(!scene.program.Options().CancelOptions);
            }
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
        QCOMPARE(scene.Stored(u"ToTray"_qs), u"7"_qs);
        QCOMPARE(scene.Stored(u"LoggingPath"_qs), u"/a, b.log"_qs);
        QCOMPARE(scene.Stored(u"ExitAlert"_qs), u"1"_qs);
        QVERIFY(scene.program.Options().CancelOptions);
        QVERIFY(scene.autostart->entries.isEmpty());
        QVERIFY(!QFile::exists(scene.Path("new.log")));
    }

    void whatCannotBeStoredIsToldAndTheRestStored() {
        Scene scene;
        scene.settings->failing = u"ToTray"_qs;
        scene.Edit([](frmStartOptions& form) { Find<QCheckBox>(form, "chkExitAlert").click(); });
        QCOMPARE(scene.prompter.shown.size(), 1U);
        QVERIFY(scene.prompter.shown.front().text.startsWith(scene.texts.Text(524)));
        QCOMPARE(scene.Stored(u"ExitAlert"_qs), u"0"_qs);
    }

    void createsTheLogButNoFolder() {
        const auto stored = [](const QString& typed) {
            Scene scene;
            AppFixture::Write(scene.Path("old.log"), u"entries"_qs);
            const QString path = QString(typed).replace(u'~', scene.dir.path());
            bool isRefused = false;
            scene.Edit([&](frmStartOptions& form) {
                auto& line = Find<QLineEdit>(form, "txtLoggingPath");
                line.setText(path);
                Find<QPushButton>(form, "cmdSave").click();
                isRefused = form.isVisible() && form.focusWidget() == &line;
                form.close();
            });
            const QString box = u"Directory not found: The selected directory '"_qs + path.section(u'/', 0, -2) +
                                u"' doesn't exist.\n\nPlease select a valid directory."_qs;
            if (isRefused && scene.prompter.Told() == QStringList{box} && !QFile::exists(scene.Path("no")))
                return u"refused"_qs;
            QFile log(scene.Stored(u"LoggingPath"_qs));
            const QString content = log.open(QIODevice::ReadOnly) ? QString::fromLatin1(log.readAll()) : u"no file"_qs;
            return QString(log.fileName().replace(scene.dir.path(), u"~"_qs) + u": " + content);
        };
        QCOMPARE(stored(u"~/x/../new.log"_qs), u"~/new.log: "_qs);
        QCOMPARE(stored(u"~/old.log"_qs), u"~/old.log: entries"_qs);
        QCOMPARE(stored(u"  "_qs), u": no file"_qs);
        QCOMPARE(stored(u"~/no/new.log"_qs), u"refused"_qs);
        QCOMPARE(stored(u"~/old.log/new.log"_qs), u"refused"_qs);
    }

    void startWithTheSession() {
        Scene scene;
        const auto& entries = scene.autostart->entries;
        const auto click = [](frmStartOptions& form) { Find<QCheckBox>(form, "chkStartWithWindows").click(); };
        scene.Edit(click);
        QCOMPARE(entries.value(u"Kalvenor"_qs), scene.Folder(u"program"_qs) + u"/Kalvenor"_qs);

        // Somebody else's entry, and the option says no: the box shows the entry, clearing it removes the entry.
        scene.program.Options().ActivateWhileWindowsStarting = 0;
        scene.autostart->entries[u"Kalvenor"_qs] = u"/other/program"_qs;
        scene.Edit(click);
        QVERIFY(entries.isEmpty());

        scene.autostart->failure = std::make_error_code(std::errc::read_only_file_system);
        scene.Edit([](frmStartOptions&) {});
        QCOMPARE(scene.prompter.shown.size(), 1U);
        QVERIFY(!scene.program.Options().CancelOptions);
    }

    void selectFile() {
        Scene scene;
        scene.settings->values[u"Kalvenor/LastFile/AppLogfilePath"_qs] = u"/last/time.log"_qs;
        AppFixture::Write(scene.Path("old.log"), u"entries"_qs);
        scene.picker.answers = {QString(), scene.Path("new.log"), scene.Path("old.log")};
        scene.Edit([&](frmStartOptions& form) {
            auto& path = Find<QLineEdit>(form, "txtLoggingPath");
            path.setText(u"/typed.log"_qs);
            for (const QString& expected : {u"/typed.log"_qs, scene.Path("new.log"), scene.Path("old.log")}) {
                Find<QPushButton>(form, "cmdSelectFile").click();
                QCOMPARE(path.text(), expected);
            }
            form.close();
        });
        QCOMPARE(scene.picker.requests.first().folder, u"/last"_qs);
        QCOMPARE(scene.picker.requests.first().file, u"/typed.log"_qs);
        // The dialog was cancelled; the new file and the memory of the choice stay.
        QCOMPARE(QFileInfo(scene.Path("new.log")).size(), 0);
        QCOMPARE(QFileInfo(scene.Path("old.log")).size(), 7);
        QCOMPARE(scene.settings->values[u"Kalvenor/LastFile/AppLogfilePath"_qs], scene.Path("old.log"));
        QCOMPARE(scene.Stored(u"LoggingPath"_qs), QString());
    }

    void leftAloneByTheClosing() {
        Scene scene;
        scene.Edit([&](frmStartOptions& form) {
            Find<QCheckBox>(form, "chkShutdown").click();
            scene.command.ShowOptions(); // from the tray, while the dialog is open
            QCOMPARE(scene.settings->values.size(), 1);
            scene.dialogs.StopWaiting();
        });
        QCOMPARE(scene.Stored(u"Shutdown"_qs), u"0"_qs);
        scene.command.ShowOptions(); // hangs if it still opens
    }
};

QTEST_MAIN(TestOptionsCommand)
#include "test_optionscommand.moc"
