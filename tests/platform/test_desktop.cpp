// What the desktop and the machine are asked and told: session start, file type, dial-up lines, name servers, the
// clock.
#include "LinuxServices.h"
#include "ScratchFolder.h"
#include "TerminationSignal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <csignal>
#include <memory>
#include <net/if.h>

using namespace std::chrono_literals;

namespace {

const QString autostart = u"config/autostart/Kalvenor.desktop"_qs;

/// A bus of the test's own. The library reads the addresses once, so both buses are this one, all the time.
class OwnBus final {
  public:
    OwnBus() {
        m_bus.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
        m_bus.waitForReadyRead();
        // Never the real ones, even when there is none of ours: their clock is not for tests.
        const QByteArray line = m_bus.readLine().trimmed();
        address = line.isEmpty() ? "unix:path=/nowhere" : line;
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    }
    ~OwnBus() {
        m_bus.kill();
        m_bus.waitForFinished();
    }
    QByteArray address;

  private:
    QProcess m_bus;
};

/// A service on it: writes down what it is asked and answers as it is told.
class FakeService final : public QDBusVirtualObject {
  public:
    FakeService(const OwnBus& bus, const QString& name, const QString& path) : m_name(name) {
        QDBusConnection service = QDBusConnection::connectToBus(QString::fromUtf8(bus.address), m_name);
        isOffered = service.registerVirtualObject(path, this) && service.registerService(m_name);
    }
    ~FakeService() override { QDBusConnection::disconnectFromBus(m_name); }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls.append(message);
        if (isMute)
            return true;
        return connection.send(refusal.isEmpty() ? message.createReply(reply)
                                                 : message.createErrorReply(u"org.test.Refused"_qs, refusal));
    }
    bool isOffered = false;
    bool isMute = false; ///< never answers
    QList<QDBusMessage> calls;
    QVariantList reply;
    QString refusal;

  private:
    QString m_name;
};

/// gnome-keyring with a keyring of the test's own, opened by a password unless it is to stay locked.
class Keyring final {
  public:
    Keyring(const ScratchFolder& home, bool isLocked) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString& variable : {u"HOME"_qs, u"XDG_DATA_HOME"_qs, u"XDG_RUNTIME_DIR"_qs})
            environment.insert(variable, home.Path());
        m_daemon.setProcessEnvironment(environment);
        m_daemon.setProgram(u"gnome-keyring-daemon"_qs);
        QStringList words{u"--foreground"_qs, u"--components=secrets"_qs,
                          u"--control-directory="_qs + home.Path(u"control"_qs)};
        if (!isLocked)
            words.append(u"--unlock"_qs);
        m_daemon.setArguments(words);
        m_daemon.start();
        m_daemon.write("password");
        m_daemon.closeWriteChannel();
        isRunning = m_daemon.waitForReadyRead(); // it says where its socket is when all is up
    }
    ~Keyring() {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    bool isRunning = false;

  private:
    QProcess m_daemon;
};

/// The system call: fails with the number, or takes the time.
int settimeError = 0;
int settime(clockid_t, const timespec* value) {
    errno = settimeError;
    // Before 1970 the whole second is the one before.
    const bool isExpected = settimeError != 0 || (value->tv_sec == -2 && value->tv_nsec == 500'000'000);
    return settimeError == 0 && isExpected ? 0 : -1;
}

} // namespace

class TestDesktop final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() {
        m_home = std::make_unique<ScratchFolder>();
        m_autostart = MakeAutostart(m_home->Native(u"config"_qs));
        m_types = MakeFileTypes(m_home->Native(u"data"_qs), m_home->Native(u"config"_qs),
                                {"/nowhere/share", m_home->Native(u"system"_qs)});
    }

    void startsWithTheSession() {
        Autostart& entries = *m_autostart;
        const QString name = u"Kalvenor"_qs;
        QVERIFY(!entries.Exists(name) && !entries.Remove(name));
        QVERIFY(!entries.Create(name, "/old/Kalvenor") && !entries.Create(name, R"(/My "$HOME"/100%f/\/K)"));
        QCOMPARE(m_home->Read(autostart), QByteArray("[Desktop Entry]\nType=Application\nName=Kalvenor\n"
                                                     R"(Exec=/usr/bin/env "/My \\"\\$HOME\\"/100%%f/\\\\/K")"
                                                     "\n"
                                                     R"(TryExec=/My "$HOME"/100%f/\\/K)"
                                                     "\nTerminal=false\n"));
        QVERIFY(!entries.Create(name, "/a\nHidden=true/K"));
        QVERIFY(m_home->Read(autostart).contains("\nExec=\"/a\\nHidden=true/K\"\n"));
        QVERIFY(entries.Exists(name) && !entries.Exists(u"Other"_qs));
        QVERIFY(!entries.Remove(name) && !entries.Exists(name));
        QVERIFY(QDir().mkpath(m_home->Path(autostart))); // a folder has the entry's name
        QVERIFY(entries.Create(name, "/a/Kalvenor") && entries.Remove(name) && entries.Exists(name));
    }

    void registersAFileType() {
        const QString list = u"config/mimeapps.list"_qs;
        const QByteArray defaults = "# mine\n[Default Applications]\napplication/x-kalvenor-activities=";
        const QByteArray others = "b.desktop;\ntext/plain=a.desktop\n\n[Added Associations]\nx/y=z;\n";
        QVERIFY(m_home->Write(list, defaults + others) && m_home->Write(u"kvd.svg"_qs, "<svg/>"));
        for (int time = 0; time < 2; ++time) { // the second time nothing changes
            QVERIFY(!m_types->Register(
                {"/opt/a b/Kalvenor", u".kvd"_qs, m_home->Native(u"kvd.ico"_qs), u"A <list> & more"_qs}));
            const QByteArray entry = m_home->Read(u"data/applications/kalvenor-activities.desktop"_qs);
            QVERIFY(entry.contains("\nExec=\"/opt/a b/Kalvenor\" %f\n"));
            QVERIFY(entry.contains("\nMimeType=application/x-kalvenor-activities;\n"));
            QCOMPARE(m_home->Read(list), defaults + "kalvenor-activities.desktop;" + others);
        }
        const QByteArray package = m_home->Read(u"data/mime/packages/kalvenor-activities.xml"_qs);
        QVERIFY(package.contains("<comment>A &lt;list&gt; &amp; more</comment>"));
        QVERIFY(package.contains("<glob pattern=\"*.kvd\"/>"));
        const QString icon = u"data/icons/hicolor/scalable/mimetypes/application-x-kalvenor-activities.svg"_qs;
        QCOMPARE(m_home->Read(icon), QByteArray("<svg/>"));
    }

    void leavesAFileTypeToThePackageThatBroughtIt() {
        QVERIFY(m_home->Write(u"system/mime/packages/kalvenor-activities.xml"_qs, "<mime-info/>"));
        QVERIFY(!m_types->Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
        QVERIFY(!QFile::exists(m_home->Path(u"data"_qs)) && !QFile::exists(m_home->Path(u"config"_qs)));
    }

    void leavesAListItCannotRead() {
        const QByteArray tooMuch((1 << 20) + 1, '#');
        QVERIFY(m_home->Write(u"config/mimeapps.list"_qs, tooMuch));
        QVERIFY(m_types->Register({"/opt/Kalvenor", u".kvd"_qs, {}, u"A list"_qs}));
        QVERIFY(m_home->Read(u"config/mimeapps.list"_qs) == tooMuch);
    }

    void findsADialUpLine() {
        constexpr unsigned up = IFF_UP | IFF_RUNNING;
        const InterfaceFacts ethernet{"eth0", up, "", true};
        const InterfaceFacts modem{"ppp0", up, "ppp", true};
        const InterfaceFacts noAddress{"ppp1", up, "ppp", false};
        const InterfaceFacts mobile{"wwan0", up, "wwan", true};
        const InterfaceFacts down{"wwan1", IFF_UP, "wwan", true};
        QVERIFY(IsOneDialUp({ethernet, modem, noAddress}) && IsOneDialUp({mobile, down}));
        QVERIFY(!IsOneDialUp({ethernet, noAddress, down}) && !IsOneDialUp({modem, mobile}));
    }

    void readsTheServers() {
        constexpr int most = 3; // the resolver's own limit
        QStringList expected;
        for (const QByteArray& line : ScratchFolder().Read(u"/etc/resolv.conf"_qs).split('\n')) {
            const QByteArrayList words = line.simplified().split(' ');
            if (words.size() > 1 && words.first() == "nameserver" && expected.size() < most)
                expected.append(QString::fromLatin1(words.at(1)) + u":53");
        }
        if (expected.isEmpty())
            expected.append(u"127.0.0.1:53"_qs);
        const NameServers found = MakeNameService()->Discover();
        QStringList servers;
        for (const NameServer& server : found.servers)
            servers.append(u"%1:%2"_qs.arg(server.address).arg(server.port));
        QCOMPARE(servers, expected);
    }

    void setsTheClockItselfOrAsksTimedated() {
        FakeService timedated(m_bus, u"org.freedesktop.timedate1"_qs, u"/org/freedesktop/timedate1"_qs);
        QVERIFY(timedated.isOffered);
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        const auto clock = MakeSystemClock(&settime);
        const auto set = [&](int error, std::chrono::system_clock::time_point time) {
            settimeError = error;
            clock->Set(time, outcome);
        };
        set(0, std::chrono::system_clock::time_point(-1500ms));
        set(EINVAL, {});
        QCOMPARE(outcomes, (QStringList{QString(), u"Invalid argument"_qs}));
        set(EPERM, std::chrono::system_clock::now() + 1h);
        QTRY_COMPARE(outcomes.size(), 3);
        QCOMPARE(outcomes.last(), QString());
        const QDBusMessage call = timedated.calls.first();
        QCOMPARE(call.member() + call.signature(), u"SetTimexbb"_qs);
        const std::chrono::microseconds step(call.arguments().first().toLongLong());
        QVERIFY(step <= 1h && step > 59min);
        QCOMPARE(call.arguments().mid(1), QVariantList({true, true})); // a step; a password may be asked for
        timedated.refusal = u"Automatic time synchronization is enabled"_qs;
        set(EPERM, std::chrono::system_clock::now());
        QTRY_COMPARE(outcomes.size(), 4);
        QCOMPARE(outcomes.last(), u"Operation not permitted: "_qs + timedated.refusal);
    }

    void showsNotices() {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", m_home->Path().toUtf8());
        const auto notifier = MakeDesktopNotifier(u"entry"_qs);
        notifier->Show({u"A"_qs, u"nobody sees it"_qs, {}, true}); // and no bus is started for it
        QVERIFY(!notifier->IsAvailable());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address);
        FakeService desktop(m_bus, u"org.freedesktop.Notifications"_qs, u"/org/freedesktop/Notifications"_qs);
        QVERIFY(desktop.isOffered && notifier->IsAvailable());
        desktop.reply = {7U};
        notifier->Show({u"A"_qs, u"A <b> has failed"_qs, u"<img src='x'> & more\nline"_qs, true});
        for (const QString& text : {u"overtaken"_qs, u"newest"_qs})
            notifier->Show({u"A"_qs, u"A"_qs, text, false}); // before the service has answered
        notifier->Show({u"B"_qs, u"B"_qs, {}, false});
        QTRY_COMPARE(desktop.calls.size(), 3);
        QCOMPARE(desktop.calls[0].member() + desktop.calls[0].signature(), u"Notifysusssasa{sv}i"_qs);
        const auto part = [&](qsizetype call, qsizetype argument) { return desktop.calls[call].arguments()[argument]; };
        QCOMPARE(part(0, 3), QVariant(u"A <b> has failed"_qs));
        QCOMPARE(part(0, 4), QVariant(u"&lt;img src='x'&gt; &amp; more\nline"_qs));
        QCOMPARE(part(2, 4), QVariant(u"newest"_qs));
        for (const auto& [call, replaced] : {std::pair(0, 0U), std::pair(1, 0U), std::pair(2, 7U)})
            QCOMPARE(part(call, 1), QVariant(replaced));
        desktop.refusal = u"no room"_qs;
        notifier->Show({u"A"_qs, u"A"_qs, {}, true});
        notifier->Show({u"A"_qs, u"A"_qs, {}, true});
        QTRY_COMPARE(desktop.calls.size(), 4);
        QTest::qWait(0);
        desktop.refusal.clear();
        QTRY_VERIFY([&] { // once the refusal has come back
            notifier->Show({u"A"_qs, u"A"_qs, {}, true});
            return QTest::qWaitFor([&] { return desktop.calls.size() == 5; }, 100);
        }());
        QCOMPARE(part(4, 1), QVariant(0U));
    }

    void keepsPasswords() {
        using Outcome = PasswordAnswer::Outcome;
        const auto store = MakePasswordStore();
        QObject receiver;
        const auto ask = [&](auto operation, auto... words) {
            std::optional<PasswordAnswer> found;
            const PasswordStore::Question question{&receiver, 2s,
                                                   [&](const PasswordAnswer& answer) { found = answer; }};
            (store.get()->*operation)(words..., question);
            const bool isLate = !found && QTest::qWaitFor([&] { return found.has_value(); }, 10'000);
            return isLate ? *found : PasswordAnswer{Outcome::Refused, "during the call, or never", {}};
        };
        const QString key = u"kalvenor:smtp:a.de:anna"_qs;
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", m_home->Path().toUtf8());
        QCOMPARE(ask(&PasswordStore::Read, key).outcome, Outcome::NoStore);
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address);
        if (QStandardPaths::findExecutable(u"gnome-keyring-daemon"_qs).isEmpty())
            QSKIP("there is no gnome-keyring here");
        // Asks the user to unlock the keyring, and waits.
        FakeService prompter(m_bus, u"org.gnome.keyring.SystemPrompter"_qs, u"/org/gnome/keyring/Prompter"_qs);
        QVERIFY(prompter.isOffered);
        prompter.isMute = true;
        {
            const Keyring open(*m_home, false);
            QVERIFY(open.isRunning);
            QCOMPARE(ask(&PasswordStore::Read, key).outcome, Outcome::NotStored);
            for (const char* password : {"first", "\xc3\xa4 \"2\""}) {
                QCOMPARE(ask(&PasswordStore::Write, key, QByteArray(password)).outcome, Outcome::Done);
                QCOMPARE(ask(&PasswordStore::Read, key).password, QByteArray(password));
            }
            QCOMPARE(ask(&PasswordStore::Read, key + u'2').outcome, Outcome::NotStored);
            QCOMPARE(ask(&PasswordStore::Remove, key).outcome, Outcome::Done);
            QCOMPARE(ask(&PasswordStore::Read, key).outcome, Outcome::NotStored);
            QCOMPARE(ask(&PasswordStore::Write, key, QByteArray("kept")).outcome, Outcome::Done);
        }
        const Keyring locked(*m_home, true);
        QVERIFY(locked.isRunning);
        for (int mail = 0; mail < 2; ++mail) // the second waits behind the first
            QCOMPARE(ask(&PasswordStore::Read, key).outcome, Outcome::Silent);
        QVERIFY(!prompter.calls.isEmpty());
    }

    void turnsSignalsIntoEvents() {
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

    void leavesIgnoredSignalsIgnored() {
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

  private:
    OwnBus m_bus;
    std::unique_ptr<ScratchFolder> m_home;
    std::unique_ptr<Autostart> m_autostart;
    std::unique_ptr<FileTypes> m_types;
};

QTEST_GUILESS_MAIN(TestDesktop)
#include "test_desktop.moc"
