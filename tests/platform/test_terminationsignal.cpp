// Signals arrive in the event loop; what was ignored from outside stays ignored; the old handlers come back.
#include "TerminationSignal.h"

#include <QSignalSpy>
#include <QTest>
#include <csignal>

class TerminationSignalTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() {
        for (const int number : {SIGTERM, SIGINT, SIGHUP})
            std::signal(number, SIG_DFL);
    }

    void ArrivesInTheEventLoop_data() {
        QTest::addColumn<int>("number");
        QTest::newRow("service stop") << SIGTERM;
        QTest::newRow("Ctrl+C") << SIGINT;
        QTest::newRow("terminal closed") << SIGHUP;
    }
    void ArrivesInTheEventLoop() {
        QFETCH(int, number);
        TerminationSignal termination;
        QSignalSpy raised(&termination, &TerminationSignal::Raised);
        std::raise(number);
        std::raise(number);
        QCOMPARE(raised.count(), 0);
        QTRY_COMPARE(raised.count(), 1);
        std::raise(number);
        QTRY_COMPARE(raised.count(), 2);
    }

    void IgnoredStaysIgnored() {
        std::signal(SIGHUP, SIG_IGN);
        TerminationSignal termination;
        QSignalSpy raised(&termination, &TerminationSignal::Raised);
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        QTRY_COMPARE(raised.count(), 1);
        struct sigaction now {};
        QCOMPARE(sigaction(SIGHUP, nullptr, &now), 0);
        QVERIFY(now.sa_handler == SIG_IGN);
    }

    void HandlersComeBack() {
        std::signal(SIGTERM, SIG_IGN);
        std::signal(SIGINT, SIG_DFL);
        { TerminationSignal termination; }
        struct sigaction now {};
        QCOMPARE(sigaction(SIGINT, nullptr, &now), 0);
        QVERIFY(now.sa_handler == SIG_DFL);
        TerminationSignal again;
        QSignalSpy raised(&again, &TerminationSignal::Raised);
        std::raise(SIGINT);
        QTRY_COMPARE(raised.count(), 1);
    }
};

QTEST_GUILESS_MAIN(TerminationSignalTest)
#include "test_terminationsignal.moc"
