// The service as systemd sees it: its unit, the calls of systemctl, the notices, the lines for the journal.
#include "FileDescriptor.h"
#include "LinuxServiceManager.h"
#include "ServiceUnit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <csignal>
#include <cstddef>
#include <sys/socket.h>
#include <sys/un.h>

namespace {

/// A folder of its own for the units, and in front of PATH programs that write down how they were called.
struct Scratch {
    Scratch() {
        QDir(folder.path()).mkpath(u"bin"_qs);
        qputenv("PATH", folder.filePath(u"bin"_qs).toUtf8() + ":/usr/bin:/bin");
        qunsetenv("COMSPEC");
        // Fails on the word in "refuse"; in between the unit must be whole.
        Program(u"systemctl"_qs, "case \"$*\" in *\"$(cat '" + path(u"refuse"_qs) +
                                     "' 2>/dev/null || echo nothing)\"*)"
                                     " exit 1;; esac\n");
    }
    void Program(const QString& name, const QByteArray& rest) {
        QFile script(folder.filePath(u"bin/"_qs + name));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$*\" >> '" + path(u"calls"_qs) + "'\n" + rest);
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void Refuse(const QByteArray& word) const {
        QFile file(folder.filePath(u"refuse"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(word);
    }
    [[nodiscard]] QByteArray Calls() const { return contentOf(u"calls"_qs); }
    [[nodiscard]] QByteArray Unit() const { return contentOf(u"systemd/user/KalvenorPro.service"_qs); }
    [[nodiscard]] LinuxServiceManager Manager(const std::string& program = "/opt/k/Kalvenor") const {
        return {program, folder.path().toStdString(), ServiceNotifier({})};
    }
    QTemporaryDir folder;

  private:
    [[nodiscard]] QByteArray path(const QString& name) const { return folder.filePath(name).toUtf8(); }
    [[nodiscard]] QByteArray contentOf(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

class TestService final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void writesTheUnit_data() {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<QByteArray>("line"); // "": systemd takes no such program
        QTest::newRow("plain") << QByteArray("/usr/bin/Kalvenor") << QByteArray("ExecStart='/usr/bin/Kalvenor'");
        QTest::newRow("blanks") << QByteArray("/opt/a  b/K") << QByteArray("ExecStart='/opt/a  b/K'");
        QTest::newRow("specifier") << QByteArray("/opt/100%h/K") << QByteArray("ExecStart='/opt/100%%h/K'");
        QTest::newRow("signs") << QByteArray("/opt/$HOME;#/K") << QByteArray("ExecStart='/opt/$HOME;#/K'");
        QTest::newRow("umlaut") << QByteArray("/opt/\xC3\xA4/K") << QByteArray("ExecStart='/opt/\xC3\xA4/K'");
        for (const char* refused :
             {"/opt/it's/K", "/opt/\"/K", "/opt/\\/K", "/opt/\n/K", "/opt/\x7f/K", "/opt/\xE4/K", "opt/K", ""})
            QTest::addRow("refused %s", refused) << QByteArray(refused) << QByteArray();
    }
    void writesTheUnit() {
        QFETCH(QByteArray, program);
        QFETCH(QByteArray, line);
        const auto text = ServiceUnit::Text(program.toStdString());
        QCOMPARE(text.has_value(), !line.isEmpty());
        if (!text)
            return;
        QVERIFY2(text->contains(QByteArray("\n" + line + " STARTSERVICE\n")), text->constData());
        QVERIFY(text->contains("\nType=notify\n") && text->contains("\nAlias=Kalvenor.service\n"));
        QVERIFY(!text->contains("ProtectHome"));
    }

    void installs_data() {
        QTest::addColumn<QByteArray>("refuse");
        QTest::addColumn<bool>("uninstalls"); // or installs
        QTest::addColumn<bool>("succeeds");
        QTest::addColumn<bool>("unitStays");
        QTest::addColumn<QByteArray>("calls");
        const auto row = [](const char* name, const char* refuse, bool uninstalls, bool succeeds, bool unitStays,
                            const QByteArray& calls) {
            QTest::newRow(name) << QByteArray(refuse) << uninstalls << succeeds << unitStays << calls;
        };
        const QByteArray reload = "--user --quiet daemon-reload\n";
        const QByteArray enable = "--user --quiet enable KalvenorPro.service\n";
        const QByteArray disable = "--user --quiet disable KalvenorPro.service\n";
        row("install", "nothing", false, true, true, reload + enable);
        row("no service manager", "--user", false, false, false, reload + reload);
        row("not enabled", "enable", false, false, false, reload + enable + reload);
        row("uninstall", "nothing", true, true, false, disable + reload);
        row("not disabled", "disable", true, false, true, disable);
        row("not reloaded", "reload", true, true, false, disable + reload);
    }
    void installs() {
        QFETCH(QByteArray, refuse);
        QFETCH(bool, uninstalls);
        QFETCH(bool, succeeds);
        QFETCH(bool, unitStays);
        Scratch scratch;
        LinuxServiceManager manager = scratch.Manager();
        QVERIFY(!manager.Uninstall()); // of what is not there
        QVERIFY(scratch.Calls().isEmpty());
        if (uninstalls) {
            QVERIFY(manager.Install());
            QFile::remove(scratch.folder.filePath(u"calls"_qs));
        }
        scratch.Refuse(refuse);
        QCOMPARE(uninstalls ? manager.Uninstall() : manager.Install(), succeeds);
        QTEST(scratch.Calls(), "calls");
        QCOMPARE(scratch.Unit(), unitStays ? ServiceUnit::Text("/opt/k/Kalvenor").value() : QByteArray());
        const QStringList expected = unitStays ? QStringList(u"KalvenorPro.service"_qs) : QStringList();
        const QDir units(scratch.folder.filePath(u"systemd/user"_qs));
        QCOMPARE(units.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), expected);
    }

    void keepsAnEarlierUnitWhenItCannotBeEnabledAgain() {
        Scratch scratch;
        QVERIFY(scratch.Manager("/opt/old/Kalvenor").Install());
        QVERIFY(!scratch.Manager("/opt/it's/Kalvenor").Install());
        scratch.Refuse("enable");
        QVERIFY(!scratch.Manager("/opt/new/Kalvenor").Install());
        QCOMPARE(scratch.Unit(), ServiceUnit::Text("/opt/old/Kalvenor").value());
    }

    void startsThroughTheInterpreter_data() {
        QTest::addColumn<bool>("hasInterpreter");
        QTest::addColumn<QByteArray>("calls");
        QTest::newRow("COMSPEC") << true << QByteArray("/c net start Kalvenor\n/c net stop KalvenorPro\n");
        QTest::newRow("none") << false << QByteArray("--user start Kalvenor\n--user stop KalvenorPro\n");
    }
    void startsThroughTheInterpreter() {
        QFETCH(bool, hasInterpreter);
        QFETCH(QByteArray, calls);
        Scratch scratch;
        scratch.Program(u"interpreter"_qs, {});
        if (hasInterpreter)
            qputenv("COMSPEC", scratch.folder.filePath(u"bin/interpreter"_qs).toUtf8());
        LinuxServiceManager manager = scratch.Manager();
        QVERIFY(manager.Start(u"Kalvenor"_qs));
        QTRY_COMPARE(scratch.Calls().count('\n'), 1);
        QVERIFY(manager.Stop(u"KalvenorPro"_qs));
        QTRY_COMPARE(scratch.Calls(), calls);
        qputenv("COMSPEC", "/nowhere/interpreter");
        QVERIFY(!manager.Start(u"Kalvenor"_qs));
    }

    void notifies_data() {
        QTest::addColumn<bool>("abstract");
        QTest::newRow("path") << false;
        QTest::newRow("abstract") << true;
    }
    void notifies() {
        QFETCH(bool, abstract);
        const QTemporaryDir folder;
        const QByteArray name = (abstract ? "@" : "") + folder.filePath(u"notify"_qs).toUtf8();
        const FileDescriptor receiver(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(name.begin(), name.end(), std::begin(address.sun_path));
        if (abstract)
            address.sun_path[0] = '\0';
        const auto length =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(name.size());
        QCOMPARE(bind(receiver.Get(), reinterpret_cast<const sockaddr*>(&address), length), 0);

        qputenv("NOTIFY_SOCKET", name);
        LinuxServiceManager manager({}, {}, ServiceNotifier::FromEnvironment());
        QVERIFY(!qEnvironmentVariableIsSet("NOTIFY_SOCKET"));
        manager.NotifyReady();
        manager.NotifyStopping();
        for (const char* expected : {"READY=1", "STOPPING=1"}) {
            std::array<char, 100> received{};
            const ssize_t size = recv(receiver.Get(), received.data(), received.size(), 0);
            QCOMPARE(QByteArray(received.data(), std::max<ssize_t>(size, 0)), QByteArray(expected));
        }
    }

    void bearsWithNobodyToNotify_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("not set") << QByteArray();
        QTest::newRow("gone") << QByteArray("/nowhere/notify");
        QTest::newRow("too long") << QByteArray("@") + QByteArray(108, 'x');
        QTest::newRow("another kind") << QByteArray("vsock:2:1234");
    }
    void bearsWithNobodyToNotify() {
        QFETCH(QByteArray, name);
        LinuxServiceManager manager({}, {}, ServiceNotifier(name));
        manager.NotifyReady();
    }

    void hearsPauseAndContinue_data() {
        QTest::addColumn<QByteArray>("socket");
        QTest::addColumn<bool>("debug");
        QTest::addColumn<bool>("hears");
        QTest::newRow("a window") << QByteArray() << false << false;
        QTest::newRow("started by systemd") << QByteArray("/nowhere/notify") << false << true;
        QTest::newRow("debug mode") << QByteArray() << true << true;
    }
    void hearsPauseAndContinue() {
        QFETCH(QByteArray, socket);
        QFETCH(bool, debug);
        QFETCH(bool, hears);
        LinuxServiceManager manager({}, {}, ServiceNotifier(socket));
        QList<ServiceControl> heard;
        QCOMPARE(manager.AcceptControls(debug, [&](ServiceControl control) { heard.append(control); }), hears);
        if (!hears)
            return;
        QVERIFY(!manager.AcceptControls(debug, {}));
        for (const int number : {SIGUSR1, SIGUSR2, SIGUSR1})
            std::raise(number);
        QVERIFY(heard.isEmpty()); // nothing happens inside the signal's handler
        const QList expected{ServiceControl::Pause, ServiceControl::Continue, ServiceControl::Pause};
        QTRY_COMPARE(heard, expected);
    }

    void writesEventsForTheJournal_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("journal");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("error") << 1 << true << QByteArray("<3>Service paused [109]\n");
        QTest::newRow("warning") << 2 << true << QByteArray("<4>Service paused [109]\n");
        QTest::newRow("information") << 4 << true << QByteArray("<6>Service paused [109]\n");
        QTest::newRow("terminal") << 1 << false << QByteArray("Service paused [109]\n");
    }
    void writesEventsForTheJournal() {
        QFETCH(int, type);
        QFETCH(bool, journal);
        QTEST(EventLine(static_cast<ServiceEvent>(type), 109, u"Service\npaused"_qs, journal), "line");
    }
};

QTEST_GUILESS_MAIN(TestService)
#include "test_service.moc"
