// Writing an edited activity: names that are refused, renames, and the record's form in the file.
#include "ActivityRecord.h"
#include "ActivityWriter.h"
#include "ScratchStore.h"
#include "StoreError.h"

#include <QtTest>

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
    void names() {
        /// The names in order, and what was asked, "unusable" if it was refused, "kept" if nothing has changed.
        const auto saved = [](const char* opened, const char* entered, bool yes) {
            Store store;
            store.prompter.yes = yes;
            const QString before = store.document.XML();
            QStringList said;
            try {
                const QString name = QString::fromLatin1(entered);
                if (store.writer.Write(QString::fromLatin1(opened), name, record()) &&
                    store.file.Read(name.trimmed(), ActivityField::Comment) == u"v-comment")
                    said += u"written"_qs;
            } catch (const StoreError&) {
                said += u"unusable"_qs;
                store.prompter.shown.clear(); // whether it is to be a rename may be asked before
            }
            if (store.document.XML() == before)
                said += u"kept"_qs;
            if (!store.prompter.shown.empty())
                said += store.prompter.shown.front().text;
            return QString(store.file.Names().join(u' ') + u": " + said.join(u' '));
        };
        const StringTable texts(Language::English);
        const QString taken = u"A B C: kept "_qs + texts[Text::NameTaken];
        const QString asked = u": written "_qs + texts[Text::RenameQuestion];
        QCOMPARE(saved("", "D", false), u"A B C D: written"_qs);
        QCOMPARE(saved("", "a", false), u"A B C a: written"_qs); // another letter case is another name
        QCOMPARE(saved("", "B", true), taken);
        QCOMPARE(saved("A", "B", true), taken);
        QCOMPARE(saved("A", " A", false), u"B C A: written"_qs); // an edited activity moves to the end
        QCOMPARE(saved("A", "D", true), u"B C D"_qs + asked);
        QCOMPARE(saved("A", "D", false), u"A B C D"_qs + asked);
        QCOMPARE(saved("gone", "gone", false), u"A B C gone: written"_qs);
        for (const char* none : {"My Backup", "1abc", ""})
            QCOMPARE(saved("A", none, true), u"A B C: unusable kept"_qs);
    }

    void anEditIsNotHiddenByItsNamesake() {
        Store store("<A><comment>first</comment></A><A><comment>second</comment></A><B/>");
        QVERIFY(store.writer.Write(A, A, record()));
        QCOMPARE(store.file.Names().join(u' '), u"A A B"_qs);
        QCOMPARE(store.file.Read(A, ActivityField::Comment), u"v-comment"_qs);
        QVERIFY(store.Read(u"a.kvd"_qs).contains("second"));
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
        written.SetText(ActivityField::SourceDrive, {});
        written.SetText(ActivityField::TargetDrive, {});
        QVERIFY(store.writer.Write({}, D, written));
        QStringList order;
        const QString path = u"/items/D"_qs;
        for (int i = 0; i < store.document.NodeCount(path); ++i)
            order.append(store.document.GetChildName(path, i));
        QCOMPARE(order.size(), 33); // nothing of what is not used
        QCOMPARE(order.mid(1, 4).join(u' '), u"targetdir intervall type triggerdate"_qs);
        const ActivityRecord read = ActivityRecord::Read(store.file, D);
        QCOMPARE(read.Text(ActivityField::TargetDir), QString()); // no action has no destination
        QCOMPARE(read.Text(ActivityField::Extensions), QString());
        QCOMPARE(read.Text(ActivityField::AllFiles) + read.Text(ActivityField::Overwrite), u"1N"_qs);
        QCOMPARE(read.Number(ActivityField::ExceedTime), 17);
        for (const ActivityField kept : {ActivityField::SourceDir, ActivityField::Executable, ActivityField::SmtpHost})
            QCOMPARE(read.Text(kept), written.Text(kept));
        written.SetNumber(ActivityField::KeepDays, 30);
        written.SetText(ActivityField::SourceDrive, u"id 1-2"_qs);
        QCOMPARE(written.Elements().mid(33),
                 (QList<std::pair<QString, QString>>{{u"keepdays"_qs, u"30"_qs}, {u"sourcedrive"_qs, u"id 1-2"_qs}}));
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
