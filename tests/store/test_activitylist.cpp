// The rows: what they show, what a user's click writes, and what a refill keeps and resets.
#include "ActivityList.h"
#include "ScratchStore.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString A = u"A"_qs;
const QString B = u"B"_qs;
const QString own = u"a.kvd"_qs;

QByteArray items(const QByteArray& inside) {
    return "<items>\n" + inside + "\n</items>";
}

struct ListStore : ScratchStore {
    explicit ListStore(const QByteArray& bytes) : ScratchStore(bytes) { list.Refill(); }
    [[nodiscard]] QVariant Data(int row, int column, int role) const {
        return list.data(list.index(row, column), role);
    }
    bool Click(int row, bool checked) {
        return list.setData(list.index(row, 0), checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }

    ActivityList list{file, texts};
    QAbstractItemModelTester tester{&list};
};

} // namespace

class TestActivityList : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void rowTexts_data() {
        QTest::addColumn<QByteArray>("fields");
        QTest::addColumn<QString>("columns"); // 1 to 9
        QTest::addColumn<bool>("checked");
        const auto row = [](const char* name, const QByteArray& fields, const char* columns, bool checked) {
            QTest::newRow(name) << fields << QString::fromLatin1(columns) << checked;
        };
        row("seconds",
            "<sourcedir>/s</sourcedir><targetdir>/t</targetdir><type>0</type><intervall>10</intervall>"
            "<action>0</action><logfile>/l</logfile><executeable>/x</executeable><extensions>txt;log</extensions>"
            "<activ>1</activ>",
            "/s|/t|10 Seconds - Copy files||0|/l|/x|txt;log|-", true);
        row("daily, all files",
            "<type>4</type><triggertime>08:00</triggertime><daily>1</daily><action>1</action>"
            "<allfiles>1</allfiles><extensions>txt</extensions><activ>yes</activ>",
            "||Time: 08:00 (Daily) - Move files||0|-|-|All|-", false);
        row("nothing known", "<type>9</type><intervall>3</intervall><action>9</action>", "|| - ||0|-|-||-", false);
    }
    void rowTexts() {
        QFETCH(QByteArray, fields);
        const ListStore store(items("<!-- x --><A>" + fields + "</A>"));
        QCOMPARE(store.list.Rows(), 1);
        QCOMPARE(store.list.NameAt(0), A);
        QStringList columns;
        for (int column = 1; column < ActivityList::ColumnCount; ++column)
            columns.append(store.Data(0, column, Qt::DisplayRole).toString());
        QTEST(columns.join(u'|'), "columns");
        QTEST(store.Data(0, 0, Qt::CheckStateRole).toInt() == Qt::Checked, "checked");
    }

    void tooltipShowsTheCommentLiterally() {
        const ListStore store(items("<A><comment>&lt;b&gt;1 &amp; 2&lt;/b&gt;\n&lt;img src='x'&gt;</comment></A><B/>"));
        const QString shown = store.Data(0, 3, Qt::ToolTipRole).toString();
        QVERIFY(shown.contains(u"&lt;b&gt;1 &amp; 2&lt;/b&gt;\n&lt;img"_qs));
        QCOMPARE(shown.count(u'<'), 2); // our own mark-up around it
        QVERIFY(!store.Data(1, 3, Qt::ToolTipRole).isValid());
    }

    void clickWritesAndSaves() {
        ListStore store(items("<A><activ>0</activ></A><B><activ>1</activ></B><C/>"));
        QSignalSpy refilled(&store.list, &ActivityList::Refilled);
        store.list.SetText(A, ActivityList::Count, u"7"_qs);
        QVERIFY(store.Click(0, true));
        QVERIFY(store.Click(1, false));
        QVERIFY(store.Click(2, true)); // has no such field, and the list shows the truth
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1) && !store.list.IsChecked(2));
        QCOMPARE(store.Read(own), items("<A><activ>1</activ></A><B><activ>0</activ></B><C/>") + '\n');
        QCOMPARE(refilled.size(), 0);
        QCOMPARE(store.list.Text(A, ActivityList::Count), u"7"_qs);
    }

    void clickThatCannotBeSavedIsTakenBack() {
        ListStore store(items("<A><activ>0</activ></A>"));
        QSignalSpy failed(&store.list, &ActivityList::ToggleFailed);
        const QByteArray other = items("<A><activ>0</activ></A><New/>");
        QVERIFY(store.Write(own, other));
        QVERIFY(!store.Click(0, true));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(failed[0][0].toString(), store.texts.Text(432));
        QVERIFY(!store.list.IsChecked(0));
        QCOMPARE(store.file.Read(A, "activ"), u"0"_qs);
        QCOMPARE(store.Read(own), other);
    }

    void programNeverSaves() {
        const QByteArray bytes = items("<A><activ>1</activ></A><B><activ>1</activ></B>");
        ListStore store(bytes);
        QSignalSpy changed(&store.list, &QAbstractItemModel::dataChanged);
        store.list.SetChecked(A, false);
        store.list.SetText(B, ActivityList::Status, u"Idle"_qs);
        store.list.SetText(u"none"_qs, ActivityList::Status, u"Idle"_qs);
        QCOMPARE(changed.size(), 2);
        store.list.TakeOut(B);
        QVERIFY(!store.list.IsChecked(0) && !store.list.IsChecked(1));
        QCOMPARE(store.Read(own), bytes);

        // A refill ticks what the file says, but not what was taken out, and starts the counters anew.
        store.list.Refill();
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1));
        QCOMPARE(store.list.Text(B, ActivityList::Status), QString());
        QVERIFY(store.list.IsTakenOut(B));
        QVERIFY(store.Click(1, true));
        QVERIFY(!store.list.IsTakenOut(B) && store.list.IsChecked(1));
    }

    void equalNamesAreTheFirstRow() {
        const ListStore store(items("<A><sourcedir>1</sourcedir></A><B/><A><sourcedir>2</sourcedir></A>"));
        QCOMPARE(store.list.Rows(), 3);
        QCOMPARE(store.list.RowOf(A), std::optional<int>(0));
        QCOMPARE(store.list.RowOf(u"a"_qs), std::nullopt);
    }

    void damagedFileIsOfferedForRepair() {
        const QString before = QDir::currentPath();
        for (const bool yes : {true, false}) {
            ListStore store(items("<A/>"));
            QVERIFY(QDir::setCurrent(store.Path(u"cwd"_qs)));
            QVERIFY(store.Write(own, ""));
            store.prompter.yes = yes;
            int rowsWhileAsking = -1;
            bool isBusyWhileAsking = false;
            store.prompter.onAsk = [&](const Message&) {
                rowsWhileAsking = store.list.Rows();
                isBusyWhileAsking = store.list.ListBusy();
                store.list.Refill(); // a second one from inside the box must not ask again
            };
            store.list.Refill();
            QDir::setCurrent(before);
            QCOMPARE(store.prompter.shown.size(), 1U);
            QCOMPARE(rowsWhileAsking, 0);
            QVERIFY(isBusyWhileAsking && !store.list.ListBusy());
            QCOMPARE(store.list.Rows(), 0);
            QCOMPARE(store.Exists(u"cwd/a.OLD"_qs), yes);
            QCOMPARE(store.Read(own).isEmpty(), !yes);
        }
    }
};

QTEST_GUILESS_MAIN(TestActivityList)
#include "test_activitylist.moc"
