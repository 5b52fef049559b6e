// Writing an edited activity: names that are refused, renames, and the record's form in the file.
#include "ActivityRecord.h"
#include "ActivityWriter.h"
#include "ScratchStore.h"
#include "StoreError.h"

#include <QtTest>

namespace {

const QString three = QStringLiteral("<items><A><sourcedir>/a</sourcedir><extra>x</extra></A><B/><C/></items>");

ActivityRecord record(const QString& type) {
    ActivityRecord made;
    for (const FieldRow& row : ActivityRecord::Fields())
        made.SetText(row.field, QStringLiteral("v-") + QLatin1String(row.element));
    made.SetText(ActivityField::Type, type);
    return made;
}

} // namespace

class TestActivityWriter : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void names_data() {
        QTest::addColumn<QString>("opened");
        QTest::addColumn<QString>("entered");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QString>("after"); // names in order
        QTest::addColumn<int>("asked");     // text id, 0 = nothing
        const auto row = [](const char* opened, const char* entered, bool yes, const char* after, int asked) {
            QTest::addRow("'%s' as '%s' %d", opened, entered, yes)
                << QString::fromUtf8(opened) << QString::fromUtf8(entered) << yes << QString::fromUtf8(after) << asked;
        };
        row("", "D", false, "A B C D", 0);
        row("", "  D ", false, "A B C D", 0);
        row("", "a", false, "A B C a", 0); // another letter case is another name
        row("", "B", true, "A B C", 386);
        row("A", "B", true, "A B C", 386);
        row("A", "A", false, "B C A", 0); // an edited activity moves to the end
        row("A", " A", false, "B C A", 0);
        row("A", "D", true, "B C D", 317);
        row("A", "D", false, "A B C D", 317);
        row("gone", "gone", false, "A B C gone", 0);
    }
    void names() {
        QFETCH(QString, opened);
        QFETCH(QString, entered);
        QFETCH(bool, yes);
        QFETCH(QString, after);
        QFETCH(int, asked);
        ScratchStore store;
        QVERIFY(store.document.OpenXML(three, 1));
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        store.prompter.yes = yes;
        const QString before = store.document.XML();
        const bool isWritten = ActivityWriter(store.document, file, store.prompter, store.texts)
                                   .Write(opened, entered, record(QStringLiteral("0")));
        QCOMPARE(isWritten, asked != 386);
        QCOMPARE(file.Names(), after.split(u' '));
        QCOMPARE(store.prompter.shown.size(), asked == 0 ? 0U : 1U);
        if (asked != 0)
            QCOMPARE(store.prompter.shown[0].text, store.texts.Text(asked));
        if (isWritten)
            QCOMPARE(file.Read(entered.trimmed(), "comment"), QStringLiteral("v-comment"));
        else
            QCOMPARE(store.document.XML(), before);
    }

    void unusableNameKeepsTheOldRecord_data() {
        QTest::addColumn<QString>("entered");
        for (const char* name : {"My Backup", "1abc", "", "a:b", "a<b"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void unusableNameKeepsTheOldRecord() {
        QFETCH(QString, entered);
        ScratchStore store;
        QVERIFY(store.document.OpenXML(three, 1));
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        store.prompter.yes = true;
        const QString before = store.document.XML();
        ActivityWriter writer(store.document, file, store.prompter, store.texts);
        QVERIFY_THROWS_EXCEPTION(
            StoreError, static_cast<void>(writer.Write(QStringLiteral("A"), entered, record(QStringLiteral("0")))));
        QCOMPARE(store.document.XML(), before);
    }

    void nameTakenWhileAsking() {
        ScratchStore store;
        QVERIFY(store.document.OpenXML(three, 1));
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        store.prompter.yes = true;
        store.prompter.onAsk = [&](const Message& message) {
            if (message.text == store.texts.Text(317))
                store.document.MakeNode(QStringLiteral("/items"), QStringLiteral("D"));
        };
        ActivityWriter writer(store.document, file, store.prompter, store.texts);
        QVERIFY(!writer.Write(QStringLiteral("A"), QStringLiteral("D"), record(QStringLiteral("0"))));
        QCOMPARE(file.Names().join(u' '), QStringLiteral("A B C D"));
        QCOMPARE(store.prompter.shown.back().text, store.texts.Text(386));
    }

    void form_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("beginning"); // fields around the type
        for (const char* type : {"0", "1", "2"})
            QTest::newRow(type) << QString::fromLatin1(type) << QStringLiteral("targetdir type intervall triggerdate");
        for (const char* type : {"3", "4"})
            QTest::newRow(type) << QString::fromLatin1(type) << QStringLiteral("targetdir intervall type triggerdate");
        QTest::newRow("none") << QString() << QStringLiteral("targetdir intervall triggerdate triggerdatetime");
    }
    void form() {
        QFETCH(QString, type);
        ScratchStore store;
        QVERIFY(store.document.OpenXML(QStringLiteral("<items/>"), 1));
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        ActivityRecord written = record(type);
        written.SetText(ActivityField::Action, QStringLiteral("2"));
        written.SetOn(ActivityField::AllFiles, true);
        written.SetNumber(ActivityField::Interval, 17);
        ActivityWriter writer(store.document, file, store.prompter, store.texts);
        QVERIFY(writer.Write({}, QStringLiteral("N"), written));
        QStringList order;
        const QString path = QStringLiteral("/items/N");
        for (int i = 0; i < store.document.NodeCount(path); ++i)
            order.append(store.document.GetChildName(path, i));
        QCOMPARE(order.size(), type.isEmpty() ? 32 : 33);
        QTEST(QStringList(order.mid(1, 4)).join(u' '), "beginning");
        QCOMPARE(order.last(), QStringLiteral("computername"));

        const ActivityRecord read = ActivityRecord::Read(file, QStringLiteral("N"));
        QCOMPARE(read.Text(ActivityField::TargetDir), QString()); // no action has no destination
        QCOMPARE(read.Text(ActivityField::Extensions), QString());
        QCOMPARE(read.Number(ActivityField::ExceedTime), 17);
        QCOMPARE(file.Read(QStringLiteral("N"), "CC"), QStringLiteral("v-CC"));
        QCOMPARE(file.Read(QStringLiteral("N"), "cc"), QString());
        for (const ActivityField kept : {ActivityField::SourceDir, ActivityField::Executable, ActivityField::SmtpHost})
            QCOMPARE(read.Text(kept), written.Text(kept));
    }

    void switchesFollowTheirStyle_data() {
        QTest::addColumn<ActivityField>("field");
        QTest::addColumn<QString>("on"); // texts that count as on, separated by commas
        QTest::addColumn<QString>("off");
        QTest::newRow("Y/N") << ActivityField::Overwrite << QStringLiteral("Y,,y,1") << QStringLiteral("N");
        QTest::newRow("1/0") << ActivityField::AllFiles << QStringLiteral("1") << QStringLiteral("0,,Y,01");
        QTest::newRow("check box") << ActivityField::Daily << QStringLiteral("1,01") << QStringLiteral("0,,Y,2");
    }
    void switchesFollowTheirStyle() {
        QFETCH(ActivityField, field);
        QFETCH(QString, on);
        QFETCH(QString, off);
        ActivityRecord tested;
        for (const bool expected : {true, false}) {
            for (const QString& text : (expected ? on : off).split(u',')) {
                tested.SetText(field, text);
                QCOMPARE(tested.IsOn(field), expected);
            }
            tested.SetOn(field, expected);
            QCOMPARE(tested.Text(field), (expected ? on : off).split(u',').first());
        }
    }
};

QTEST_GUILESS_MAIN(TestActivityWriter)
#include "test_activitywriter.moc"
