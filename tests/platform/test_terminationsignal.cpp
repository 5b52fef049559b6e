// Signals arrive in the event loop; what was ignored from outside stays ignored.
#include "TerminationSignal.h"

#include <QSignalSpy>
#include <QTest>
#include <csignal>

class TerminationSignalTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void ArrivesInTheEventLoop() {
        TerminationSignal termination;
        QSignalSpy raised(&termination, &TerminationSignal::Raised);
        int expected = 0;
        for (const int number : {SIGTERM, SIGINT, SIGHUP}) { // a stopped service, Ctrl+C, a closed terminal
            std::raise(number);
            std::raise(number);
            QCOMPARE(raised.count(), expected);
            ++expected;
            QTRY_COMPARE(raised.count(), expected);
        }
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
};

QTEST_GUILESS_MAIN(TerminationSignalTest)
#include "test_terminationsignal.moc"
