// The activity editor: what goes in and comes out of its controls, and what keeps it open.
#include "DesktopMailClient.h"
#include "DriveMark.h"
#include "EditorDrives.h"
#include "EditorFields.h"
#include "FakeFilePicker.h"
#include "ModalForm.h"
#include "ScratchStore.h"
#include "StoreError.h"
#include "Table.h"
#include "clsGetSystemDirectoryPaths.h"
#include "frmOptions.h"
#include "modNativePath.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

namespace {

using F = ActivityField;

QString q(const char* text) {
    return QString::fromUtf8(text);
}

struct EditorWorld {
    ScratchStore store;
    FakeFilePicker picker;
    MemorySettings settings;
    FakeClock clock;
    NoDesktopMailClient mail;
    clsGetSystemDirectoryPaths system{"/usr", "/etc", "/"};
    SendTestMail sendTestMail;
    int writes = 0;
    ActivityRecord written;

    EditorServices Services() {
        const QLocale locale(QLocale::English, QLocale::UnitedStates);
        return {{store.texts, store.prompter, picker, store.files, settings},
                clock,
                mail,
                system,
                locale,
                false,
                sendTestMail};
    }
    frmOptions::Request Request(const QString& name, const ActivityRecord& record) {
        return {name,
                record,
                {},
                [](const QString&) { return true; },
                [](const QString&) { return false; },
                [this](const QString&, const ActivityRecord& edited) {
                    written = edited;
                    return ++writes > 0;
                },
                {}};
    }
    /// An activity that can be saved as it is.
    ActivityRecord Usable() {
        ActivityRecord record = frmOptions::NewActivity();
        record.SetText(ActivityField::SourceDir, store.Path("cwd"));
        record.SetText(ActivityField::TargetDir, store.Path("program"));
        return record;
    }
};

} // namespace

class TestFrmOptions : public QObject {
    Q_OBJECT

    /// "+" and "-" switch a button.
    static void enter(const frmOptions& form, const char* name, const char* value) {
        auto& control = Find<QWidget>(form, name);
        if (auto* button = qobject_cast<QAbstractButton*>(&control))
            button->setChecked(*value == '+');
        else if (auto* slider = qobject_cast<QSlider*>(&control))
            slider->setValue(q(value).toInt());
        else if (auto* number = qobject_cast<QSpinBox*>(&control))
            number->setValue(q(value).toInt());
        else if (auto* combo = qobject_cast<ctlAutoCompleteCombo*>(&control))
            combo->SetText(q(value));
        else if (auto* lines = qobject_cast<QPlainTextEdit*>(&control))
            lines->setPlainText(q(value));
        else
            Find<QLineEdit>(form, name).setText(q(value));
    }

    static QString difference(const ActivityRecord& a, const ActivityRecord& b) {
        QStringList fields;
        for (const FieldRow& row : ActivityRecord::Fields())
            if (a.Text(row.field) != b.Text(row.field))
                fields.append(QLatin1String(row.element) + u'=' + a.Text(row.field) + u'|' + b.Text(row.field));
        return fields.join(u' ');
    }

  private Q_SLOTS:
    void sendsATestMail() {
        struct Handle final : TestMail {
            explicit Handle(int& count) : underWay(count) { ++underWay; }
            ~Handle() override { --underWay; }
            int& underWay;
        };
        EditorWorld world;
        int underWay = 0;
        QString sent;
        std::function<void(const QString&)> end;
        world.sendTestMail = [&](const ActivityRecord& record, std::function<void(const QString&)> ended) {
            sent = record.Text(F::Recipient) + u' ' + record.Text(F::Sender);
            end = std::move(ended);
            return std::make_unique<Handle>(underWay);
        };
        {
            ActivityRecord record = frmOptions::NewActivity();
            record.SetText(F::Recipient, u"r@a.de"_qs);
            frmOptions form(world.Services(), world.Request({}, record));
            auto& button = Find<QPushButton>(form, "cmdSendTestMail");
            QVERIFY(!button.isEnabled());
            enter(form, "chkMail", "+");
            enter(form, "chkUseSMTP", "-");
            QVERIFY(!button.isEnabled()); // the desktop's mail program sends
            enter(form, "chkUseSMTP", "+");
            enter(form, "cboSender", "s@a.de");
            for (const QString& failure : {u"535 no"_qs, QString()}) {
                button.click();
                QVERIFY(underWay == 1 && sent == u"r@a.de s@a.de" && !button.isEnabled());
                end(failure);
                QVERIFY(world.store.prompter.shown.empty()); // its end is still on the stack
                QTRY_COMPARE(world.store.prompter.shown.size(), 1U);
                QVERIFY(underWay == 0 && button.isEnabled());
                QVERIFY(world.store.prompter.shown.front().text.endsWith(failure.isEmpty() ? u"r@a.de."_qs : failure));
                world.store.prompter.shown.clear();
            }
            button.click();
            end({}); // and before it is told the editor closes
            form.done(QDialog::Rejected);
            QCOMPARE(underWay, 0);
            QCoreApplication::processEvents();
        }
        QVERIFY(world.store.prompter.shown.empty());
    }

    void everyControlEditsItsField() {
        const std::tuple<const char*, const char*, F, const char*> edits[] = {
            // control, typed, field, stored
            {"txtSourceDir", "/in", F::SourceDir, "/in"},
            {"txtTargetDir", "/out", F::TargetDir, "/out"},
            {"txtComment", "two\nlines", F::Comment, "two\nlines"},
            {"chkActiv", "-", F::Active, "0"},
            {"optDate", "+", F::Type, "3"},
            {"txtDate", "12242030", F::TriggerDate, "24.12.2030"},
            {"txtDateTime", "0815", F::TriggerDateTime, "08:15"},
            {"optTime", "+", F::Type, "4"},
            {"txtTime", "2359", F::TriggerTime, "23:59"},
            {"chkDaily", "+", F::Daily, "1"},
            {"optHours", "+", F::Type, "2"},
            {"sldInterval", "7", F::Interval, "7"},
            {"chkRunningMode", "+", F::RunningMode, "1"},
            {"optMirror", "+", F::Action, "3"},
            {"chkOverwrite", "-", F::Overwrite, "N"},
            {"chkOnlyNew", "-", F::OnlyNew, "N"},
            {"chkIncludeSubdirs", "-", F::IncludeSubdirs, "N"},
            {"optOnlyThis", "+", F::AllFiles, "0"},
            {"txtExtensions", "exe;zip", F::Extensions, "exe;zip"},
            {"chkAlert", "-", F::Alert, "N"},
            {"txtExecutable", "/bin/true", F::Executable, "/bin/true"},
            {"txtLogFile", "/log", F::LogFile, "/log"},
            {"chkMail", "+", F::SendMail, "1"},
            {"cboSender", "s@a.de", F::Sender, "s@a.de"},
            {"cboRecipient", "r@a.de", F::Recipient, "r@a.de"},
            {"cboCC", "c@a.de", F::Cc, "c@a.de"},
            {"txtSubject", "S", F::Subject, "S"},
            {"txtMessage", "M\nN", F::Message, "M\nN"},
            {"chkAttachAction", "+", F::AttachAction, "1"},
            {"chkSendLastFile", "+", F::SendLastFile, "1"},
            {"chkComputerName", "+", F::ComputerName, "1"},
            {"chkAttachLogFile", "+", F::AttachLogFile, "1"},
            {"txtSMTPHost", "mail.a.de", F::SmtpHost, "mail.a.de"},
            {"chkUseSMTP", "-", F::UseSmtp, "0"},
            {"spnKeepDays", "30", F::KeepDays, "30"},
            {"spnAskFiles", "500", F::AskFiles, "500"},
            {"spnAskPercent", "10", F::AskPercent, "10"},
            {"chkOnlyOnDrives", "+", F::OnlyOnDrives, "1"},
        };
        EditorWorld world;
        frmOptions form(world.Services(), world.Request({}, frmOptions::NewActivity()));
        Find<QLineEdit>(form, "txtName").setText(q("  Photos "));
        QCOMPARE(form.Name(), q("Photos"));
        ActivityRecord expected = form.Record();
        for (const auto& [control, typed, field, stored] : edits) {
            enter(form, control, typed);
            expected.SetText(field, q(stored));
            const QString differs = difference(form.Record(), expected);
            QVERIFY2(differs.isEmpty(), qPrintable(q(control) + u' ' + differs));
        }
        // Shown again, it is the same activity.
        frmOptions again(world.Services(), world.Request(q("Photos"), expected));
        QCOMPARE(difference(again.Record(), expected), QString());
    }

    void theScheduleIsSaidInWords_data() {
        const Table<bool, QString, QString> row;
        // by the clock, controls and what is typed in them, words
        row("nothing", false, "", "Choose when the activity runs.");
        row("as it is", false, "optMinutes=+ spnInterval=10",
            "Runs every 10 minutes while monitoring is on. Counted in rounds, it runs first after 10 minutes, then "
            "after "
            "pauses of 10 to 11 minutes.");
        row("a second later", false, "optSeconds=+ spnInterval=60",
            "Runs every 60 seconds while monitoring is on. Counted in rounds, it runs first after 1 second, then after "
            "pauses of 59 seconds.");
        row("never", false, "optSeconds=+ spnInterval=59",
            "With this number it never runs. \"Count intervals by the clock\" in the general options avoids that.");
        row("stops", false, "optHours=+ spnInterval=24",
            "Runs every 24 hours while monitoring is on. With this number it stops after one run, until monitoring is "
            "started again. \"Count intervals by the clock\" in the general options avoids that.");
        row("by the clock", true, "optHours=+ spnInterval=999", "Runs every 999 hours while monitoring is on.");
        row("each", true, "optSeconds=+ spnInterval=1", "Runs every second while monitoring is on.");
        row("once", true, "optSeconds=+ spnInterval=7 chkRunningMode=+",
            "Runs once, 7 seconds after monitoring starts.");
        row("no date", true, "optDate=+ txtDateTime=0815", "The date is missing.");
        row("no time", true, "optDate=+ txtDate=12242030", "The time of day is missing, from 00:00 to 23:59.");
        row("wrong time", true, "optTime=+ txtTime=2401", "The time of day is missing, from 00:00 to 23:59.");
        row("date", true, "optDate=+ txtDate=12242030 txtDateTime=0815", "Runs once, on Tuesday, 12/24/2030 at 08:15.");
        row("past", true, "optDate=+ txtDate=12242020 txtDateTime=0815",
            "Runs once, on Thursday, 12/24/2020 at 08:15. This moment is in the past: the activity does not run.");
        row("daily", true, "optTime=+ txtTime=0800 chkDaily=+", "Runs every day at 08:00.");
        row("next", true, "optTime=+ txtTime=0800 chkDaily=-", "Runs once, the next time it is 08:00.");
    }
    void theScheduleIsSaidInWords() {
        const auto [byTheClock, typed, words] = Table<bool, QString, QString>::Current();
        EditorWorld world;
        EditorServices services = world.Services();
        services.countsByTheClock = byTheClock;
        ActivityRecord record = world.Usable();
        record.SetText(F::Type, {});
        frmOptions form(services, world.Request({}, record));
        for (const QString& one : typed.split(u' ', Qt::SkipEmptyParts))
            enter(form, one.section(u'=', 0, 0).toUtf8().constData(), one.section(u'=', 1).toUtf8().constData());
        QCOMPARE(Find<QLabel>(form, "lblWhen").text(), words);
    }

    void whatIsOnlyLookedAtStays() {
        EditorWorld world;
        const auto kept = [&](F field, const char* stored) {
            ActivityRecord record = world.Usable();
            record.SetText(field, q(stored));
            return frmOptions(world.Services(), world.Request(q("A"), record)).Record().Text(field);
        };
        QCOMPARE(kept(F::Interval, "1440"), q("1440"));
        QCOMPARE(kept(F::Type, ""), q(""));
        QCOMPARE(kept(F::Action, "9"), q("9"));
        QCOMPARE(kept(F::TriggerDate, "Christmas"), q("Christmas"));
        QCOMPARE(kept(F::TriggerDateTime, "99:99"), q("99:99"));
        QCOMPARE(kept(F::Comment, "a\r\nb\u00a0c"), q("a\r\nb\u00a0c"));
        QCOMPARE(kept(F::SourceDir, "/a\nb"), q("/a\nb"));
        QCOMPARE(kept(F::AskFiles, "2000000"), q("2000000"));
        QCOMPARE(kept(F::KeepDays, "5000"), q("5000"));
        // Another spelling of the same, in the form that every locale reads alike, and what a missing field means.
        QCOMPARE(kept(F::TriggerDate, "2/1/2030"), q("01.02.2030"));
        QCOMPARE(kept(F::TriggerDate, "1.2.2030"), q("01.02.2030"));
        QCOMPARE(kept(F::Interval, ""), q("1"));
    }

    void enterSavesWhateverButtonTheDesktopPutsFirst() {
        for (const char* layout : {"0", "3"}) { // OK first, Cancel first
            qApp->setStyleSheet(u"QDialogButtonBox { button-layout: %1 }"_qs.arg(QLatin1String(layout)));
            EditorWorld world;
            frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
            form.show();
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
            QCOMPARE(world.writes, 1);
        }
        qApp->setStyleSheet(QString());
    }

    void aChoiceTakesAwayWhatItCannotUse() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        const auto choose = [&](const char* name) { Find<QAbstractButton>(form, name).click(); };
        choose("optTime");
        Find<QLineEdit>(form, "txtTime").setText(q("1"));
        choose("optDate");
        QCOMPARE(form.Record().Text(F::TriggerTime), QString()); // half a time that the user could not reach any more
        for (const char* action : {"optMirror", "optNoAction"}) {
            choose(action);
            QCOMPARE(Find<QLabel>(form, "lblMirrorDeletes").isHidden(), qstrcmp(action, "optMirror") != 0);
        }
        QCOMPARE(form.Record().Text(F::TargetDir), QString());
        choose("optMove");
        QCOMPARE(form.Record().Text(F::TargetDir), world.store.Path("program"));
    }

    void aNameIsCheckedWhileOneTypes() {
        const std::pair<const char*, const char*> rows[] = {
            // typed, offered
            {"", ""},           {"My_Backup", ""},        {" My_Backup ", ""},       {"My Backup", "My_Backup"},
            {"1st", "_1st"},    {"a & b", "a_b"},         {"\xF0\x9F\x8E\x81", "_"}, {"Photos", ""},
            {"Logs", "Logs_3"}, {"My Logs", "My_Logs_2"},
        };
        EditorWorld world;
        frmOptions::Request request = world.Request(q("Photos"), world.Usable());
        request.known.names = QStringList{q("Photos"), q("Logs"), q("Logs_2"), q("My_Logs")};
        request.isUsableName = [](const QString& name) {
            return std::all_of(name.begin(), name.end(), [](QChar c) { return c.isLetterOrNumber() || c == u'_'; });
        };
        frmOptions form(world.Services(), request);
        auto& line = Find<QLineEdit>(form, "txtName");
        for (const auto& [typed, offered] : rows) {
            line.setText(q(typed));
            auto& hint = Find<QWidget>(form, "txtNameHint");
            QCOMPARE(hint.isHidden(), *offered == '\0');
            QCOMPARE(line.accessibleDescription().isEmpty(), hint.isHidden());
            QCOMPARE(line.styleSheet().isEmpty(), hint.isHidden());
            if (*offered == '\0')
                continue;
            Find<QPushButton>(form, "txtNameOffer").click();
            QCOMPARE(form.Name(), q(offered));
            QVERIFY(hint.isHidden());
        }
    }

    void aMissingFolderCanBeCreated() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        auto& line = Find<QLineEdit>(form, "txtTargetDir");
        auto& hint = Find<QWidget>(form, "txtTargetDirHint");
        auto& offer = Find<QPushButton>(form, "txtTargetDirOffer");
        const auto type = [&](const QString& text) {
            line.setFocus();
            line.setText(text);
            QVERIFY(hint.isHidden());
            const QList<QTimer*> pauses = form.findChildren<QTimer*>(q("typingPause"));
            for (QTimer* pause : pauses)
                QVERIFY(QMetaObject::invokeMethod(pause, "timeout"));
        };
        type(q("relative")); // to where, nobody could say
        QTRY_VERIFY(hint.isVisible());
        QVERIFY(offer.isHidden() && !line.accessibleDescription().isEmpty());
        type(q("~/no such folder"));
        QTRY_VERIFY(hint.isVisible());
        Find<QLineEdit>(form, "txtName").setFocus();
        QCOMPARE(line.text(), QDir::toNativeSeparators(QDir::homePath() + q("/no such folder")));
        QVERIFY(offer.isVisible()); // whoever was about to press it still can
        type(world.store.Path("program/new/folder"));
        QTRY_VERIFY(hint.isVisible());
        offer.click();
        QVERIFY(hint.isHidden() && QFileInfo(line.text()).isDir());
        QVERIFY(world.store.Write(q("file"), "kept"));
        type(world.store.Path("file/below"));
        QTRY_VERIFY(hint.isVisible());
        offer.click();
        QVERIFY(hint.isVisible() && offer.isHidden()); // why not, is said there
        QCOMPARE(world.store.Read(q("file")), QByteArray("kept"));
        QCOMPARE(world.writes, 0);
    }

    void foldersAreOfferedWhileOneTypes() {
        EditorWorld world;
        for (const char* folder :
             {"place/Fold b", "place/fold a", "place/other", "place/.folded", "place/other/fold c"})
            QVERIFY(QDir().mkpath(world.store.Path(q(folder))));
        QVERIFY(world.store.Write(q("place/fold.txt"), ""));
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        auto& line = Find<QLineEdit>(form, "txtSourceDir");
        QAbstractItemView& offers = *line.completer()->popup();
        const auto offered = [&] {
            QStringList paths;
            for (int row = 0; offers.isVisible() && row < offers.model()->rowCount(); ++row)
                paths.append(offers.model()->index(row, 0).data().toString());
            return paths;
        };
        const auto path = [&](const char* name) -> QString { return world.store.Path(q("place/")) + q(name); };
        const auto type = [&](const QString& text) {
            line.setFocus();
            line.clear();
            QTest::keyClicks(&line, text);
            QCOMPARE(line.text(), text);
        };
        type(path("fo"));
        QTRY_COMPARE(offered(), (QStringList{path("fold a"), path("Fold b")}));
        QCOMPARE(line.text(), path("fo"));
        // Listed already, it is offered with the key; what goes on from there is a list of its own.
        QTest::keyClick(&line, Qt::Key_Backspace);
        QTest::keyClick(&line, Qt::Key_Backspace);
        QTest::keyClicks(&line, q("o"));
        QCOMPARE(offered(), QStringList{path("other")});
        QTest::keyClicks(&line, q("ther/"));
        QTRY_COMPARE(offered(), QStringList{path("other/fold c")});
        // Whoever has gone back into the text, or on to another field, is left alone.
        for (const bool leaves : {false, true}) {
            offers.hide();
            type(path("fo"));
            leaves ? Find<QLineEdit>(form, "txtName").setFocus() : line.setCursorPosition(1);
            QTRY_COMPARE(line.completer()->model()->rowCount(), 3);
            QCOMPARE(offered(), QStringList());
            QCOMPARE(line.cursorPosition(), leaves ? line.text().size() : 1);
            type(path("other/"));
            QTRY_COMPARE(offered(), QStringList{path("other/fold c")});
        }
    }

    void anObjectionWritesNothing() {
        EditorWorld world;
        ActivityRecord record = world.Usable();
        record.SetText(F::LogFile, world.store.Path("missing.log"));
        frmOptions form(world.Services(), world.Request(q("A"), record));
        form.show();
        Find<QPushButton>(form, "cmdOK").click();
        QVERIFY(form.isVisible());
        QCOMPARE(world.writes, 0);
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(form.focusWidget(), &Find<QWidget>(form, "txtLogFile"));
    }

    void staysOpenUntilItIsWritten() {
        EditorWorld world;
        frmOptions::Request request = world.Request(q("A"), world.Usable());
        int attempts = 0;
        request.write = [&](const QString&, const ActivityRecord&) -> bool {
            if (++attempts == 1)
                throw StoreError(q("disk full"));
            return attempts == 3;
        };
        frmOptions form(world.Services(), request);
        form.show();
        for (const bool isOpen : {true, true, false}) {
            Find<QPushButton>(form, "cmdOK").click();
            QCOMPARE(form.isVisible(), isOpen);
            QCOMPARE(world.settings.values.isEmpty(), isOpen);
        }
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(world.store.prompter.Told(), QStringList{q("Error: disk full")});
    }

    void changesAreDroppedByCancelOrAfterAQuestion() {
        for (const bool isChanged : {false, true}) {
            EditorWorld world;
            frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
            form.show();
            if (isChanged)
                Find<QPlainTextEdit>(form, "txtComment").setPlainText(q("typed"));
            QTest::keyClick(&form, Qt::Key_Escape);
            QCOMPARE(form.isVisible(), isChanged);
            form.close();
            QCOMPARE(form.isVisible(), isChanged);
            QCOMPARE(world.store.prompter.shown.size(), isChanged ? 2U : 0U);
            form.show();
            Find<QPushButton>(form, "cmdCancel").click();
            QVERIFY(!form.isVisible() && world.writes == 0);
            QCOMPARE(world.store.prompter.shown.size(), isChanged ? 2U : 0U);
        }
    }

    // At each OK, so that another directory is not tied to the former one's drive. The former drive may only be away,
    // and then it is not forgotten without a question.
    void drivesAreTakenAtOk() {
        EditorWorld world;
        const auto markOf = [](const QString& path) {
            return DriveMark::Of(modDrive::Of(modNativePath::FromText(path)).value());
        };
        const QString present = markOf(world.store.Path("cwd"));
        QVERIFY(!present.isEmpty());
        const QString former = q("id 1-2 | /former/stick | BACKUP");
        struct Case {
            bool isOn;
            QString known;
            const char* directory;
            bool yes;
            QString taken;
            unsigned asked;
        };
        const Case cases[] = {
            {false, former, "cwd", true, {}, 0},         {true, {}, "cwd", false, present, 0},
            {true, present, "cwd", false, present, 0},   {true, present + q(" | x"), "cwd", false, present, 0},
            {true, former, "cwd", false, former, 1},     {true, former, "cwd", true, present, 1},
            {true, former, "program", false, present, 0}};
        for (const Case& each : cases) {
            ActivityRecord record = world.Usable();
            record.SetOn(F::OnlyOnDrives, true);
            record.SetText(F::SourceDrive, each.known);
            record.SetText(F::TargetDrive, present);
            world.store.prompter.shown.clear();
            world.store.prompter.yes = each.yes;
            frmOptions form(world.Services(), world.Request(q("A"), record));
            form.show();
            Find<QAbstractButton>(form, "chkOnlyOnDrives").setChecked(each.isOn);
            Find<QLineEdit>(form, "txtSourceDir").setText(world.store.Path(each.directory));
            auto& tabs = Find<QTabWidget>(form, "tabOptions");
            tabs.setCurrentIndex(tabs.count() - 1);
            const QString line = each.known == former && qstrcmp(each.directory, "cwd") == 0
                                     ? q("/former/stick (BACKUP), but now it is on ") + DriveMark::Spoken(present)
                                     : DriveMark::Spoken(present) + q(", there now");
            if (each.isOn && !each.known.endsWith(u'x'))
                QTRY_COMPARE(Find<QLabel>(form, "lblSourceDrive").text(), line);
            Find<QPushButton>(form, "cmdOK").click();
            QVERIFY(!form.isVisible());
            QCOMPARE(world.written.Text(F::SourceDrive), each.taken);
            QCOMPARE(world.written.Text(F::TargetDrive), each.isOn ? present : QString());
            QCOMPARE(world.store.prompter.shown.size(), each.asked);
        }
        ActivityRecord record = world.Usable();
        record.SetOn(F::OnlyOnDrives, true);
        record.SetText(F::TargetDir, world.store.Path("pulled a moment ago"));
        const ActivityRecord before = record;
        QVERIFY(!EditorDrives::Take(record, {}, world.store.prompter, world.store.texts));
        QVERIFY(record == before && world.store.prompter.shown.back().text.contains(q("pulled a moment ago")));
    }

    void thePreviewIsOfWhatIsSaved() {
        EditorWorld world;
        ActivityRecord record = world.Usable();
        int previews = 0;
        for (const bool isNew : {true, false}) {
            record.SetNumber(F::Action, 3);
            frmOptions::Request request = world.Request(isNew ? QString() : q("A"), record);
            if (!isNew)
                request.preview = [&] { ++previews; };
            frmOptions form(world.Services(), request);
            auto& button = Find<QPushButton>(form, "cmdPreview");
            QVERIFY(!button.isHidden());
            button.click();
            Find<QAbstractButton>(form, "chkOnlyNew").toggle();
            button.click();
            Find<QAbstractButton>(form, "optMove").click();
            QVERIFY(button.isHidden());
        }
        QCOMPARE(previews, 1);
        QCOMPARE(world.store.prompter.shown.size(), 3U);
    }

    void formThatWasClosedMeanwhileWritesNothing() {
        EditorWorld world;
        world.system = {world.store.Native(q("cwd")), "/etc", "/"};
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        form.show();
        world.store.prompter.yes = true;
        world.store.prompter.onAsk = [&](const Message&) { form.reject(); };
        Find<QPushButton>(form, "cmdOK").click();
        QCOMPARE(world.writes, 0);
        QCOMPARE(form.result(), int(QDialog::Rejected));
    }

    void foldersComeFromPickerAndMemory() {
        EditorWorld world;
        const QString folder = world.store.Path("program");
        QStringList former;
        for (int i = 0; i < 11; ++i)
            former.append(q("/former/&%1").arg(i));
        world.settings.values[q("Kalvenor/LastFile/SourceDirs")] = former.join(u'|');
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        const QList<QAction*> offers = Find<QToolButton>(form, "cmdRecentSourceDirs").menu()->actions();
        QCOMPARE(offers.size(), 10);
        offers[2]->trigger();
        QCOMPARE(form.Record().Text(F::SourceDir), former[2]);
        world.picker.answers = {folder};
        for (int click = 0; click < 2; ++click) { // the second choice is cancelled
            Find<QToolButton>(form, "cmdSourceDir").click();
            QCOMPARE(form.Record().Text(F::SourceDir), folder);
        }
        form.accept();
        former.prepend(folder);
        QCOMPARE(world.settings.values[q("Kalvenor/LastFile/SourceDirs")], former.mid(0, 10).join(u'|'));
    }

    void pickedLogIsCreatedButNeverEmptied() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        QVERIFY(world.store.Write(q("old.log"), "kept"));
        for (const auto& [file, content] : {std::pair("old.log", "kept"), std::pair("new.log", "")}) {
            world.picker.answers = {world.store.Path(file)};
            Find<QToolButton>(form, "cmdLogFile").click();
            QCOMPARE(form.Record().Text(F::LogFile), world.store.Path(file));
            QCOMPARE(world.store.Read(q(file)), QByteArray(content));
        }
    }
};

QTEST_MAIN(TestFrmOptions)
#include "test_frmoptions.moc"
