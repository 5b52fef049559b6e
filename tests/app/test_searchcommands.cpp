// Searching the list: which rows a text finds, and the walk from hit to hit.
#include "ActivityListView.h"
#include "DialogHost.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "SearchCommands.h"
#include "frmSearch.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

namespace {

struct World : ProgramFixture {
    World() {
        Add(u"Alpha"_qs, {{u"sourcedir"_qs, u"/in/Photos"_qs}, {u"targetdir"_qs, u"/out/one"_qs}});
        Add(u"Beta"_qs, {{u"comment"_qs, u"xABCx <b>"_qs}, {u"extensions"_qs, u"hidden"_qs}});
        Add(u"Gamma"_qs, {{u"sourcedir"_qs, u"/in/photos"_qs}, {u"action"_qs, u"1"_qs}});
        Start();
        program->List().SetText(u"Gamma"_qs, ActivityList::Status, u"Stra\u00dfe"_qs);
    }
};

} // namespace

class TestSearchCommands : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void finds() {
        World world;
        const auto rowsWith = [&](const QString& text, bool matchCase) {
            ListSearch search;
            QString rows;
            for (auto row = search.Search(world.program->List(), text, matchCase); row;
                 row = search.SearchAgain(world.program->List(), *row))
                rows += QString::number(*row) + (search.CanSearchAgain() ? u"" : u" but says there is nothing");
            return rows;
        };
        QCOMPARE(rowsWith(u"A"_qs, false), u"012"_qs);     // names
        QCOMPARE(rowsWith(u"PHOTOS"_qs, false), u"02"_qs); // sources
        QCOMPARE(rowsWith(u"photos"_qs, true), u"2"_qs);
        QCOMPARE(rowsWith(u"out/one"_qs, true), u"0"_qs);    // destination
        QCOMPARE(rowsWith(u"Move files"_qs, true), u"2"_qs); // schedule
        QCOMPARE(rowsWith(u"STRASSE"_qs, false), u"2"_qs);   // status
        QCOMPARE(rowsWith(u"STRASSE"_qs, true), QString());
        QCOMPARE(rowsWith(u"abc"_qs, false), u"1"_qs); // comment
        QCOMPARE(rowsWith(u"<b>"_qs, true), u"1"_qs);
        QCOMPARE(rowsWith(u"span"_qs, false), QString());   // markup of the tooltip
        QCOMPARE(rowsWith(u"hidden"_qs, false), QString()); // columns behind the fourth
        QCOMPARE(rowsWith(QString(), false), QString());
    }

    void walk() {
        World world;
        ActivityListView view(world.program->List());
        DialogHost dialogs;
        SearchCommands commands(*world.program, dialogs, view);
        QSignalSpy enabled(&commands, &SearchCommands::SearchAgainEnabled);
        const auto search = [&](const char* button, const QString& shown, const QString& typed, bool switchesCase) {
            WhenOpen<frmSearch>([&](frmSearch& form) {
                auto& line = Find<QLineEdit>(form, "txtSearchText");
                QCOMPARE(line.text(), shown);
                QCOMPARE(Find<QPushButton>(form, "cmdOK").isEnabled(), !shown.isEmpty());
                line.setText(typed);
                if (switchesCase)
                    Find<QCheckBox>(form, "chkMatchCase").click();
                Find<QPushButton>(form, button).click();
            });
            commands.Search();
        };
        commands.SearchAgain(); // before the first search
        search("cmdOK", {}, u"photos"_qs, false);
        QCOMPARE(view.SelectedNames(), QStringList{u"Alpha"_qs});
        commands.SearchAgain();
        QCOMPARE(view.SelectedNames(), QStringList{u"Gamma"_qs});
        QVERIFY(world.prompter.shown.empty());
        commands.SearchAgain();
        QCOMPARE(view.SelectedNames(), QStringList{u"Gamma"_qs});
        QCOMPARE(world.prompter.shown.size(), 1U);
        QCOMPARE(world.prompter.shown.front().text, u"Text not found!"_qs);
        QCOMPARE(enabled, (QList<QVariantList>{{true}, {true}, {false}}));

        // The dialog begins with the last search; cancelled, it leaves everything as it is.
        search("cmdCancel", u"photos"_qs, u"Alpha"_qs, true);
        QCOMPARE(enabled.size(), 3);
        search("cmdOK", u"photos"_qs, u"photos"_qs, true);
        QCOMPARE(view.SelectedNames(), QStringList{u"Gamma"_qs});
        QCOMPARE(enabled.last(), QVariantList{true});
    }
};

QTEST_MAIN(TestSearchCommands)
#include "test_searchcommands.moc"
