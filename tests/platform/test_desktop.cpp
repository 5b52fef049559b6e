// The entries that start the program with the session or by a double click, dial-up lines among the network interfaces,
// and who is asked to set the clock.
#include "DesktopTexts.h"
#include "LinuxAutostart.h"
#include "LinuxDialUp.h"
#include "LinuxFileTypes.h"
#include "LinuxSystemClock.h"
#include "ScratchFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <memory>
#include <net/if.h>

using namespace std::chrono_literals;

namespace {

const QString autostart = u"config/autostart/Kalvenor.desktop"_qs;

/// timedated, as far as it concerns us: writes down what it is asked and answers as it is told.
class FakeTimedated final : public QDBusVirtualObject {
  public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls.append(message);
        return connection.send(refusal.isEmpty() ? message.createReply()
                                                 : message.createErrorReply(u"org.test.Refused"_qs, refusal));
    }
    QList<QDBusMessage> calls;
    QString refusal;
};

/// A bus of the test's own in the place of the system's, for as long as it lives.
struct ScratchBus {
    ScratchBus() {
        bus.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
        bus.waitForReadyRead();
        address = QString::fromUtf8(bus.readLine().trimmed());
        // Never the real one, even when there is none of ours: its clock is not for tests.
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.isEmpty() ? "unix:path=/nowhere" : address.toUtf8());
    }
    ~ScratchBus() {
        QDBusConnection::disconnectFromBus(u"timedated"_qs);
        bus.kill();
        bus.waitForFinished();
    }
    [[nodiscard]] bool Offer(QDBusVirtualObject& timedated) const {
        QDBusConnection service = QDBusConnection::connectToBus(address, u"timedated"_qs);
        return service.registerVirtualObject(u"/org/freedesktop/timedate1"_qs, &timedated) &&
               service.registerService(u"org.freedesktop.timedate1"_qs);
    }
    QProcess bus;
    QString address;
};

/// The system call: fails with the number, or takes the time.
int settimeError = 0;
timespec settimeGiven{};
int settime(clockid_t, const timespec* value) {
    errno = settimeError;
    settimeGiven = *value;
    return settimeError == 0 ? 0 : -1;
}

} // namespace

class TestDesktop final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() {
        m_home = std::make_unique<ScratchFolder>();
        qputenv("XDG_CONFIG_HOME", m_home->Path(u"config"_qs).toUtf8());
        qputenv("XDG_DATA_HOME", m_home->Path(u"data"_qs).toUtf8());
    }
    void cleanupTestCase() { qunsetenv("XDG_CONFIG_HOME"); }

    void quotesThePathOfAProgram() {
        const auto check = [&](const QByteArray& program, const QByteArray& exec) {
            QVERIFY(!LinuxAutostart().Create(u"Kalvenor"_qs, program.toStdString()));
            QCOMPARE(m_home->Read(autostart),
                     "[Desktop Entry]\nType=Application\nName=Kalvenor\nExec=" + exec + "\nTerminal=false\n");
            QCOMPARE(DesktopTexts::ExecProgram(program.toStdString()), exec);
        };
        check("/opt/My Tools/K", "\"/opt/My Tools/K\"");
        check(R"(/a"b/K)", R"("/a\\"b/K")");
        check("/$HOME/`id`/'a'/K", R"("/\\$HOME/\\`id\\`/'a'/K")");
        check(R"(/a\b/K)", R"("/a\\\\b/K")");
        check("/100%f/K", "\"/100%%f/K\""); // no field code
        check("/a\nHidden=true/K", R"("/a\nHidden=true/K")");
        check("/a\xff/K", "\"/a\xff/K\""); // no text
    }

    void startsWithTheSession() {
        LinuxAutostart entries;
        const QString name = u"Kalvenor"_qs;
        QVERIFY(!entries.Exists(name) && !entries.Remove(name));
        QVERIFY(!entries.Create(name, "/old/Kalvenor") && !entries.Create(name, "/new/Kalvenor"));
        QVERIFY(m_home->Read(autostart).contains("/new/") && !m_home->Read(autostart).contains("/old/"));
        QVERIFY(entries.Exists(name) && !entries.Exists(u"Other"_qs));
        QVERIFY(!entries.Remove(name) && !entries.Exists(name));
        QVERIFY(QDir().mkpath(m_home->Path(autostart))); // a folder has the entry's name
        QVERIFY(entries.Create(name, "/a/Kalvenor") && entries.Remove(name) && entries.Exists(name));
    }

    void registersAFileType_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after"); // of mimeapps.list
        const QByteArray type = "application/x-kalvenor-activities=";
        const QByteArray ours = type + "kalvenor-activities.desktop;";
        QTest::newRow("a list of others")
            << QByteArray("# mine\n[Default Applications]\ntext/plain=a.desktop\n\n[Added Associations]\nx/y=z;\n")
            << "# mine\n[Default Applications]\ntext/plain=a.desktop\n" + ours + "\n\n[Added Associations]\nx/y=z;\n";
        QTest::newRow("another default") << "[Default Applications]\n" + type +
                                                " b.desktop;kalvenor-activities.desktop\n"
                                         << "[Default Applications]\n" + ours + "b.desktop;\n";
    }
    void registersAFileType() {
        QFETCH(QByteArray, before);
        const QString list = u"config/mimeapps.list"_qs;
        QVERIFY(m_home->Write(list, before));
        LinuxFileTypes types(m_home->Native(u"data"_qs), m_home->Native(u"config"_qs));
        const FileType type{"/opt/a b/Kalvenor", u".kvd"_qs, m_home->Native(u"kvd.ico"_qs), u"A <list> & more"_qs};
        for (const bool hasIcon : {false, true}) { // the second time nothing else changes
            QVERIFY(!hasIcon || m_home->Write(u"kvd.ico"_qs, {}));
            QVERIFY(!types.Register(type));
            const QByteArray entry = m_home->Read(u"data/applications/kalvenor-activities.desktop"_qs);
            QVERIFY(entry.contains("\nExec=\"/opt/a b/Kalvenor\" %f\n"));
            QVERIFY(entry.contains("\nMimeType=application/x-kalvenor-activities;\n"));
            QCOMPARE(entry.contains(QByteArray("\nIcon=" + m_home->Path(u"kvd.ico"_qs).toUtf8() + '\n')), hasIcon);
            QCOMPARE(entry.contains("Icon="), hasIcon);
            QTEST(m_home->Read(list), "after");
        }
        const QByteArray package = m_home->Read(u"data/mime/packages/kalvenor-activities.xml"_qs);
        QVERIFY(package.contains("<comment>A &lt;list&gt; &amp; more</comment>"));
        QVERIFY(package.contains("<glob pattern=\"*.kvd\"/>"));
    }

    void leavesAListItCannotRead() {
        const QByteArray tooMuch((1 << 20) + 1, '#');
        QVERIFY(m_home->Write(u"config/mimeapps.list"_qs, tooMuch));
        LinuxFileTypes types(m_home->Native(u"data"_qs), m_home->Native(u"config"_qs));
        QVERIFY(types.Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
        QVERIFY(m_home->Read(u"config/mimeapps.list"_qs) == tooMuch);
        QVERIFY(LinuxFileTypes({}, {}).Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
    }

    void findsADialUpLine() {
        constexpr unsigned up = IFF_UP | IFF_RUNNING;
        const InterfaceFacts ethernet{"eth0", up, "", true};
        const InterfaceFacts tunnel{"tun0", up, "", true};
        const InterfaceFacts modem{"ppp0", up, "ppp", true};
        const InterfaceFacts noAddress{"ppp1", up, "ppp", false};
        const InterfaceFacts mobile{"wwan0", up, "wwan", true};
        const InterfaceFacts down{"wwan0", IFF_UP, "wwan", true};
        QVERIFY(IsOneDialUp({ethernet, modem}));
        QVERIFY(IsOneDialUp({mobile, ethernet}));
        QVERIFY(IsOneDialUp({down, modem, noAddress}));
        QVERIFY(!IsOneDialUp({ethernet, tunnel}));
        QVERIFY(!IsOneDialUp({modem, mobile})); // both
        QVERIFY(!IsOneDialUp({down}));
        QVERIFY(!IsOneDialUp({noAddress}));
    }

    void setsTheClockItselfOrAsksTimedated() {
        FakeTimedated timedated;
        const ScratchBus bus;
        QVERIFY(!bus.address.isEmpty());
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        LinuxSystemClock clock(&settime);
        clock.Set(std::chrono::system_clock::time_point(-1500ms), outcome);
        QCOMPARE(outcomes, QStringList(QString()));
        QCOMPARE(settimeGiven.tv_sec, time_t(-2));
        QCOMPARE(settimeGiven.tv_nsec, 500000000L);
        const auto time = std::chrono::system_clock::now() + 1h;
        settimeError = EINVAL;
        clock.Set(time, outcome);
        QCOMPARE(outcomes.takeLast(), u"Invalid argument"_qs);

        settimeError = EPERM;
        outcomes.clear();
        clock.Set(time, outcome);
        QTRY_COMPARE(outcomes.size(), 1);
        QVERIFY2(outcomes.last().startsWith(u"Operation not permitted: "_qs), qPrintable(outcomes.last()));

        QVERIFY(bus.Offer(timedated));
        clock.Set(time, outcome);
        QTRY_COMPARE(outcomes.size(), 2);
        QCOMPARE(outcomes.last(), QString());
        const QVariantList arguments = timedated.calls.first().arguments();
        QCOMPARE(timedated.calls.first().member(), u"SetTime"_qs);
        QCOMPARE(timedated.calls.first().signature(), u"xbb"_qs);
        const std::chrono::microseconds step(arguments.first().toLongLong());
        QVERIFY(step <= 1h && step > 59min);
        QCOMPARE(arguments.mid(1), QVariantList({true, true})); // a step; a password may be asked for

        timedated.refusal = u"Automatic time synchronization is enabled"_qs;
        clock.Set(time, outcome);
        QTRY_COMPARE(outcomes.size(), 3);
        QCOMPARE(outcomes.last(), u"Operation not permitted: "_qs + timedated.refusal);
        {
            LinuxSystemClock gone(&settime);
            gone.Set(time, outcome);
        }
        QTRY_COMPARE(timedated.calls.size(), 3);
        QTest::qWait(50); // the answer must find nobody
        QCOMPARE(outcomes.size(), 3);
    }

  private:
    std::unique_ptr<ScratchFolder> m_home;
};

QTEST_GUILESS_MAIN(TestDesktop)
#include "test_desktop.moc"
