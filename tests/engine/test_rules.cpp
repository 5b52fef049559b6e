#include "FileTypeFilter.h"
#include "Prompter.h"
#include "StringTable.h"
#include "SyncTexts.h"
#include "modDateCompare.h"
#include "modTriggerDate.h"

#include <QTest>

Q_DECLARE_METATYPE(FileDecision)

class TestRules final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    void decision_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("overwrite");
        QTest::addColumn<QString>("onlynew");
        QTest::addColumn<QList<FileDecision>>("olderEqualNewer");
        using enum FileDecision;
        QTest::newRow("copy, silently, newer only") << "0"
                                                    << "Y"
                                                    << "Y" << QList{LeaveAlone, LeaveAlone, Replace};
        QTest::newRow("copy, silently, always") << "0"
                                                << "Y"
                                                << "N" << QList{Replace, Replace, Replace};
        QTest::newRow("copy, asking, newer only") << "0"
                                                  << "N"
                                                  << "Y" << QList{Ask, LeaveAlone, Replace};
        QTest::newRow("copy, asking, always") << "0"
                                              << "N"
                                              << "N" << QList{Ask, Replace, Replace};
        QTest::newRow("move, asking, always") << "1"
                                              << "N"
                                              << "N" << QList{Ask, Replace, Replace};
        QTest::newRow("mirror, newer only") << "3"
                                            << "Y"
                                            << "Y" << QList{LeaveAlone, LeaveAlone, Replace};
        QTest::newRow("report") << "2"
                                << "Y"
                                << "Y" << QList{ReportOnly, ReportOnly, ReportOnly};
        QTest::newRow("report, asking") << "2"
                                        << "N"
                                        << "Y" << QList{Ask, ReportOnly, ReportOnly};
        QTest::newRow("missing fields") << ""
                                        << ""
                                        << "" << QList{Replace, Replace, Replace};
        QTest::newRow("lower-case flags are no flags") << "0"
                                                       << "n"
                                                       << "y" << QList{Replace, Replace, Replace};
    }
    void decision() {
        QFETCH(QString, action);
        QFETCH(QString, overwrite);
        QFETCH(QString, onlynew);
        QFETCH(QList<FileDecision>, olderEqualNewer);
        const FileRules rules = SyncRules::RulesOf(action, overwrite, onlynew);
        for (int comparison = -1; comparison <= 1; ++comparison)
            QCOMPARE(SyncRules::DecideExisting(rules, comparison), olderEqualNewer[comparison + 1]);
        QCOMPARE(SyncRules::DecideAfterYes(rules),
                 action == QStringLiteral("2") ? FileDecision::ReportOnly : FileDecision::Replace);
    }

    void lines_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("expected");
        const StringTable table(Language::English);
        const SyncTexts texts(table);
        FileSide from{QStringLiteral("S"), {}};
        FileSide to{QStringLiteral("D"), {}};
        from.facts.size = 5;
        from.facts.modified.nanoseconds = 1'000'000'000;
        to.facts.modified.nanoseconds = 61'500'000'000;
        const FileRules silent{FileAction::Copy, false, true};
        const FileRules silentMove{FileAction::Move, false, false};
        const FileRules asking{FileAction::Copy, true, true};
        const FileRules askingMove{FileAction::Move, true, false};
        const QString source = QStringLiteral("S' [01.01.1970 00:00:01]");
        const QString target = QStringLiteral("D' [01.01.1970 00:01:01]");
        QTest::newRow("253") << texts.Replacement(silent, from, to)
                             << u"Copy '" + source + u" to '" + target + u" and overwrite with newer file ...";
        QTest::newRow("252") << texts.Replacement(silentMove, from, to)
                             << u"Move '" + source + u" to '" + target + u" and overwrite with newer file ...";
        QTest::newRow("260") << texts.Replacement(asking, from, to) << u"Overwrite '" + target + u" with '" + source;
        QTest::newRow("262") << texts.Replacement(askingMove, from, to)
                             << u"Move and overwrite with newer file '" + source + u" to '" + target;
        QTest::newRow("258") << texts.New(FileAction::Mirror, from, to.path) << u"Copy file '" + source + u" to 'D'";
        QTest::newRow("257") << texts.New(FileAction::Move, from, to.path) << u"Move file '" + source + u" to 'D'";
        QTest::newRow("264") << texts.NotNewer(from, to) << u"File '" + source + u" older/equal as/to file '" + target;
        QTest::newRow("232") << texts.NoAction(from.path)
                             << QStringLiteral("Change detected - - No action selected! (S) ");
        QTest::newRow("255") << texts.Declined(from.path)
                             << QStringLiteral("Overwrite from file 'S' declined by user.");
        QTest::newRow("247") << texts.DeletingFile(to.path) << QStringLiteral("Deleting file 'D' ...");
        QTest::newRow("243") << texts.DeletingFolder(to.path) << QStringLiteral("Deleting directory 'D");
        QTest::newRow("245") << texts.TransferringFolder(from.path, to.path)
                             << QStringLiteral("Copying directory 'S' to 'D");
        QTest::newRow("266") << texts.Failure(from.path, std::make_error_code(std::errc::device_or_resource_busy))
                             << QStringLiteral("Copy/move from 'S' failed, file is locked from another program!");
        QTest::newRow("267") << texts.Failure(from.path, std::make_error_code(std::errc::no_space_on_device))
                             << QStringLiteral("Copy/move from 'S' failed - Error28");
        QTest::newRow("248") << texts.OverwriteQuestion(from, to).text
                             << QStringLiteral(
                                    "Should the file 'S' [01.01.1970 00:00:01 - 5 bytes] replace the file located in "
                                    "the destination directory 'D' [01.01.1970 00:01:01 - 0 bytes] ?");
    }
    void lines() {
        QFETCH(QString, line);
        QTEST(line, "expected");
    }

    void filter_data() {
        QTest::addColumn<QString>("extensions");
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("passes");
        QTest::newRow("empty list") << ""
                                    << "/a/x.txt" << true;
        QTest::newRow("match") << "exe;zip"
                               << "/a/setup.ZIP" << true;
        QTest::newRow("no dot needed") << "exe"
                                       << "/a/annexe" << true;
        QTest::newRow("no match") << "exe;zip"
                                  << "/a/x.txt" << false;
        QTest::newRow("blank in front compares one more") << " exe"
                                                          << "/a/x.exe" << false;
        QTest::newRow("empty entry passes all") << "txt;"
                                                << "/a/x.doc" << true;
        QTest::newRow("reaches into the folder") << "b/x"
                                                 << "/a/b/x" << true;
        QTest::newRow("sharp s keeps its length") << QStringLiteral("maß") << QStringLiteral("/a/x.maß") << true;
    }
    void filter() {
        QFETCH(QString, extensions);
        QFETCH(QString, path);
        QTEST(FileTypeFilter(extensions).Passes(path), "passes");
    }

    void dates_data() {
        QTest::addColumn<qint64>("a");
        QTest::addColumn<qint64>("b");
        QTest::addColumn<qint64>("granularity");
        QTest::addColumn<int>("result");
        const qint64 s = 1'000'000'000;
        QTest::newRow("same") << 5 * s + 7 << 5 * s + 7 << qint64(1) << 0;
        QTest::newRow("one nanosecond apart") << 5 * s + 7 << 5 * s + 8 << qint64(1) << -1;
        QTest::newRow("microseconds kept") << 5 * s + 1'234'567 << 5 * s + 1'234'000 << qint64(1) << 0;
        QTest::newRow("whole seconds kept") << 5 * s + 999'999'999 << 5 * s << qint64(1) << 0;
        QTest::newRow("a second later") << 6 * s << 5 * s + 999'999'999 << qint64(1) << 1;
        QTest::newRow("FAT rounds down") << 5 * s + 5 << 4 * s << 2 * s << 0;
        QTest::newRow("FAT, older") << 3 * s + 5 << 4 * s << 2 * s << -1;
        QTest::newRow("before 1970") << -s / 2 << -2 * s << qint64(1) << 1;
    }
    void dates() {
        QFETCH(qint64, a);
        QFETCH(qint64, b);
        QFETCH(qint64, granularity);
        QFETCH(int, result);
        QCOMPARE(modDateCompare::Compare({a, 1}, {b, granularity}), result);
        QCOMPARE(modDateCompare::Compare({b, granularity}, {a, 1}), -result);
    }

    void triggerDates_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QDate>("date");
        QTest::newRow("German") << "03.04.2026"
                                << "de_DE" << QDate(2026, 4, 3);
        QTest::newRow("German in America") << "3.4.2026"
                                           << "en_US" << QDate(2026, 4, 3);
        QTest::newRow("ISO") << "2026-04-03"
                             << "de_DE" << QDate(2026, 4, 3);
        QTest::newRow("American") << "04/03/2026"
                                  << "en_US" << QDate(2026, 4, 3);
        QTest::newRow("C") << "4/3/2026"
                           << "C" << QDate(2026, 4, 3);
        QTest::newRow("British") << "03/04/2026"
                                 << "en_GB" << QDate(2026, 4, 3);
        QTest::newRow("two-digit year") << "03.04.26"
                                        << "de_DE" << QDate();
        QTest::newRow("no such day") << "31.02.2026"
                                     << "de_DE" << QDate();
        QTest::newRow("no date") << "tomorrow"
                                 << "de_DE" << QDate();
        QTest::newRow("empty mask") << "  .  .    "
                                    << "de_DE" << QDate();
    }
    void triggerDates() {
        QFETCH(QString, text);
        QFETCH(QString, locale);
        QTEST(modTriggerDate::Read(text, QLocale(locale)), "date");
    }
};

QTEST_GUILESS_MAIN(TestRules)
#include "test_rules.moc"
