// Writing an edited activity: names that are refused, renames, and the record's form in the file.
#include "ActivityRecord.h"
#include "ActivityWriter.h"
#include "ScratchStore.h"
#include "StoreError.h"

#include <QtTest>
#include <tuple>

namespace {

const QString A = u"A"_qs;
const QString D = u"D"_qs;

ActivityRecord record(const QString& type = u"0"_qs) {
    ActivityRecord made;
    for (const FieldRow& row : ActivityRecord::Fields())
        made.SetText(row.field, u"v-"_qs + QLatin1String(row.element));
    made.SetText(ActivityField::Type, type);
    return made;
}

struct Store : ScratchStore {
    explicit Store(const QByteArray& inside = "<A><sourcedir>/a</sourcedir><extra>x</extra></A><B/><C/>")
        : ScratchStore("<items>" + inside + "</items>") {
        file.Load();
        prompter.yes = true;
    }
    ActivityWriter writer{document, file, prompter, texts};
};

} // namespace

class TestActivityWriter : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void names_data() {
        QTest::addColumn<QString>("opened");
        QTest::addColumn<QString>("entered");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QString>("after"); // names in order
        QTest::addColumn<Text>("asked");    // NameUnusable: thrown
        const auto row = [](const char* opened, const char* entered, bool yes, const char* after, Text asked) {
            QTest::addRow("'%s' as '%s' %d", opened, entered, yes)
                << QString::fromUtf8(opened) << QString::fromUtf8(entered) << yes << QString::fromUtf8(after) << asked;
        };
        row("", "D", false, "A B C D", Text::None);
        row("", "a", false, "A B C a", Text::None); // another letter case is another name
        row("", "B", true, "A B C", Text::NameTaken);
        row("A", "B", true, "A B C", Text::NameTaken);
        row("A", " A", false, "B C A", Text::None); // an edited activity moves to the end
        row("A", "D", true, "B C D", Text::RenameQuestion);
        row("A", "D", false, "A B C D", Text::RenameQuestion);
        row("gone", "gone", false, "A B C gone", Text::None);
        for (const char* none : {"My Backup", "1abc", ""})
            row("A", none, true, "A B C", Text::NameUnusable);
    }
    void names() {
        QFETCH(QString, opened);
        QFETCH(QString, entered);
        QFETCH(bool, yes);
        QFETCH(Text, asked);
        Store store;
        store.prompter.yes = yes;
        const QString before = store.document.XML();
        bool isWritten = false;
        try {
            isWritten = store.writer.Write(opened, entered, record());
        } catch (const StoreError&) {
            QCOMPARE(asked, Text::NameUnusable);
        }
        QCOMPARE(isWritten, asked == Text::None || asked == Text::RenameQuestion);
        QTEST(store.file.Names().join(u' '), "after");
        if (asked != Text::None && asked != Text::NameUnusable)
            QCOMPARE(store.prompter.shown.at(0).text, store.texts[asked]);
        if (isWritten)
            QCOMPARE(store.file.Read(entered.trimmed(), ActivityField::Comment), u"v-comment"_qs);
        else
            QCOMPARE(store.document.XML(), before);
    }

    void anEditIsNotHiddenByItsNamesake() {
        Store store("<A><comment>first</comment></A><A><comment>second</comment></A><B/>");
        QVERIFY(store.writer.Write(A, A, record()));
        QCOMPARE(store.file.Names().join(u' '), u"A A B"_qs);
        QCOMPARE(store.file.Read(A, ActivityField::Comment), u"v-comment"_qs);
        QVERIFY(store.Read(u"a.kvd"_qs).contains("second"));
    }

    void aRefusedSaveLeavesTheDocument() {
        Store store;
        const QString before = store.document.XML();
        QVERIFY(QFile::remove(store.Path(u"a.kvd"_qs)) && QDir(store.Path()).mkdir(u"a.kvd"_qs));
        for (const QString& name : {A, D})
            QVERIFY_THROWS_EXCEPTION(StoreError, std::ignore = store.writer.Write(A, name, record()));
        QCOMPARE(store.document.XML(), before);
        QCOMPARE(store.file.Read(A, ActivityField::SourceDir), u"/a"_qs);
    }

    void nameTakenWhileAsking() {
        Store store;
        store.prompter.onAsk = [&](const Message& message) {
            if (message.text == store.texts[Text::RenameQuestion])
                store.document.MakeNode(u"/items"_qs, D);
        };
        QVERIFY(!store.writer.Write(A, D, record()));
        QCOMPARE(store.file.Names().join(u' '), u"A B C D"_qs);
        QCOMPARE(store.prompter.shown.back().text, store.texts[Text::NameTaken]);
    }

    void form() {
        Store store;
        ActivityRecord written = record(u"3"_qs);
        written.SetText(ActivityField::Action, u"2"_qs);
        written.SetOn(ActivityField::AllFiles, true);
        written.SetOn(ActivityField::Overwrite, false);
        written.SetNumber(ActivityField::Interval, 17);
        QVERIFY(store.writer.Write({}, D, written));
        QStringList order;
        const QString path = u"/items/D"_qs;
        for (int i = 0; i < store.document.NodeCount(path); ++i)
            order.append(store.document.GetChildName(path, i));
        QCOMPARE(order.size(), 33);
        QCOMPARE(order.mid(1, 4).join(u' '), u"targetdir intervall type triggerdate"_qs);
        const ActivityRecord read = ActivityRecord::Read(store.file, D);
        QCOMPARE(read.Text(ActivityField::TargetDir), QString()); // no action has no destination
        QCOMPARE(read.Text(ActivityField::Extensions), QString());
        QCOMPARE(read.Text(ActivityField::AllFiles) + read.Text(ActivityField::Overwrite), u"1N"_qs);
        QCOMPARE(read.Number(ActivityField::ExceedTime), 17);
        for (const ActivityField kept : {ActivityField::SourceDir, ActivityField::Executable, ActivityField::SmtpHost})
            QCOMPARE(read.Text(kept), written.Text(kept));
    }

    void switchesFollowTheirStyle() {
        const auto isOn = [](ActivityField field, const char* text) {
            ActivityRecord read;
            read.SetText(field, QString::fromLatin1(text));
            return read.IsOn(field);
        };
        QVERIFY(isOn(ActivityField::Overwrite, "") && !isOn(ActivityField::Overwrite, "N"));
        QVERIFY(isOn(ActivityField::AllFiles, "1") && !isOn(ActivityField::AllFiles, "01"));
        QVERIFY(isOn(ActivityField::Daily, "01") && !isOn(ActivityField::Daily, "Y"));
    }
};

QTEST_GUILESS_MAIN(TestActivityWriter)
#include "test_activitywriter.moc"
