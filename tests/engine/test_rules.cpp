// What is decided without a file at hand: by the record's fields, the dates, the file types and the day.
#include "FileTypeFilter.h"
#include "SyncRules.h"
#include "modDateCompare.h"
#include "modTriggerDate.h"

#include <QLocale>
#include <QTest>

class TestRules final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void decision_data() {
        using enum FileDecision;
        QTest::addColumn<QStringList>("fields"); // action, overwrite, onlynew
        QTest::addColumn<QList<FileDecision>>("olderEqualNewer");
        const auto row = [](const char* name, const char* fields, const QList<FileDecision>& decisions) {
            QTest::newRow(name) << QString::fromLatin1(fields).split(u'/') << decisions;
        };
        row("copy, silently, newer only", "0/Y/Y", {LeaveAlone, LeaveAlone, Replace});
        row("copy, silently, always", "0/Y/N", {Replace, Replace, Replace});
        row("copy, asking, newer only", "0/N/Y", {Ask, LeaveAlone, Replace});
        row("copy, asking, always", "0/N/N", {Ask, Replace, Replace});
        row("move, asking, always", "1/N/N", {Ask, Replace, Replace});
        row("mirror, newer only", "3/Y/Y", {LeaveAlone, LeaveAlone, Replace});
        row("report", "2/Y/Y", {ReportOnly, ReportOnly, ReportOnly});
        row("report, asking", "2/N/Y", {Ask, ReportOnly, ReportOnly});
        row("missing fields", "//", {Replace, Replace, Replace});
        row("lower-case flags are no flags", "0/n/y", {Replace, Replace, Replace});
    }
    void decision() {
        QFETCH(QStringList, fields);
        QFETCH(QList<FileDecision>, olderEqualNewer);
        const FileRules rules = SyncRules::RulesOf(fields[0], fields[1], fields[2]);
        for (int comparison = -1; comparison <= 1; ++comparison)
            QCOMPARE(SyncRules::DecideExisting(rules, comparison), olderEqualNewer[comparison + 1]);
    }

    void filter() {
        const auto passes = [](const QString& extensions, const QString& path) {
            return FileTypeFilter(extensions).Passes(path);
        };
        QVERIFY(passes({}, u"/a/x.txt"_qs));
        QVERIFY(passes(u"exe;zip"_qs, u"/a/setup.ZIP"_qs));
        QVERIFY(passes(u"exe"_qs, u"/a/annexe"_qs)); // no dot needed
        QVERIFY(!passes(u"exe;zip"_qs, u"/a/x.txt"_qs));
        QVERIFY(!passes(u" exe"_qs, u"/a/x.exe"_qs)); // a blank in front compares one more
        QVERIFY(passes(u"txt;"_qs, u"/a/x.doc"_qs));  // an empty entry passes all
        QVERIFY(passes(u"b/x"_qs, u"/a/b/x"_qs));     // reaches into the folder
        QVERIFY(passes(u"ma\u00DF"_qs, u"/a/x.ma\u00DF"_qs));
    }

    void dates_data() {
        QTest::addColumn<qint64>("a");
        QTest::addColumn<qint64>("b");
        QTest::addColumn<qint64>("granularity"); // of b
        QTest::addColumn<int>("result");
        const qint64 s = 1'000'000'000;
        const auto row = [](const char* name, qint64 a, qint64 b, qint64 granularity, int result) {
            QTest::newRow(name) << a << b << granularity << result;
        };
        row("same", 5 * s + 7, 5 * s + 7, 1, 0);
        row("one nanosecond apart", 5 * s + 7, 5 * s + 8, 1, -1);
        row("microseconds kept", 5 * s + 1'234'567, 5 * s + 1'234'000, 1, 0);
        row("whole seconds kept", 5 * s + 999'999'999, 5 * s, 1, 0);
        row("a second later", 6 * s, 5 * s + 999'999'999, 1, 1);
        row("FAT rounds down", 5 * s + 5, 4 * s, 2 * s, 0);
        row("FAT, older", 3 * s + 5, 4 * s, 2 * s, -1);
        row("before 1970", -s / 2, -2 * s, 1, 1);
    }
    void dates() {
        QFETCH(qint64, a);
        QFETCH(qint64, b);
        QFETCH(qint64, granularity);
        QFETCH(int, result);
        QCOMPARE(modDateCompare::Compare({a, 1}, {b, granularity}), result);
        QCOMPARE(modDateCompare::Compare({b, granularity}, {a, 1}), -result);
    }

    void triggerDates() {
        const auto read = [](const char* text, const char* locale) {
            return modTriggerDate::Read(QString::fromLatin1(text), QLocale(QString::fromLatin1(locale)));
        };
        const QDate day(2026, 4, 3);
        QCOMPARE(read("03.04.2026", "de_DE"), day);
        QCOMPARE(read("3.4.2026", "en_US"), day);
        QCOMPARE(read("2026-04-03", "de_DE"), day);
        QCOMPARE(read("04/03/2026", "en_US"), day);
        QCOMPARE(read("4/3/2026", "C"), day);
        QCOMPARE(read("03/04/2026", "en_GB"), day);
        for (const char* none : {"03.04.26", "31.02.2026", "tomorrow", "  .  .    "})
            QVERIFY2(!read(none, "de_DE").isValid(), none);
    }
};

QTEST_GUILESS_MAIN(TestRules)
#include "test_rules.moc"
