// Searching the list: which rows a text finds, and the walk from hit to hit.
#include "ActivityListView.h"
#include "DialogHost.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "SearchCommands.h"
#include "frmSearch.h"
#include <QLineEdit>
#include <QPushButton>

namespace {

struct World : ProgramFixture {
    World() {
        Add(u"Alpha"_qs, {{u"sourcedir"_qs, u"/in/Photos"_qs}, {u"targetdir"_qs, u"/out/one"_qs}});
        Add(u"Beta"_qs, {{u"comment"_qs, u"xABCx"_qs}, {u"extensions"_qs, u"hidden"_qs}});
        Add(u"Gamma"_qs, {{u"sourcedir"_qs, u"/in/photos"_qs}, {u"action"_qs, u"1"_qs}});
        Start();
        program->List().SetText(u"Gamma"_qs, ActivityList::Status, u"Stra\u00dfe"_qs);
    }
};

} // namespace

class TestSearchCommands : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void walksFromHitToHit() {
        World world;
        ActivityListView view(world.program->List());
        DialogHost dialogs;
        SearchCommands commands(*world.program, dialogs, view);
        /// The rows that are found one after the other, until the box says that there is no more.
        const auto found = [&](const QString& text) {
            WhenOpen<frmSearch>([&](frmSearch& form) {
                Find<QLineEdit>(form, "txtSearchText").setText(text);
                Find<QPushButton>(form, "cmdOK").click();
            });
            world.prompter.shown.clear();
            QString names;
            for (commands.Search(); world.prompter.shown.empty(); commands.SearchAgain())
                names += view.CurrentName().front();
            return names;
        };
        commands.SearchAgain();              // before the first search
        QCOMPARE(found(u"a"_qs), u"ABG"_qs); // names
        view.sortByColumn(0, Qt::DescendingOrder);
        QCOMPARE(found(u"a"_qs), u"GBA"_qs); // down the screen
        view.sortByColumn(-1, Qt::AscendingOrder);
        QCOMPARE(found(u"PHOTOS"_qs), u"AG"_qs);  // sources
        QCOMPARE(found(u"strasse"_qs), u"G"_qs);  // status
        QCOMPARE(found(u"abc"_qs), u"B"_qs);      // comment
        QCOMPARE(found(u"hidden"_qs), QString()); // what the list does not show
        QCOMPARE(world.prompter.shown.front().text, u"Text not found!"_qs);
    }
};

QTEST_MAIN(TestSearchCommands)
#include "test_searchcommands.moc"
