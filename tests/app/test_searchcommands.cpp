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

class TestSearchCommands : public QObject {
    Q_OBJECT

    static void fill(ProgramFixture& fixture) {
        const auto text = [](const char* latin) { return QString::fromUtf8(latin); };
        fixture.Add(text("Alpha"), {{text("sourcedir"), text("/in/Photos")}, {text("targetdir"), text("/out/one")}});
        fixture.Add(text("Beta"), {{text("comment"), text("xABCx <b>")},
                                   {text("extensions"), text("hidden")},
                                   {text("logfile"), text("/logs/hidden.log")}});
        fixture.Add(text("Gamma"), {{text("sourcedir"), text("/in/photos")}, {text("action"), text("1")}});
        fixture.Start();
        fixture.program->List().SetText(text("Gamma"), ActivityList::Status, text("Stra\u00dfe"));
    }

  private Q_SLOTS:
    void finds_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("matchCase");
        QTest::addColumn<QList<int>>("rows");
        using Rows = QList<int>;
        QTest::newRow("name") << "alph" << false << Rows{0};
        QTest::newRow("source") << "PHOTOS" << false << Rows{0, 2};
        QTest::newRow("source, case") << "photos" << true << Rows{2};
        QTest::newRow("destination") << "out/one" << true << Rows{0};
        QTest::newRow("schedule") << "Move files" << true << Rows{2};
        QTest::newRow("status") << "STRASSE" << false << Rows{2};
        QTest::newRow("status, case") << "STRASSE" << true << Rows{};
        QTest::newRow("comment") << "abc" << false << Rows{1};
        QTest::newRow("comment, case") << "abc" << true << Rows{};
        QTest::newRow("comment as entered") << "<b>" << true << Rows{1};
        QTest::newRow("markup of the tooltip") << "span" << false << Rows{};
        QTest::newRow("columns behind the fourth") << "hidden" << false << Rows{};
        QTest::newRow("every row") << "a" << false << Rows{0, 1, 2};
        QTest::newRow("nothing") << "" << false << Rows{};
    }
    void finds() {
        QFETCH(QString, text);
        QFETCH(bool, matchCase);
        ProgramFixture fixture;
        fill(fixture);
        ListSearch search;
        QList<int> rows;
        std::optional<int> row = search.Search(fixture.program->List(), text, matchCase);
        while (row) {
            QVERIFY(search.CanSearchAgain());
            rows.append(*row);
            row = search.SearchAgain(fixture.program->List(), *row);
        }
        QVERIFY(!search.CanSearchAgain());
        QTEST(rows, "rows");
    }

    void walk() {
        ProgramFixture fixture;
        fill(fixture);
        ActivityListView view(fixture.program->List());
        DialogHost dialogs;
        SearchCommands commands(*fixture.program, dialogs, view);
        QList<bool> enabled;
        connect(&commands, &SearchCommands::SearchAgainEnabled, this, [&](bool now) { enabled.append(now); });

        commands.SearchAgain(); // before the first search
        WhenOpen<frmSearch>([](frmSearch& form) {
            QVERIFY(!Find<QPushButton>(form, "cmdOK").isEnabled());
            Find<QLineEdit>(form, "txtSearchText").setText(QStringLiteral("photos"));
            Find<QPushButton>(form, "cmdOK").click();
        });
        commands.Search();
        QCOMPARE(view.SelectedNames(), QStringList{QStringLiteral("Alpha")});
        commands.SearchAgain();
        QCOMPARE(view.SelectedNames(), QStringList{QStringLiteral("Gamma")});
        QVERIFY(fixture.prompter.shown.empty());
        commands.SearchAgain();
        QCOMPARE(view.SelectedNames(), QStringList{QStringLiteral("Gamma")});
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        QCOMPARE(fixture.prompter.shown.front().text, QStringLiteral("Text not found!"));
        QCOMPARE(enabled, (QList<bool>{true, true, false}));

        // The dialog begins with the last search; cancelled, it leaves everything as it is.
        WhenOpen<frmSearch>([](frmSearch& form) {
            QCOMPARE(Find<QLineEdit>(form, "txtSearchText").text(), QStringLiteral("photos"));
            Find<QCheckBox>(form, "chkMatchCase").click();
            Find<QPushButton>(form, "cmdCancel").click();
        });
        commands.Search();
        QCOMPARE(enabled.size(), 3);
        WhenOpen<frmSearch>([](frmSearch& form) {
            Find<QCheckBox>(form, "chkMatchCase").click();
            Find<QPushButton>(form, "cmdOK").click();
        });
        commands.Search();
        QCOMPARE(view.SelectedNames(), QStringList{QStringLiteral("Gamma")});
        QCOMPARE(enabled.last(), true);
    }
};

QTEST_MAIN(TestSearchCommands)
#include "test_searchcommands.moc"
