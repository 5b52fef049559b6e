// The rows: what they show, what a user's click writes, and what a refill keeps and resets.
#include "ActivityList.h"
#include "ScratchStore.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString A = QStringLiteral("A");
const QString B = QStringLiteral("B");

QByteArray items(const QByteArray& inside) {
    return "<items>\n" + inside + "\n</items>";
}

struct ListStore : ScratchStore {
    explicit ListStore(const QByteArray& bytes) {
        ScratchStore::Put(path, bytes);
        file.SetCurrentPath(path);
        list.Refill();
    }
    [[nodiscard]] QVariant Data(int row, int column, int role) const {
        return list.data(list.index(row, column), role);
    }
    bool Click(int row, bool checked) {
        return list.setData(list.index(row, 0), checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }

    QString path = Path("a.kvd");
    ActivityFile file{document, files, prompter, texts, places};
    ActivityList list{file, texts};
    QAbstractItemModelTester tester{&list};
};

} // namespace

class TestActivityList : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void rowTexts_data() {
        QTest::addColumn<QByteArray>("fields");
        QTest::addColumn<QStringList>("columns"); // 1 to 9
        QTest::addColumn<bool>("checked");
        const auto row = [](const char* name, const QByteArray& fields, const char* columns, bool checked) {
            QTest::newRow(name) << fields << QString::fromLatin1(columns).split(u'|') << checked;
        };
        row("seconds",
            "<sourcedir>/s</sourcedir><targetdir>/t</targetdir><type>0</type><intervall>10</intervall>"
            "<action>0</action><logfile>/l</logfile><executeable>/x</executeable><extensions>txt;log</extensions>"
            "<activ>1</activ>",
            "/s|/t|10 Seconds - Copy files||0|/l|/x|txt;log|-", true);
        row("minutes, all files",
            "<type>1</type><intervall>2</intervall><action>1</action><allfiles>1</allfiles><extensions>txt</extensions>"
            "<activ>0</activ>",
            "||2 Minutes - Move files||0|-|-|All|-", false);
        row("hours", "<type>2</type><intervall>3</intervall><action>3</action><activ>yes</activ>",
            "||3 Hours - Mirror directory||0|-|-||-", false);
        row("date",
            "<type>3</type><triggerdate>01.02.2030</triggerdate><triggerdatetime>08:00</triggerdatetime>"
            "<daily>1</daily><action>2</action>",
            "||Date: 01.02.2030 / Time: 08:00 - No action||0|-|-||-", false);
        row("time", "<type>4</type><triggertime>08:00</triggertime><daily>0</daily><action>0</action>",
            "||Time: 08:00 - Copy files||0|-|-||-", false);
        row("daily", "<type>4</type><triggertime>08:00</triggertime><daily>1</daily><action>0</action>",
            "||Time: 08:00 (Daily) - Copy files||0|-|-||-", false);
        row("nothing known", "<type>9</type><intervall>3</intervall><action>9</action>", "|| - ||0|-|-||-", false);
    }
    void rowTexts() {
        QFETCH(QByteArray, fields);
        QFETCH(QStringList, columns);
        ListStore store(items("<!-- x --><A>" + fields + "</A>"));
        QCOMPARE(store.list.Rows(), 1);
        QCOMPARE(store.list.NameAt(0), A);
        QCOMPARE(store.list.NameAt(1), QString());
        for (int column = 1; column < ActivityList::ColumnCount; ++column)
            QCOMPARE(store.Data(0, column, Qt::DisplayRole).toString(), columns[column - 1]);
        QTEST(store.Data(0, 0, Qt::CheckStateRole).toInt() == Qt::Checked, "checked");
        QVERIFY(!store.Data(0, 1, Qt::CheckStateRole).isValid());
    }

    void headersAreTheGivenTexts() {
        ListStore store(items(""));
        const QList<int> ids{179, 180, 181, 336, 182, 387, 388, 389, 390, 395};
        for (int column = 0; column < ActivityList::ColumnCount; ++column)
            QCOMPARE(store.list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                     store.texts.Text(ids[column]));
    }

    void tooltipShowsTheCommentLiterally() {
        ListStore store(items("<A><comment>&lt;b&gt;1 &amp; 2&lt;/b&gt;\n&lt;img src='x'&gt;</comment></A><B/>"));
        QCOMPARE(store.list.CommentAt(0), QStringLiteral("<b>1 & 2</b>\n<img src='x'>"));
        const QString shown = store.Data(0, 3, Qt::ToolTipRole).toString();
        QVERIFY(shown.contains(QStringLiteral("&lt;b&gt;1 &amp; 2&lt;/b&gt;\n&lt;img")));
        QCOMPARE(shown.count(u'<'), 2); // our own mark-up around it
        QVERIFY(!store.Data(1, 3, Qt::ToolTipRole).isValid());
    }

    void clickWritesAndSaves() {
        ListStore store(items("<A><activ>0</activ></A><B><activ>1</activ></B>"));
        QSignalSpy refilled(&store.list, &ActivityList::Refilled);
        store.list.SetText(A, ActivityList::Count, QStringLiteral("7"));
        QVERIFY(store.Click(0, true));
        QVERIFY(store.Click(1, false));
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1));
        QCOMPARE(ScratchStore::Bytes(store.path),
                 QByteArray("<items>\n<A><activ>1</activ></A><B><activ>0</activ></B>\n</items>\n"));
        QCOMPARE(refilled.size(), 0);
        QCOMPARE(store.list.Text(A, ActivityList::Count), QStringLiteral("7"));
        QVERIFY(!store.list.setData(store.list.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    }

    void clickThatCannotBeSavedIsTakenBack() {
        ListStore store(items("<A><activ>0</activ></A>"));
        QSignalSpy failed(&store.list, &ActivityList::ToggleFailed);
        const QByteArray other = items("<A><activ>0</activ></A><New/>");
        QVERIFY(ScratchStore::Put(store.path, other));
        QVERIFY(!store.Click(0, true));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(failed[0][0].toString(), store.texts.Text(432));
        QVERIFY(!store.list.IsChecked(0));
        QCOMPARE(store.file.Read(A, "activ"), QStringLiteral("0"));
        QCOMPARE(ScratchStore::Bytes(store.path), other);
    }

    void clickOnARecordWithoutTheFieldShowsTheTruth() {
        ListStore store(items("<A/>"));
        QVERIFY(store.Click(0, true));
        QVERIFY(!store.list.IsChecked(0));
    }

    void programNeverSaves() {
        const QByteArray bytes = items("<A><activ>1</activ></A><B><activ>1</activ></B>");
        ListStore store(bytes);
        QSignalSpy changed(&store.list, &QAbstractItemModel::dataChanged);
        store.list.SetChecked(A, false);
        store.list.SetText(B, ActivityList::Status, QStringLiteral("Idle"));
        store.list.SetText(QStringLiteral("none"), ActivityList::Status, QStringLiteral("Idle"));
        QCOMPARE(changed.size(), 2);
        store.list.TakeOut(B);
        QVERIFY(!store.list.IsChecked(0) && !store.list.IsChecked(1));
        QCOMPARE(ScratchStore::Bytes(store.path), bytes);

        // A refill ticks what the file says, but not what was taken out, and starts the counters anew.
        store.list.Refill();
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1));
        QCOMPARE(store.list.Text(B, ActivityList::Status), QString());
        QVERIFY(store.list.IsTakenOut(B));
        QVERIFY(store.Click(1, true));
        QVERIFY(!store.list.IsTakenOut(B) && store.list.IsChecked(1));
    }

    void equalNamesAreTheFirstRow() {
        ListStore store(items("<A><sourcedir>1</sourcedir></A><B/><A><sourcedir>2</sourcedir></A>"));
        QCOMPARE(store.list.Rows(), 3);
        QCOMPARE(store.list.RowOf(A), std::optional<int>(0));
        QCOMPARE(store.list.RowOf(QStringLiteral("a")), std::nullopt);
    }

    void damagedFileIsOfferedForRepair_data() {
        QTest::addColumn<bool>("yes");
        QTest::newRow("Yes") << true;
        QTest::newRow("No") << false;
    }
    void damagedFileIsOfferedForRepair() {
        QFETCH(bool, yes);
        ListStore store(items("<A/>"));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(store.Path("cwd")));
        QVERIFY(ScratchStore::Put(store.path, ""));
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
        QCOMPARE(QFile::exists(store.Path("cwd/a.OLD")), yes);
        QCOMPARE(ScratchStore::Bytes(store.path).isEmpty(), !yes);
    }
};

QTEST_GUILESS_MAIN(TestActivityList)
#include "test_activitylist.moc"
