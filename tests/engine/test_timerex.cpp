#include "Fakes.h"
#include "TimerEx.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;

namespace {

/// A running timer on a clock of its own, and what it fired.
struct Scene {
    explicit Scene(int interval = 1, int unit = 0) {
        timer.SetIntervalUnit(unit);
        timer.SetInterval(interval);
        timer.SetEnabled(true);
    }
    void Pass(std::chrono::milliseconds span) {
        clock.Advance(span);
        timer.Poll();
    }
    FakeClock clock;
    TimerEx timer{clock};
    QSignalSpy fired{&timer, &TimerEx::Timer};
};

} // namespace

class TestTimerEx final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void firesAfterItsPeriod() {
        const auto firings = [](int interval, int unit, int seconds) {
            Scene scene(interval, unit);
            for (int second = 0; second < seconds; ++second)
                scene.Pass(1s);
            return scene.fired.size();
        };
        QCOMPARE(firings(1, 0, 60), 60);
        QCOMPARE(firings(5, 1, 299), 0);
        QCOMPARE(firings(5, 1, 300), 1);
        QCOMPARE(firings(2, 2, 3 * 7200), 3);
        QCOMPARE(firings(1, 3, 86400), 1); // a day
        QCOMPARE(firings(0, 0, 100), 0);   // stopped
    }

    void countsWholeSecondsNotElapsedTime() {
        Scene scene;
        scene.clock.Advance(900ms);
        scene.timer.SetInterval(1);
        scene.Pass(100ms);
        QCOMPARE(scene.fired.size(), 1);
    }

    void refusesWrongValuesAndKeepsTheOld() {
        Scene scene(7, 2);
        QVERIFY_THROWS_EXCEPTION(EngineError, scene.timer.SetInterval(-1));
        QVERIFY_THROWS_EXCEPTION(EngineError, scene.timer.SetIntervalUnit(4));
        QVERIFY_THROWS_EXCEPTION(EngineError, scene.timer.SetIntervalUnit(-1));
        QCOMPARE(scene.timer.Interval(), 7);
        QCOMPARE(scene.timer.IntervalUnit(), 2);
        scene.timer.SetIntervalUnit(3);
        scene.timer.SetInterval(24856); // days: more seconds than can be counted
        QVERIFY_THROWS_EXCEPTION(EngineError, scene.timer.Poll());
    }

    void changesRestartThePeriodAndAClockSetBackFires() {
        Scene scene(10);
        scene.clock.Advance(9s);
        scene.timer.SetInterval(10);
        scene.Pass(9s);
        QCOMPARE(scene.fired.size(), 0);
        scene.Pass(-30s);
        QCOMPARE(scene.fired.size(), 1);
    }

    void neverEntersItsOwnHandler() {
        Scene scene;
        int depth = 0;
        int deepest = 0;
        connect(&scene.timer, &TimerEx::Timer, this, [&] {
            deepest = std::max(deepest, ++depth);
            scene.Pass(5s);
            --depth;
        });
        scene.Pass(1s);
        scene.timer.Poll();
        QCOMPARE(deepest, 1);
        QCOMPARE(scene.fired.size(), 1); // the time the handler took does not count
    }
};

QTEST_GUILESS_MAIN(TestTimerEx)
#include "test_timerex.moc"
