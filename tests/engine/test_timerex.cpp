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
        for (const auto& [interval, unit, seconds, firings] : {std::tuple(1, 0, 60, 60),
                                                               {5, 1, 299, 0},
                                                               {5, 1, 300, 1},
                                                               {2, 2, 3 * 7200, 3},
                                                               {1, 3, 86400, 1},
                                                               {0, 0, 100, 0}}) { // the last is stopped
            Scene scene(interval, unit);
            for (int second = 0; second < seconds; ++second)
                scene.Pass(1s);
            QCOMPARE(scene.fired.size(), firings);
        }
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
        Scene whole; // whole seconds count, not elapsed time
        whole.clock.Advance(900ms);
        whole.timer.SetInterval(1);
        whole.Pass(100ms);
        QCOMPARE(whole.fired.size(), 1);
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
