// The stored window position: broken values, units, and no drift over many starts.
#include "Fakes.h"
#include "WindowPosition.h"
#include <QtTest>

using State = WindowPosition::State;
Q_DECLARE_METATYPE(WindowPosition::State)

class TestWindowPosition : public QObject {
    Q_OBJECT

    static QString path(const char* key) { return u"Kalvenor/WindowPos/"_qs + QLatin1String(key); }

    static MemorySettings stored(const QStringList& values) {
        MemorySettings settings;
        const char* keys[] = {"Top", "Left", "Width", "Height", "WindowState"};
        for (qsizetype i = 0; i < values.size(); ++i) {
            if (values.at(i) != u"-")
                settings.values[path(keys[i])] = values.at(i);
        }
        return settings;
    }
    static QStringList values(const MemorySettings& settings) {
        return {settings.values[path("Top")], settings.values[path("Left")], settings.values[path("Width")],
                settings.values[path("Height")], settings.values[path("WindowState")]};
    }

  private Q_SLOTS:
    void load_data() {
        QTest::addColumn<QStringList>("values");
        QTest::addColumn<QRect>("rectangle");
        QTest::addColumn<State>("state");
        const auto row = [](const char* name, const QStringList& given, QRect rectangle, State state) {
            QTest::newRow(name) << given << rectangle << state;
        };
        const QRect standard(13, 13, 625, 464);
        row("nothing stored", {}, standard, State::Normal);
        row("numbers", {u"150"_qs, u"300"_qs, u"6000"_qs, u"4500"_qs, u"2"_qs}, {20, 10, 400, 300}, State::Maximised);
        row("point and comma", {u"157.6"_qs, u"-157,6"_qs, u"6000,0"_qs, u"4.5e3"_qs, u"1"_qs}, {-11, 11, 400, 300},
            State::Minimised);
        row("no numbers", {u"abc"_qs, u""_qs, u"1.2.3"_qs, u"nan"_qs, u"x"_qs}, standard, State::Normal);
        row("infinite", {u"inf"_qs, u"-inf"_qs, u"inf"_qs, u"inf"_qs, u"3"_qs}, standard, State::Normal);
        row("no size", {u"-"_qs, u"-"_qs, u"0"_qs, u"-4500"_qs, u"-1"_qs}, standard, State::Normal);
        row("beyond every screen", {u"1e300"_qs, u"-1e300"_qs, u"1e300"_qs, u"1"_qs, u"0"_qs},
            {-32767, 32767, 32767, 1}, State::Normal);
    }
    void load() {
        QFETCH(QStringList, values);
        const MemorySettings settings = stored(values);
        WindowPosition position;
        position.Load(settings);
        QTEST(position.Rectangle(), "rectangle");
        QTEST(position.WindowState(), "state");
    }

    void unmovedWindowIsStoredAsItWasLoaded() {
        const QStringList before = {u"200"_qs, u"207,5"_qs, u"9375"_qs, u"6961"_qs, u"0"_qs};
        MemorySettings settings = stored(before);
        for (int start = 0; start < 5; ++start) {
            WindowPosition position;
            position.Load(settings);
            position.SetRestored(position.Rectangle());
            QVERIFY(!position.Save(settings, position.Rectangle(), State::Normal));
        }
        QCOMPARE(values(settings), before);
    }

    void onlyWhatChangedIsConverted() {
        MemorySettings settings = stored({u"200"_qs, u"200"_qs, u"9375"_qs, u"6961"_qs, u"0"_qs});
        WindowPosition position;
        position.Load(settings);
        const QRect restored(13, 30, 625, 464); // the window manager put it lower than asked
        position.SetRestored(restored);
        QVERIFY(!position.Save(settings, restored.translated(-20, 0), State::Minimised));
        QCOMPARE(values(settings), QStringList({u"200"_qs, u"-105"_qs, u"9375"_qs, u"6961"_qs, u"1"_qs}));
    }

    void aBrokenEntryIsStoredAsItsDefault() {
        MemorySettings settings = stored({u"x"_qs, u"200"_qs, u"0"_qs, u"6960"_qs, u"9"_qs});
        WindowPosition position;
        position.Load(settings);
        QVERIFY(!position.Save(settings, position.Rectangle(), State::Maximised));
        QCOMPARE(values(settings), QStringList({u"200"_qs, u"200"_qs, u"9375"_qs, u"6960"_qs, u"2"_qs}));
    }

    void reachable_data() {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("placed");
        QTest::newRow("inside") << QRect(13, 13, 625, 464) << QRect(13, 13, 625, 464);
        QTest::newRow("partly outside") << QRect(-500, 700, 625, 464) << QRect(-500, 700, 625, 464);
        QTest::newRow("on the second screen") << QRect(1300, 100, 625, 464) << QRect(1300, 100, 625, 464);
        QTest::newRow("screen gone") << QRect(5000, 100, 625, 464) << QRect(0, 20, 625, 464);
        QTest::newRow("title bar above") << QRect(100, -300, 625, 464) << QRect(0, 20, 625, 464);
        QTest::newRow("too large and gone") << QRect(5000, 100, 9000, 9000) << QRect(0, 20, 1024, 748);
    }
    void reachable() {
        QFETCH(QRect, window);
        const QList<QRect> screens = {QRect(0, 20, 1024, 748), QRect(1024, 0, 1024, 768)};
        QTEST(WindowPosition::Reachable(window, screens), "placed");
    }
};

QTEST_GUILESS_MAIN(TestWindowPosition)
#include "test_windowposition.moc"
