#include "EngineError.h"
#include "Fakes.h"
#include "TimerEx.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;

class TestTimerEx final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void firesAfterItsPeriod_data() {
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("unit");
        QTest::addColumn<int>("secondsPolled");
        QTest::addColumn<int>("firings");
        QTest::newRow("every second") << 1 << 0 << 60 << 60;
        QTest::newRow("five minutes, just before") << 5 << 1 << 299 << 0;
        QTest::newRow("five minutes") << 5 << 1 << 300 << 1;
        QTest::newRow("two hours") << 2 << 2 << 3 * 7200 << 3;
        QTest::newRow("a day") << 1 << 3 << 86400 << 1;
        QTest::newRow("stopped") << 0 << 0 << 100 << 0;
    }
    void firesAfterItsPeriod() {
        QFETCH(int, interval);
        QFETCH(int, unit);
        QFETCH(int, secondsPolled);
        FakeClock clock;
        TimerEx timer(clock);
        timer.SetIntervalUnit(unit);
        timer.SetInterval(interval);
        timer.SetEnabled(true);
        QSignalSpy fired(&timer, &TimerEx::Timer);
        for (int second = 0; second < secondsPolled; ++second) {
            clock.Advance(1s);
            timer.Poll();
        }
        QTEST(int(fired.size()), "firings");
    }
    void countsWholeSecondsNotElapsedTime() {
        FakeClock clock;
        clock.Advance(900ms);
        TimerEx timer(clock);
        timer.SetInterval(1);
        timer.SetEnabled(true);
        QSignalSpy fired(&timer, &TimerEx::Timer);
        clock.Advance(100ms);
        timer.Poll();
        QCOMPARE(fired.size(), 1);
    }
    void refusesWrongValuesAndKeepsTheOld() {
        FakeClock clock;
        TimerEx timer(clock);
        timer.SetInterval(7);
        timer.SetIntervalUnit(2);
        for (const auto& wrong : {std::function<void()>([&] { timer.SetInterval(-1); }),
                                  std::function<void()>([&] { timer.SetIntervalUnit(4); }),
                                  std::function<void()>([&] { timer.SetIntervalUnit(-1); })}) {
            try {
                wrong();
                QFAIL("taken");
            } catch (const EngineError& error) {
                QCOMPARE(error.Number(), 380);
            }
        }
        QCOMPARE(timer.Interval(), 7);
        QCOMPARE(timer.IntervalUnit(), 2);
        timer.SetIntervalUnit(3);
        timer.SetInterval(24856);
        timer.SetEnabled(true);
        QVERIFY_THROWS_EXCEPTION(EngineError, timer.Poll());
    }
    void changesRestartThePeriodAndAClockSetBackFires() {
        FakeClock clock;
        TimerEx timer(clock);
        timer.SetInterval(10);
        timer.SetEnabled(true);
        QSignalSpy fired(&timer, &TimerEx::Timer);
        clock.Advance(9s);
        timer.SetInterval(10);
        clock.Advance(9s);
        timer.Poll();
        QCOMPARE(fired.size(), 0);
        clock.Advance(-30s);
        timer.Poll();
        QCOMPARE(fired.size(), 1);
    }
    void neverEntersItsOwnHandler() {
        FakeClock clock;
        TimerEx timer(clock);
        timer.SetInterval(1);
        timer.SetEnabled(true);
        int depth = 0;
        int deepest = 0;
        int calls = 0;
        connect(&timer, &TimerEx::Timer, this, [&] {
            deepest = std::max(deepest, ++depth);
            ++calls;
            clock.Advance(5s);
            timer.Poll();
            --depth;
        });
        clock.Advance(1s);
        timer.Poll();
        timer.Poll();
        QCOMPARE(deepest, 1);
        QCOMPARE(calls, 1); // the time the handler took does not count
    }
};

QTEST_GUILESS_MAIN(TestTimerEx)
#include "test_timerex.moc"
