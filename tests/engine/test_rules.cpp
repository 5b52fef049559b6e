// What is decided without a file at hand: by the dates, the file types and the day.
#include "FileTypeFilter.h"
#include "modDateCompare.h"
#include "modTriggerDate.h"

#include <QLocale>
#include <QTest>

class TestRules final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
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

    void dates() {
        constexpr qint64 s = 1'000'000'000;
        const auto compare = [](qint64 a, qint64 b, qint64 granularity = 1) {
            const int result = modDateCompare::Compare({a, 1}, {b, granularity});
            return modDateCompare::Compare({b, granularity}, {a, 1}) == -result ? result : 2;
        };
        QCOMPARE(compare(5 * s + 7, 5 * s + 7), 0);
        QCOMPARE(compare(5 * s + 7, 5 * s + 8), -1);
        QCOMPARE(compare(5 * s + 1'234'567, 5 * s + 1'234'000), 0); // only microseconds were kept
        QCOMPARE(compare(5 * s + 999'999'999, 5 * s), 0);           // whole seconds
        QCOMPARE(compare(6 * s, 5 * s + 999'999'999), 1);
        QCOMPARE(compare(5 * s + 5, 4 * s, 2 * s), 0); // FAT rounds down
        QCOMPARE(compare(3 * s + 5, 4 * s, 2 * s), -1);
        QCOMPARE(compare(-s / 2, -2 * s), 1); // before 1970
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
