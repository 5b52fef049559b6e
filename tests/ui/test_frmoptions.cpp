// The activity editor as its user meets it: what goes in and comes out of its controls, and what keeps it open.
#include "EditorWorld.h"
#include "FolderEdit.h"
#include "StoreError.h"
#include "ctlAutoCompleteCombo.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QCompleter>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace {

using F = ActivityField;

QString q(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace

Q_DECLARE_METATYPE(ActivityField)
Q_DECLARE_METATYPE(Language)

class TestFrmOptions : public QObject {
    Q_OBJECT

    template <typename Control>
    static Control& find(const frmOptions& form, const char* name) {
        auto* control = form.findChild<Control*>(QLatin1String(name));
        if (control == nullptr)
            qFatal("no control %s", name);
        return *control;
    }

    /// "+" and "-" switch a button.
    static void enter(const frmOptions& form, const char* name, const char* value) {
        auto& control = find<QWidget>(form, name);
        if (auto* button = qobject_cast<QAbstractButton*>(&control))
            button->setChecked(*value == '+');
        else if (auto* slider = qobject_cast<QSlider*>(&control))
            slider->setValue(q(value).toInt());
        else if (auto* combo = qobject_cast<ctlAutoCompleteCombo*>(&control))
            combo->SetText(q(value));
        else if (auto* lines = qobject_cast<QPlainTextEdit*>(&control))
            lines->setPlainText(q(value));
        else
            find<QLineEdit>(form, name).setText(q(value));
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
        find<QLineEdit>(form, "txtName").setText(q("  Photos "));
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

    void whatIsOnlyLookedAtStays_data() {
        QTest::addColumn<F>("field");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("kept");
        const auto same = [](const char* name, F field, const char* text) {
            QTest::newRow(name) << field << q(text) << q(text);
        };
        same("a long interval", F::Interval, "1440");
        same("unknown schedule", F::Type, "");
        same("unknown action", F::Action, "9");
        same("time not set", F::TriggerTime, ":");
        same("a date in words", F::TriggerDate, "Christmas");
        same("a time no day has", F::TriggerDateTime, "99:99");
        same("line breaks and odd blanks", F::Comment, "a\r\nb\u00a0c");
        same("a path with a line break", F::SourceDir, "/a\nb");
        QTest::newRow("short date") << F::TriggerDate << q("1.2.2030") << q("01.02.2030");
        QTest::newRow("short time") << F::TriggerTime << q("8:00") << q("08:00");
        QTest::newRow("missing flag") << F::OnlyNew << QString() << q("Y");
        QTest::newRow("missing switch") << F::Daily << QString() << q("0");
        QTest::newRow("missing interval") << F::Interval << QString() << q("1");
    }
    void whatIsOnlyLookedAtStays() {
        QFETCH(F, field);
        QFETCH(QString, stored);
        EditorWorld world;
        ActivityRecord record = world.Usable();
        record.SetText(field, stored);
        QTEST(frmOptions(world.Services(), world.Request(q("A"), record)).Record().Text(field), "kept");
    }

    void choicesDecideWhatCanBeEdited() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        const auto on = [&](const char* name) { return find<QWidget>(form, name).isEnabled(); };
        const auto choose = [&](const char* name) { find<QAbstractButton>(form, name).click(); };
        QVERIFY(on("sldInterval") && !on("txtDate") && !on("txtTime") && !on("chkDaily"));
        choose("optTime");
        find<QLineEdit>(form, "txtTime").setText(q("1"));
        QVERIFY(!on("sldInterval") && !on("txtDate") && on("txtTime") && on("chkDaily"));
        choose("optDate");
        QVERIFY(on("txtDate") && on("txtDateTime") && on("cmdSelectDate"));
        find<QLineEdit>(form, "txtDate").setText(q("24122030"));
        choose("cmdSelectDate");
        auto& calendar = find<QCalendarWidget>(form, "calDate");
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
        find<QAbstractButton>(alone, "chkMail").click();
        QVERIFY(find<QWidget>(alone, "cboSender").isEnabled());
        QVERIFY(!find<QWidget>(alone, "cmdLoadMailFromOutlook").isEnabled());
    }

    void objectionLeadsToItsField() {
        EditorWorld world;
        ActivityRecord record = world.Usable();
        record.SetText(F::LogFile, world.store.Path("missing.log"));
        frmOptions form(world.Services(), world.Request(q("A"), record));
        form.show();
        find<QPushButton>(form, "cmdOK").click();
        QVERIFY(form.isVisible());
        QCOMPARE(world.writes, 0);
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(find<QTabWidget>(form, "tabOptions").currentWidget()->objectName(), q("tabAction"));
        QCOMPARE(form.focusWidget(), &find<QWidget>(form, "txtLogFile"));
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
            find<QPushButton>(form, "cmdOK").click();
            QCOMPARE(form.isVisible(), isOpen);
            QCOMPARE(world.settings.values.isEmpty(), isOpen);
        }
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(world.store.prompter.shown[0].text, q("disk full"));
        QCOMPARE(world.store.prompter.shown[0].title, q("Error"));
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
        find<QPushButton>(form, "cmdOK").click();
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
        auto& source = find<FolderEdit>(form, "txtSourceDir");

        world.picker.answers = {folder};
        find<QToolButton>(form, "cmdSourceDir").click();
        QCOMPARE(source.text(), folder);
        find<QToolButton>(form, "cmdSourceDir").click(); // cancelled
        QCOMPARE(source.text(), folder);

        const QList<QAction*> offers = find<QToolButton>(form, "cmdRecentSourceDirs").menu()->actions();
        QCOMPARE(offers.size(), 10);
        offers[2]->trigger();
        QCOMPARE(source.text(), former[2]);
        QVERIFY(form.findChild<QToolButton*>(q("cmdRecentTargetDirs")) == nullptr);

        QFile(world.store.Path("file")).open(QIODevice::WriteOnly);
        const auto drop = [&](const QString& path) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(path)});
            QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            enter.ignore();
            QCoreApplication::sendEvent(&source, &enter);
            if (!enter.isAccepted())
                return;
            QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&source, &event);
        };
        drop(world.store.Path("file"));
        QCOMPARE(source.text(), former[2]);
        drop(world.store.Path("cwd"));
        QCOMPARE(source.text(), world.store.Path("cwd"));

        form.accept();
        QCOMPARE(world.writtenName, q("A"));
        QCOMPARE(world.written.Text(F::SourceDir), world.store.Path("cwd"));
        former.prepend(world.store.Path("cwd"));
        QCOMPARE(world.settings.values[q("Kalvenor/LastFile/SourceDirs")], former.mid(0, 10).join(u'|'));
        QCOMPARE(world.settings.values[q("Kalvenor/LastFile/TargetDirs")], folder);
    }

    void typingOffersFolders() {
        EditorWorld world;
        QVERIFY(ScratchStore::Put(world.store.Path("cfile"), "no folder"));
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        auto& source = find<FolderEdit>(form, "txtSourceDir");
        source.setText(world.store.folder.path() + u'/');
        source.setFocus();
        QTest::keyClicks(&source, q("c"));
        QTRY_COMPARE(source.completer()->completionCount(), 1);
        QCOMPARE(source.completer()->currentCompletion(), world.store.Path("cwd"));
    }

    void pickedLogIsCreatedButNeverEmptied() {
        EditorWorld world;
        frmOptions form(world.Services(), world.Request(q("A"), world.Usable()));
        QVERIFY(ScratchStore::Put(world.store.Path("old.log"), "kept"));
        for (const auto& [file, content] : {std::pair("old.log", "kept"), std::pair("new.log", "")}) {
            world.picker.answers = {world.store.Path(file)};
            find<QToolButton>(form, "cmdLogFile").click();
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
        const auto offers = [&](const char* name) {
            auto& combo = find<ctlAutoCompleteCombo>(form, name);
            QStringList texts{combo.Text()};
            for (int i = 0; i < combo.count(); ++i)
                texts.append(combo.itemText(i));
            return texts.join(u',');
        };
        QCOMPARE(offers("cboRecipient"), q("typed@a.de,r@a.de"));
        find<QPushButton>(form, "cmdLoadMailFromOutlook").click();
        QCOMPARE(world.store.prompter.shown.size(), 1U);
        QCOMPARE(world.store.prompter.shown[0].title, q("Outlook contacts"));
        QCOMPARE(offers("cboRecipient"), q("typed@a.de,r@a.de"));
        world.mailClient.contacts = QStringList{q("x@a.de"), QString()};
        find<QPushButton>(form, "cmdLoadMailFromOutlook").click();
        QCOMPARE(offers("cboSender"), q(",s@a.de,x@a.de,"));
        QCOMPARE(offers("cboRecipient"), q("typed@a.de,,x@a.de,"));
        QCOMPARE(offers("cboCC"), q(",,x@a.de,"));
    }

    void fitsTheScreenAndSpeaks_data() {
        QTest::addColumn<Language>("language");
        QTest::newRow("English") << Language::English;
        QTest::newRow("German") << Language::German;
    }
    void fitsTheScreenAndSpeaks() {
        QFETCH(Language, language);
        EditorWorld world;
        world.settings.values[q("Kalvenor/LastFile/SourceDirs")] = q("/home/a");
        frmOptions form(world.Services(false, language), world.Request(q("A"), world.Usable()));
        form.show();
        QVERIFY2(form.width() <= 1024 && form.height() <= 700,
                 qPrintable(q("%1 x %2").arg(form.width()).arg(form.height())));
        for (const QWidget* widget : form.findChildren<QWidget*>()) {
            static const QRegularExpression control(q("^(txt|cbo|chk|opt|cmd|sld|spn)[A-Z]"));
            if (control.match(widget->objectName()).hasMatch())
                QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
        }
    }
};

QTEST_MAIN(TestFrmOptions)
#include "test_frmoptions.moc"
