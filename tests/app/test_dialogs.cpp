// The general options in the window: what is shown, stored and created, and what is not.
#include "DialogHost.h"
#include "FakeFilePicker.h"
#include "HelpCommands.h"
#include "ModalForm.h"
#include "OptionsCommand.h"
#include "ProgramFixture.h"
#include "frmStartOptions.h"
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

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
    /// Of the summary after a run.
    QStringList StoredSummary() const {
        QStringList all;
        for (const QString& key : {u"InLog"_qs, u"InMail"_qs, u"Notify"_qs})
            all.append(settings->values.value(u"Kalvenor/Summary/"_qs + key));
        return all;
    }
    QStringList StoredSchedule() const {
        QStringList all;
        for (const QString& key : {u"EvenIntervals"_qs, u"RunMissed"_qs})
            all.append(settings->values.value(u"Kalvenor/Schedule/"_qs + key));
        return all;
    }

    /// What is stored for mail, "key=value|..."
    QString StoredMail() const {
        QStringList all;
        for (const QString& key : settings->values.keys())
            if (key.startsWith(u"Postrelle/"))
                all.append(key.section(u'/', 2) + u'=' + settings->values[key]);
        return all.join(u'|');
    }

    DialogHost dialogs;
    FakeFilePicker picker;
    HelpCommands help{Start(), dialogs};
    OptionsCommand options{*program, dialogs, picker, help};
};

} // namespace

class TestDialogs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
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
            QCOMPARE(scene.StoredSummary(), QStringList({{}, {}, {}})); // not before somebody uses it
        }
    }

    void summaryOptions() {
        Scene scene;
        clsWatcher& options = scene.program->Options();
        scene.Edit([](frmStartOptions& form) { Find<QCheckBox>(form, "chkSummaryInLog").click(); });
        QCOMPARE(scene.StoredSummary(), QStringList({u"1"_qs, u"0"_qs, u"0"_qs}));
        QVERIFY(options.SummaryInLog() && !options.SummaryInMail());
        const auto changeTheOthers = [](frmStartOptions& form) {
            Find<QCheckBox>(form, "chkSummaryInMail").click();
            Find<QCheckBox>(form, "chkCountByTheClock").click();
            Find<QComboBox>(form, "cboNotify").setCurrentIndex(2);
        };
        scene.Edit([&](frmStartOptions& form) {
            changeTheOthers(form);
            form.close();
        });
        for (const char* failing : {"ToTray", "Notify", "RunMissed"}) { // all or none, in three sections
            scene.settings->failing = QLatin1String(failing);
            scene.Edit(changeTheOthers);
            QCOMPARE(scene.StoredSummary(), QStringList({u"1"_qs, u"0"_qs, u"0"_qs}));
            QVERIFY(!options.SummaryInMail() && options.Notify == 0 && !options.EvenIntervals());
            QVERIFY(scene.StoredSchedule().value(0) != u"1");
        }
        scene.settings->failing.clear();
        scene.Edit(changeTheOthers);
        QCOMPARE(scene.StoredSummary(), QStringList({u"1"_qs, u"1"_qs, u"2"_qs}));
        options.ReadRegistry();
        QVERIFY(options.SummaryInLog() && options.SummaryInMail() && options.Notify == 2);
        QCOMPARE(scene.StoredSchedule(), QStringList({u"1"_qs, u"0"_qs}));
        QVERIFY(options.EvenIntervals() && !options.RunMissed());
    }

    void mailOptions() {
        Scene scene;
        const QString key = u"kalvenor:smtp:mail.de:anna"_qs;
        FakePasswordStore& store = *scene.passwords;
        const auto line = [](frmStartOptions& form, const char* name) -> QLineEdit& {
            return Find<QLineEdit>(form, name);
        };
        const auto login = [&](frmStartOptions& form) {
            line(form, "txtMailUser").setText(u" anna "_qs);
            line(form, "txtMailHost").setText(u"Mail.DE"_qs);
            line(form, "txtMailPassword").setText(u"s\u00E4cret"_qs);
        };
        scene.Edit([&](frmStartOptions& form) { // cancelled
            login(form);
            form.close();
        });
        scene.Edit([](frmStartOptions& form) { Find<QCheckBox>(form, "chkMinToTray").click(); });
        QCOMPARE(scene.StoredMail(), QString());
        const QString base = u"Postrelle/Settings/"_qs;
        scene.settings->values[base + u"PersistentSettings"] = u"1"_qs;
        scene.settings->values[base + u"RemotePort"] = u"70000"_qs;
        scene.Edit([](frmStartOptions& form) { Find<QCheckBox>(form, "chkMinToTray").click(); });
        QCOMPARE(scene.StoredMail(), u"PersistentSettings=1|RemotePort=70000"_qs); // nobody has touched it
        scene.settings->values.remove(base + u"PersistentSettings");
        scene.settings->values.remove(base + u"RemotePort");
        scene.Edit([&](frmStartOptions& form) { // a password without a host belongs to nobody
            login(form);
            line(form, "txtMailHost").clear();
            Find<QPushButton>(form, "cmdSave").click();
            QVERIFY(form.isVisible() && form.focusWidget() == &line(form, "txtMailHost"));
            login(form);
            auto& encryption = Find<QComboBox>(form, "cboMailSecurity");
            auto& port = Find<QSpinBox>(form, "spnMailPort");
            for (const int follows : {587, 465, 25}) {
                encryption.setCurrentIndex(follows == 587 ? 1 : follows == 465 ? 2 : 0);
                QCOMPARE(port.value(), follows);
            }
            port.setValue(2525);
            encryption.setCurrentIndex(1);
            QCOMPARE(port.value(), 2525);
        });
        const QString stored = u"CAFile=|MailSecurity=1|PasswordFile=|PersistentSettings=1|RemoteHost=Mail.DE|"
                               "RemotePort=2525|UseAuthentication=1|Username=anna"_qs;
        QCOMPARE(scene.StoredMail(), stored);
        QCOMPARE(store.passwords, (QMap<QString, QByteArray>{{key, "s\xc3\xa4"
                                                                   "cret"}}));
        // What is no number stays until somebody chooses; the password is known to be there, and not shown.
        scene.settings->values[u"Postrelle/Settings/MailSecurity"_qs] = u"7"_qs;
        scene.settings->failing = u"CAFile"_qs;
        const auto editCaFile = [&](frmStartOptions& form) {
            Find<QTabWidget>(form, "tabStartOptions").setCurrentIndex(1);
            QTRY_VERIFY(Find<QPushButton>(form, "cmdForgetPassword").isEnabled());
            QCOMPARE(line(form, "txtMailPassword").text(), QString());
            QCOMPARE(line(form, "txtMailPassword").placeholderText(), scene.texts[Text::MailPasswordStored]);
            line(form, "txtCaFile").setText(u"/ca"_qs);
        };
        scene.Edit(editCaFile);
        QVERIFY(scene.prompter.shown.back().text.startsWith(scene.texts[Text::OptionsNotStored]));
        scene.settings->failing.clear();
        scene.Edit(editCaFile);
        QCOMPARE(scene.StoredMail(),
                 QString(stored).replace(u"y=1|P"_qs, u"y=7|P"_qs).replace(u"File=|M"_qs, u"File=/ca|M"_qs));
        scene.Edit([&](frmStartOptions& form) {
            Find<QTabWidget>(form, "tabStartOptions").setCurrentIndex(1);
            QTRY_VERIFY(Find<QPushButton>(form, "cmdForgetPassword").isEnabled());
            Find<QPushButton>(form, "cmdForgetPassword").click();
            QTRY_COMPARE(line(form, "txtMailPassword").placeholderText(), scene.texts[Text::MailPasswordMissing]);
        });
        QVERIFY(store.passwords.isEmpty());
        scene.prompter.shown.clear();
        store.failing = PasswordAnswer::Outcome::Refused;
        scene.Edit([&](frmStartOptions& form) {
            Find<QTabWidget>(form, "tabStartOptions").setCurrentIndex(1);
            QTRY_VERIFY(Find<QLabel>(form, "lblPasswordStore").text().contains(u"machine HOST login USER"));
            login(form);
        });
        QTRY_COMPARE(scene.prompter.shown.size(), 1U);
        QCOMPARE(scene.prompter.shown.front().text, scene.texts[Text::MailPasswordNotStored] + u"\n" +
                                                        scene.texts[Text::PasswordStoreFailed].arg(u"no\uFFFD"_qs));
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
