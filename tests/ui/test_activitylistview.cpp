// The list on the screen: its order, its columns, what is selected and what opens a row.
#include "ActivityColumns.h"
#include "ActivityList.h"
#include "ActivityListView.h"
#include "Fakes.h"
#include "NextRunLook.h"
#include "ResultLook.h"
#include "RunResults.h"
#include "RunState.h"
#include "ScratchStore.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>

namespace {

const QStringList fileOrder{u"One"_qs, u"Two"_qs, u"Three"_qs};

struct Scene : ScratchStore {
    Scene() : ScratchStore("<items><One/><Two><comment>x\xC2\x9B\n&lt;b&gt;</comment></Two><Three/></items>") {
        list.Refill();
    }
    QStringList Shown() const {
        QStringList names;
        for (const int row : view.ShownRows())
            names.append(list.NameAt(row));
        return names;
    }
    void DoubleClick(const QPoint& at) { QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at); }

    ActivityList list{file, texts, QLocale::c()};
    FakeClock clock;
    RunResults results{file, files, clock, {}};
    ResultLook look{results, file, texts};
    NextRun next[3];
    int asked = 0; ///< for a next run
    NextRunLook nextRuns{[this](int row) { return ++asked, next[row]; }, clock, texts};
    ActivityListView view{list, look, nextRuns, texts};
};

} // namespace

class TestActivityListView final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void sorts() {
        /// The order by a column with these texts for One, Two and Three.
        const auto order = [](int column, const QStringList& texts = {}) {
            Scene scene;
            for (qsizetype i = 0; i < texts.size(); ++i)
                scene.list.SetText(fileOrder[i], static_cast<ActivityList::Column>(column), texts[i]);
            scene.view.sortByColumn(0, Qt::DescendingOrder);
            scene.view.sortByColumn(column, Qt::AscendingOrder);
            return scene.Shown();
        };
        const QStringList backwards{u"Three"_qs, u"Two"_qs, u"One"_qs};
        QCOMPARE(order(-1), fileOrder);
        QCOMPARE(order(ActivityList::Name), (QStringList{u"One"_qs, u"Three"_qs, u"Two"_qs}));
        QCOMPARE(order(ActivityList::Count, {u"10"_qs, u"9"_qs, u"-"_qs}), backwards);
        QCOMPARE(order(ActivityList::LastRun, {u"01.02.2026 07:00:00"_qs, u"02.01.2026 08:00:00"_qs, u"-"_qs}),
                 backwards);
    }

    /// Nothing is found out while the column is hidden.
    void theNextRunIsShownWhereItIsWanted() {
        Scene scene;
        scene.clock.now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        scene.next[0].at =
            Moments::Second(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2)) + std::chrono::hours(8);
        scene.next[1].at = *scene.next[0].at - std::chrono::hours(24);
        scene.next[1].held = u"no <drive>"_qs;
        scene.next[2].reason = NeverRuns::Stalls;
        scene.view.resize(3000, 400);
        scene.view.show();
        QCOMPARE(scene.asked, 0);
        QHeaderView& header = *scene.view.header();
        header.showSection(ActivityList::NextRun);
        scene.view.sortByColumn(ActivityList::NextRun, Qt::AscendingOrder);
        QCOMPARE(scene.Shown(), (QStringList{u"Two"_qs, u"One"_qs, u"Three"_qs}));
        QCOMPARE(scene.asked, 3);
        const auto at = [&](int row, int role) {
            return scene.view.model()->index(row, ActivityList::NextRun).data(role).toString();
        };
        QCOMPARE(at(0, Qt::DisplayRole), u"08:00:00"_qs);
        QCOMPARE(at(1, Qt::DisplayRole), u"02.03.2026 08:00:00"_qs);
        QCOMPARE(at(2, Qt::DisplayRole), u"never"_qs);
        QVERIFY(at(0, Qt::ToolTipRole).contains(u"no &lt;drive&gt;"));
        QCOMPARE(at(2, Qt::AccessibleDescriptionRole), scene.texts[Text::NeverStalls]);
    }

    void columnsAreRestoredUnlessTheLayoutIsBroken() {
        Scene former;
        former.view.setColumnWidth(ActivityList::Source, 321);
        former.view.sortByColumn(ActivityList::Status, Qt::DescendingOrder);
        const QString layout = former.view.Columns().Layout();
        Scene scene;
        for (const QString& given : {layout, QString(), u"200,100"_qs, u"9999,x,-5,0,,9999,9999,9999,9999,9999,10,0"_qs,
                                     QString(layout + u",1")}) {
            scene.view.Columns().RestoreLayout(given);
            QCOMPARE(scene.view.Columns().Layout(), layout);
        }
        QCOMPARE(scene.view.columnWidth(ActivityList::Source), 321);
        QCOMPARE(scene.view.header()->sortIndicatorSection(), int(ActivityList::Status));
    }

    void columnsFoldAndAreHiddenAndMovedByTheMenu() {
        const auto choose = [](ActivityListView& view, int column, const QString& text) {
            QMenu menu;
            view.Columns().Fill(menu, column);
            for (QAction* action : menu.actions())
                if (action->text().remove(u'&') == text && action->isEnabled())
                    action->trigger();
        };
        Scene scene;
        const QHeaderView& header = *scene.view.header();
        QVERIFY(header.isSectionHidden(ActivityList::LogFile) && !header.isSectionHidden(ActivityList::LastRun));
        QVERIFY(scene.Write(u"a.kvd"_qs, "<items><One><logfile>/l</logfile></One><Two/></items>"));
        scene.list.Refill();
        QVERIFY(!header.isSectionHidden(ActivityList::LogFile));
        choose(scene.view, -1, scene.texts[Text::ActionColumn]);
        QVERIFY(header.isSectionHidden(ActivityList::Status));
        choose(scene.view, ActivityList::LastRun, u"Move to the left"_qs); // over the hidden one
        QCOMPARE(header.visualIndex(ActivityList::LastRun), 2);
        for (int i = 0; i < ActivityList::ColumnCount; ++i)
            choose(scene.view, ActivityList::LastRun, u"Move to the left"_qs);
        QCOMPARE(header.visualIndex(ActivityList::Name), 0);

        Scene restored;
        restored.view.Columns().RestoreLayout(scene.view.Columns().Layout());
        QVERIFY(restored.view.header()->isSectionHidden(ActivityList::Status));
        QCOMPARE(restored.view.header()->visualIndex(ActivityList::LastRun), 1);
        choose(restored.view, -1, u"Next run"_qs);
        Scene shown;
        shown.view.Columns().RestoreLayout(restored.view.Columns().Layout());
        QVERIFY(!shown.view.header()->isSectionHidden(ActivityList::NextRun));
        choose(restored.view, -1, u"Standard columns"_qs);
        QCOMPARE(restored.view.Columns().Layout(), Scene().view.Columns().Layout());
    }

    void aRefillKeepsTheSelectionByName() {
        Scene scene;
        scene.view.sortByColumn(0, Qt::DescendingOrder);
        scene.view.Select(u"Two"_qs);
        scene.view.selectionModel()->select(scene.view.model()->index(1, 0),
                                            QItemSelectionModel::Select | QItemSelectionModel::Rows); // Three
        QVERIFY(scene.Write(u"a.kvd"_qs, "<items><New/><Three/><Two/></items>"));
        scene.list.Refill();
        QCOMPARE(scene.view.SelectedNames(), (QStringList{u"Three"_qs, u"Two"_qs})); // in the order of the file
        QCOMPARE(scene.view.CurrentName(), u"Two"_qs);
        QVERIFY(scene.Write(u"a.kvd"_qs, "<items><New/><Three/></items>"));
        scene.list.Refill();
        QCOMPARE(scene.view.CurrentName(), u"Three"_qs);
        scene.view.clearSelection();
        QCOMPARE(scene.view.CurrentName(), QString());
    }

    void aRowOpensOutsideItsCheckBox() {
        Scene scene;
        scene.view.resize(800, 400);
        scene.view.show();
        QStringList opened;
        connect(&scene.view, &ActivityListView::RowOpened, this, [&](const QString& name) { opened.append(name); });
        const QRect name = scene.view.visualRect(scene.view.model()->index(1, 0));
        scene.DoubleClick({name.left() + 8, name.center().y()});
        QCOMPARE(opened, QStringList());
        scene.DoubleClick({name.right() - 2, name.center().y()});
        QCOMPARE(opened, QStringList{u"Two"_qs});
    }

    void theTooltipShowsACutPathBesideTheComment() {
        Scene scene;
        scene.view.resize(3000, 400);
        scene.view.show();
        const QString path = u"/a & b/"_qs.repeated(20);
        const auto tooltip = [&](int row, int width) {
            scene.view.setColumnWidth(ActivityList::Source, width);
            const QModelIndex cell = scene.view.model()->index(row, ActivityList::Source);
            scene.list.SetText(fileOrder[row], ActivityList::Source, path);
            const QPoint at = scene.view.visualRect(cell).center();
            QHelpEvent event(QEvent::ToolTip, at, scene.view.viewport()->mapToGlobal(at));
            QCoreApplication::sendEvent(scene.view.viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(tooltip(0, 2500), QString());
        const QString comment = tooltip(1, 2500);
        QVERIFY(!comment.contains(u"/a"_qs) && comment.contains(u"&lt;b&gt;"_qs));
        QVERIFY(tooltip(1, 100).contains(path.toHtmlEscaped()) && tooltip(1, 100).endsWith(comment));
        QVERIFY(tooltip(0, 100).contains(path.toHtmlEscaped()) && !tooltip(0, 100).contains(comment));
    }

    void controlCharactersAreNotShown() {
        Scene scene;
        scene.list.SetText(u"Two"_qs, ActivityList::Status, u"Copy 'a\u009b2J\n'"_qs);
        const QModelIndex cell = scene.view.model()->index(1, ActivityList::Status);
        QCOMPARE(cell.data().toString(), u"Copy 'a\uFFFD2J '"_qs);
        QVERIFY(cell.siblingAtColumn(0).data(Qt::ToolTipRole).toString().contains(u"Has not run yet."_qs));
        QVERIFY(cell.data(Qt::ToolTipRole).toString().contains(u"x\uFFFD\n&lt;b&gt;"_qs));
    }
};

QTEST_MAIN(TestActivityListView)
#include "test_activitylistview.moc"
