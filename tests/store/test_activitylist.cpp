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

    ActivityList list{file, texts, QLocale(QLocale::English, QLocale::UnitedStates)};
    QAbstractItemModelTester tester{&list};
};

} // namespace

class TestActivityList : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void rowTexts() {
        const ListStore store(items("<!-- x --><A><sourcedir>/s</sourcedir><targetdir>/t</targetdir><type>4</type>"
                                    "<triggertime>08:00</triggertime><daily>1</daily><action>1</action><logfile>/l"
                                    "</logfile><allfiles>1</allfiles><extensions>txt</extensions></A>"));
        QCOMPARE(store.list.NameAt(0), A);
        QStringList columns;
        for (int column = 1; column < ActivityList::ColumnCount; ++column)
            columns.append(store.Data(0, column, Qt::DisplayRole).toString());
        QCOMPARE(columns.join(u'|'), u"/s|/t|Time: 08:00 (Daily) - Move files||0|/l|-|All|-|"_qs);
    }

    void clickWritesAndSaves() {
        ListStore store(items("<A><activ>0</activ></A><B><activ>1</activ></B><C/>"));
        store.list.SetText(A, ActivityList::Count, u"7"_qs);
        QVERIFY(store.Click(0, true));
        QVERIFY(store.Click(1, false));
        QVERIFY(store.Click(2, true)); // has no such field, and the list shows the truth
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1) && !store.list.IsChecked(2));
        QCOMPARE(store.Read(own), items("<A><activ>1</activ></A><B><activ>0</activ></B><C/>") + '\n');
        QCOMPARE(store.list.Text(A, ActivityList::Count), u"7"_qs);
    }

    void clickThatCannotBeSavedIsTakenBack() {
        ListStore store(items("<A><activ>0</activ></A>"));
        QSignalSpy failed(&store.list, &ActivityList::ToggleFailed);
        const QByteArray other = items("<A><activ>0</activ></A><New/>");
        QVERIFY(store.Write(own, other));
        QVERIFY(!store.Click(0, true));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(failed[0][0].toString(), store.texts[Text::FileChangedOutside]);
        QVERIFY(!store.list.IsChecked(0));
        QCOMPARE(store.file.Read(A, ActivityField::Active), u"0"_qs);
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

    void aNameGivenTwiceIsTheFirst() {
        ListStore store(items("<A><activ>1</activ></A><A><activ>1</activ></A>"));
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1));
        QVERIFY(!store.Click(1, true) && !store.list.IsChecked(1));
        store.list.TakeOut(A);
        QVERIFY(!store.list.IsChecked(0) && !store.list.IsChecked(1));
        store.list.ReadmitAll();
        QVERIFY(store.list.IsChecked(0) && !store.list.IsChecked(1) && !store.list.IsTakenOut(A));
        // The rows can be filled from what was loaded, whatever has become of the file.
        QVERIFY(QFile::remove(store.Path(own)));
        store.list.ShowLoaded();
        QCOMPARE(store.list.Rows(), 2);
        store.list.Clear();
        QCOMPARE(store.list.Rows(), 0);
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
