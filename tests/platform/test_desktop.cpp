// The files that register a file type, dial-up lines among the network interfaces, and who is asked to set the clock.
#include "DesktopTexts.h"
#include "LinuxDialUp.h"
#include "LinuxFileTypes.h"
#include "LinuxSystemClock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>
#include <net/if.h>
#include <net/if_arp.h>

using namespace std::chrono_literals;

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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

int settimeRefused(clockid_t, const timespec*) {
    errno = EPERM;
    return -1;
}

int settimeInvalid(clockid_t, const timespec*) {
    errno = EINVAL;
    return -1;
}

std::optional<timespec> settimeGiven;
int settimeTakes(clockid_t, const timespec* value) {
    settimeGiven = *value;
    return 0;
}

} // namespace

class TestDesktop final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void quotesThePathOfAProgram_data() {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("exec");
        QTest::newRow("blanks") << QByteArray("/opt/a b/K") << QByteArray(R"("/opt/a b/K")");
        QTest::newRow("quote") << QByteArray(R"(/opt/"/K)") << QByteArray(R"("/opt/\\"/K")");
        QTest::newRow("dollar") << QByteArray("/opt/$a`/K") << QByteArray(R"("/opt/\\$a\\`/K")");
        QTest::newRow("backslash") << QByteArray(R"(/opt/\/K)") << QByteArray(R"("/opt/\\\\/K")");
        QTest::newRow("percent") << QByteArray("/opt/%f/K") << QByteArray(R"("/opt/%%f/K")");
        QTest::newRow("line break") << QByteArray("/opt/\n/K") << QByteArray(R"("/opt/\n/K")");
    }
    void quotesThePathOfAProgram() {
        QFETCH(QByteArray, path);
        QTEST(DesktopTexts::ExecProgram(path.toStdString()), "exec");
    }

    void registersAFileType_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after"); // of mimeapps.list
        const QByteArray ours = "application/x-kalvenor-activities=kalvenor-activities.desktop;";
        QTest::newRow("no list") << QByteArray() << "[Default Applications]\n" + ours + '\n';
        QTest::newRow("a list of others")
            << QByteArray("# mine\n[Default Applications]\ntext/plain=a.desktop\n\n[Added Associations]\nx/y=z;\n")
            << "# mine\n[Default Applications]\ntext/plain=a.desktop\n" + ours + "\n\n[Added Associations]\nx/y=z;\n";
        QTest::newRow("another default") << "[Default Applications]\n" + ours.left(ours.indexOf('=') + 1) +
                                                " b.desktop;kalvenor-activities.desktop\n"
                                         << "[Default Applications]\n" + ours + "b.desktop;\n";
    }
    void registersAFileType() {
        QFETCH(QByteArray, before);
        const QTemporaryDir folder;
        const QDir home(folder.path());
        const QString list = home.filePath(u"config/mimeapps.list"_qs);
        if (!before.isEmpty()) {
            QVERIFY(home.mkpath(u"config"_qs));
            QFile file(list);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(before) == before.size());
        }
        const QString icon = home.filePath(u"kvd.ico"_qs);
        LinuxFileTypes types(home.filePath(u"data"_qs).toStdString(), home.filePath(u"config"_qs).toStdString());
        FileType type{"/opt/a b/Kalvenor", u".kvd"_qs, icon.toStdString(), u"A <list> & more"_qs};
        qputenv("XDG_DATA_HOME", home.filePath(u"data"_qs).toUtf8()); // for the tools
        QVERIFY(!types.Register(type));
        const QString entry = home.filePath(u"data/applications/kalvenor-activities.desktop"_qs);
        QVERIFY(contentOf(entry).contains("\nExec=\"/opt/a b/Kalvenor\" %f\n"));
        QVERIFY(contentOf(entry).contains("\nMimeType=application/x-kalvenor-activities;\n"));
        QVERIFY(!contentOf(entry).contains("Icon="));
        QTEST(contentOf(list), "after");

        QXmlStreamReader xml(contentOf(home.filePath(u"data/mime/packages/kalvenor-activities.xml"_qs)));
        QStringList found;
        while (!xml.atEnd()) {
            xml.readNext();
            if (xml.isStartElement() && xml.name() == u"glob")
                found.append(xml.attributes().value(u"pattern"_qs).toString());
            else if (xml.isStartElement() && xml.name() == u"comment")
                found.append(xml.readElementText());
        }
        QVERIFY(!xml.hasError());
        QCOMPARE(found, QStringList({type.description, u"*.kvd"_qs}));

        QVERIFY(QFile(icon).open(QIODevice::WriteOnly));
        QVERIFY(!types.Register(type)); // again
        QVERIFY(contentOf(entry).contains(QByteArray("\nIcon=" + icon.toUtf8() + '\n')));
        QTEST(contentOf(list), "after");
    }

    void leavesAListItCannotRead() {
        const QTemporaryDir folder;
        const QDir home(folder.path());
        QVERIFY(home.mkpath(u"config/mimeapps.list"_qs)); // a folder, where the list should be
        LinuxFileTypes types(home.filePath(u"data"_qs).toStdString(), home.filePath(u"config"_qs).toStdString());
        QVERIFY(types.Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
        QVERIFY(LinuxFileTypes({}, {}).Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
    }

    void findsADialUpLine_data() {
        QTest::addColumn<QList<InterfaceFacts>>("interfaces");
        QTest::addColumn<bool>("active");
        constexpr unsigned up = IFF_UP | IFF_RUNNING;
        const InterfaceFacts ethernet{"eth0", up, ARPHRD_ETHER, "", true};
        const InterfaceFacts tunnel{"tun0", up | IFF_POINTOPOINT, ARPHRD_NONE, "", true};
        const InterfaceFacts modem{"ppp0", up | IFF_POINTOPOINT, ARPHRD_PPP, "ppp", true};
        const InterfaceFacts noAddress{"ppp1", up | IFF_POINTOPOINT, ARPHRD_PPP, "ppp", false};
        const InterfaceFacts mobile{"wwan0", up, ARPHRD_ETHER, "wwan", true};
        const InterfaceFacts down{"wwan0", IFF_POINTOPOINT, ARPHRD_NONE, "wwan", true};
        QTest::newRow("none at all") << QList<InterfaceFacts>() << false;
        QTest::newRow("other lines") << QList<InterfaceFacts>{ethernet, tunnel} << false;
        QTest::newRow("a modem") << QList<InterfaceFacts>{ethernet, modem} << true;
        QTest::newRow("mobile") << QList<InterfaceFacts>{mobile, ethernet} << true;
        QTest::newRow("one of two is down") << QList<InterfaceFacts>{down, modem, noAddress} << true;
        QTest::newRow("both up") << QList<InterfaceFacts>{modem, mobile} << false;
        QTest::newRow("down") << QList<InterfaceFacts>{down} << false;
        QTest::newRow("not connected yet") << QList<InterfaceFacts>{noAddress} << false;
    }
    void findsADialUpLine() {
        QFETCH(QList<InterfaceFacts>, interfaces);
        QTEST(IsOneDialUp({interfaces.begin(), interfaces.end()}), "active");
    }

    void setsTheClockItselfWhereItMay() {
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        const std::chrono::system_clock::time_point time(-1500ms);
        LinuxSystemClock(&settimeTakes).Set(time, outcome);
        QCOMPARE(outcomes, QStringList(QString()));
        QCOMPARE(settimeGiven->tv_sec, time_t(-2));
        QCOMPARE(settimeGiven->tv_nsec, 500000000L);
        LinuxSystemClock(&settimeInvalid).Set(time, outcome);
        QCOMPARE(outcomes.last(), u"Invalid argument"_qs);
    }

    void asksTimedatedWhereItMayNot() {
        FakeTimedated timedated;
        const ScratchBus bus;
        QVERIFY(!bus.address.isEmpty());
        LinuxSystemClock clock(&settimeRefused);
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        const auto time = std::chrono::system_clock::now() + 1h;

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
            LinuxSystemClock gone(&settimeRefused);
            gone.Set(time, outcome);
        }
        QTRY_COMPARE(timedated.calls.size(), 3);
        QTest::qWait(50); // the answer must find nobody
        QCOMPARE(outcomes.size(), 3);
    }
};

QTEST_GUILESS_MAIN(TestDesktop)
#include "test_desktop.moc"
