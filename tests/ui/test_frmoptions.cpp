// The activity editor as its user meets it: what goes in and comes out of its controls, and what keeps it open.
#include "Drop.h"
#include "EditorWorld.h"
#include "FolderEdit.h"
#include "ModalForm.h"
#include "StoreError.h"
#include "ctlAutoCompleteCombo.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTabWidget>
#include <QToolButton>

namespace {

using F = ActivityField;

QString q(const char* text) {
    return QString::fromUtf8(text);
}

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
    void everyControlEditsItsField() {
        struct Edit {
            const char* control;
            const char* value;
            F field;
            const char* stored;
        };
        const std::vector<Edit> edits{
            {"txtSourceDir", "/in", F::SourceDir, "/in"},
            {"txtTargetDir", "/out", F::TargetDir, "/out"},
            {"txtComment", "two\nlines", F::Comment, "two\nlines"},
            {"chkActiv", "-", F::Active, "0"},
            {"optDate", "+", F::Type, "3"},
            {"txtDate", "24122030", F::TriggerDate, "24.12.2030"},
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
        };
        EditorWorld world;
        frmOptions form(world.Services(), world.Request({}, NewActivity()));
        Find<QLineEdit>(form, "txtName").setText(q("  Photos "));
        QCOMPARE(form.Name(), q("Photos"));
        ActivityRecord expected = form.Record();
        for (const Edit& edit : edits) {
            enter(form, edit.control, edit.value);
            expected.SetText(edit.field, q(edit.stored));
            const QString differs = difference(form.Record(), expected);
            QVERIFY2(differs.isEmpty(), qPrintable(q(edit.control) + u' ' + differs));
        }
        // Shown again, it is the same activity.
        frmOptions again(world.Services(), world.Request(q("Photos"), expected));
        QCOMPARE(difference(again.Record(), expected), QString());
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
        QCOMPARE(kept(F::TriggerTime, ":"), q(":"));
        QCOMPARE(kept(F::TriggerDate, "Christmas"), q("Christmas"));
        QCOMPARE(kept(F::TriggerDateTime, "99:99"), q("99:99"));
        QCOMPARE(kept(F::Comment, "a\r\nb\u00a0c"), q("a\r\nb\u00a0c"));
        QCOMPARE(kept(F::SourceDir, "/a\nb"), q("/a\nb"));
        // Another spelling of the same, and what a missing field means.
        QCOMPARE(kept(F::TriggerDate, "1.2.2030"), q("01.02.2030"));
        QCOMPARE(kept(F::TriggerTime, "8:00"), q("08:00"));
        QCOMPARE(kept(F::OnlyNew, ""), q("Y"));
        QCOMPARE(kept(F::Daily, ""), q("0"));
        QCOMPARE(kept(F::Interval, ""), q("1"));
    }

    void choicesDecideWhatCanBeEdited() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        const auto on = [&](const char* name) { return Find<QWidget>(form, name).isEnabled(); };
        const auto choose = [&](const char* name) { Find<QAbstractButton>(form, name).click(); };
        QVERIFY(on("sldInterval") && !on("txtDate") && !on("txtTime") && !on("chkDaily"));
        choose("optTime");
        Find<QLineEdit>(form, "txtTime").setText(q("1"));
        QVERIFY(!on("sldInterval") && !on("txtDate") && on("txtTime") && on("chkDaily"));
        choose("optDate");
        QVERIFY(on("txtDate") && on("txtDateTime") && on("cmdSelectDate"));
        Find<QLineEdit>(form, "txtDate").setText(q("24122030"));
        choose("cmdSelectDate");
        auto& calendar = Find<QCalendarWidget>(form, "calDate");
        QCOMPARE(calendar.selectedDate(), QDate(2030, 12, 24));
        Q_EMIT calendar.activated(QDate(2030, 12, 31));
        QCOMPARE(form.Record().Text(F::TriggerDate), q("31.12.2030"));
        QCOMPARE(form.Record().Text(F::TriggerTime), QString()); // half a time nobody could reach any more
        choose("optNoAction");
        QVERIFY(!on("txtTargetDir") && !on("cmdTargetDir"));
        QCOMPARE(form.Record().Text(F::TargetDir), QString());
        choose("optMove");
        QCOMPARE(form.Record().Text(F::TargetDir), world.store.Path("program"));
        QVERIFY(!on("txtExtensions") && !on("cboSender") && !on("cmdLoadMailFromOutlook"));
        choose("optOnlyThis");
        choose("chkMail");
        QVERIFY(on("txtExtensions") && on("cboSender") && on("txtSMTPHost") && on("cmdLoadMailFromOutlook"));
        choose("chkUseSMTP");
        QVERIFY(!on("txtSMTPHost"));
        frmOptions alone(world.Services(false), world.Request(q("A"), world.Usable()));
        Find<QAbstractButton>(alone, "chkMail").click();
        QVERIFY(Find<QWidget>(alone, "cboSender").isEnabled());
        QVERIFY(!Find<QWidget>(alone, "cmdLoadMailFromOutlook").isEnabled());
    }

    void objectionLeadsToItsField() {
        EditorWorld world;
        ActivityRecord record = world.Usable();
        record.SetText(F::LogFile, world.store.Path("missing.log"));
        frmOptions form(world.Services(), world.Request(q("A"), record));
        form.show();
        Find<QPushButton>(form, "cmdOK").click();
        QVERIFY(form.isVisible());
        QCOMPARE(world.writes, 0);
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(Find<QTabWidget>(form, "tabOptions").currentWidget()->objectName(), q("tabAction"));
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

    void aNewActivityBeginsWithItsNameAndEnterEndsIt() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(QString(), world.Usable()));
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QCOMPARE(form.focusWidget()->objectName(), q("txtName"));
        QTest::keyClicks(form.focusWidget(), q("Photos"));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QCOMPARE(world.writtenName, q("Photos"));
        QVERIFY(!form.isVisible());
    }

    void formThatWasClosedMeanwhileWritesNothing() {
        EditorWorld world;
        world.system = {world.store.Path("cwd").toStdString(), "/etc", "/"};
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        form.show();
        world.store.prompter.yes = true;
        world.store.prompter.onAsk = [&](const Message&) { form.reject(); };
        Find<QPushButton>(form, "cmdOK").click();
        QCOMPARE(world.writes, 0);
        QCOMPARE(form.result(), int(QDialog::Rejected));
    }

    void foldersComeFromPickerDropAndMemory() {
        EditorWorld world;
        const QString folder = world.store.Path("program");
        QStringList former;
        for (int i = 0; i < 11; ++i)
            former.append(q("/former/&%1").arg(i));
        world.settings.values[q("Kalvenor/LastFile/SourceDirs")] = former.join(u'|');
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        auto& source = Find<FolderEdit>(form, "txtSourceDir");

        world.picker.answers = {folder};
        for (int click = 0; click < 2; ++click) { // the second choice is cancelled
            Find<QToolButton>(form, "cmdSourceDir").click();
            QCOMPARE(source.text(), folder);
        }

        const QList<QAction*> offers = Find<QToolButton>(form, "cmdRecentSourceDirs").menu()->actions();
        QCOMPARE(offers.size(), 10);
        offers[2]->trigger();
        QCOMPARE(source.text(), former[2]);
        QVERIFY(form.findChild<QToolButton*>(q("cmdRecentTargetDirs")) == nullptr);

        QVERIFY(ScratchStore::Put(world.store.Path("file"), "no folder"));
        QVERIFY(!Drop(source, world.store.Path("file")));
        QVERIFY(Drop(source, world.store.Path("cwd")));
        QCOMPARE(source.text(), world.store.Path("cwd"));

        form.accept();
        QCOMPARE(world.writtenName, q("A"));
        QCOMPARE(world.written.Text(F::SourceDir), world.store.Path("cwd"));
        former.prepend(world.store.Path("cwd"));
        QCOMPARE(world.settings.values[q("Kalvenor/LastFile/SourceDirs")], former.mid(0, 10).join(u'|'));
        QCOMPARE(world.settings.values[q("Kalvenor/LastFile/TargetDirs")], folder);
    }

    void pickedLogIsCreatedButNeverEmptied() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        QVERIFY(ScratchStore::Put(world.store.Path("old.log"), "kept"));
        for (const auto& [file, content] : {std::pair("old.log", "kept"), std::pair("new.log", "")}) {
            world.picker.answers = {world.store.Path(file)};
            Find<QToolButton>(form, "cmdLogFile").click();
            QCOMPARE(form.Record().Text(F::LogFile), world.store.Path(file));
            QCOMPARE(ScratchStore::Bytes(world.store.Path(file)), QByteArray(content));
        }
    }

    void addressesAreOffered() {
        EditorWorld world;
        frmOptions::Request request = world.Request(q("A"), world.Usable());
        request.known = {{q("s@a.de")}, {q("r@a.de")}, {}};
        request.record.SetText(F::Recipient, q("typed@a.de"));
        request.record.SetOn(F::SendMail, true);
        frmOptions form(world.Services(), request);
        const auto offers = [&] {
            QStringList texts;
            for (const char* name : {"cboSender", "cboRecipient", "cboCC"}) {
                auto& combo = Find<ctlAutoCompleteCombo>(form, name);
                texts.append(combo.Text());
                for (int i = 0; i < combo.count(); ++i)
                    texts.last() += u',' + combo.itemText(i);
            }
            return texts.join(u' ');
        };
        const QString known = q(",s@a.de typed@a.de,r@a.de ");
        QCOMPARE(offers(), known);
        Find<QPushButton>(form, "cmdLoadMailFromOutlook").click();
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(offers(), known);
        world.mailClient.contacts = QStringList{q("x@a.de"), QString()};
        Find<QPushButton>(form, "cmdLoadMailFromOutlook").click();
        QCOMPARE(offers(), q(",s@a.de,x@a.de, typed@a.de,,x@a.de, ,,x@a.de,"));
    }

    void fitsTheScreenAndSpeaks() {
        static const QRegularExpression control(q("^(txt|cbo|chk|opt|cmd|sld|spn)[A-Z]"));
        EditorWorld world;
        world.settings.values[q("Kalvenor/LastFile/SourceDirs")] = q("/home/a");
        for (const Language language : {Language::English, Language::German}) {
            frmOptions form(world.Services(false, language), world.Request(q("A"), world.Usable()));
            form.show();
            QVERIFY2(form.width() <= 1024 && form.height() <= 700,
                     qPrintable(q("%1 x %2").arg(form.width()).arg(form.height())));
            for (const QWidget* widget : form.findChildren<QWidget*>(control))
                QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
        }
    }
};

QTEST_MAIN(TestFrmOptions)
#include "test_frmoptions.moc"
