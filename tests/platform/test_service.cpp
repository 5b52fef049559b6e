// The service as systemd sees it: its unit, the calls of systemctl, the notices, the lines for the journal.
#include "LinuxServiceManager.h"
#include "ScratchFolder.h"
#include "SystemCall.h"

#include <QTest>
#include <array>
#include <csignal>
#include <cstddef>
#include <iostream>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>

namespace {

/// A folder of its own for the units, and in front of PATH programs that write down how they were called.
struct Scratch : ScratchFolder {
    Scratch() {
        qputenv("PATH", Path("bin").toUtf8() + ":/usr/bin:/bin");
        qunsetenv("COMSPEC");
        // Fails on the word in "refuse"; in between the unit must be whole.
        Refuse("nothing");
        Program(u"systemctl"_qs,
                "case \"$*\" in *\"$(cat '" + Path("refuse").toUtf8() + "')\"*) echo refused >&2; exit 1;; esac\n");
    }
    void Program(const QString& name, const QByteArray& rest) const {
        const QString script = u"bin/"_qs + name;
        QVERIFY(Write(script, "#!/bin/sh\nprintf '%s\\n' \"$*\" >> '" + Path("calls").toUtf8() + "'\n" + rest));
        QFile::setPermissions(Path(script), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void Refuse(const QByteArray& word) const { QVERIFY(Write(u"refuse"_qs, word)); }
    [[nodiscard]] QByteArray Calls() const { return Read(u"calls"_qs); }
    [[nodiscard]] QByteArray Unit() const { return Read(u"systemd/user/KalvenorPro.service"_qs); }
    [[nodiscard]] LinuxServiceManager Manager(const char* program = "/opt/k/Kalvenor") const {
        return {program, Native(), ServiceNotifier({}), Native(u"packaged"_qs)};
    }
    /// "done", or the reason why not.
    [[nodiscard]] static QString Installed(LinuxServiceManager& manager) {
        return ended([&](ServiceManager::Outcome outcome) { manager.Install(std::move(outcome)); });
    }
    [[nodiscard]] static QString Uninstalled(LinuxServiceManager& manager) {
        return ended([&](ServiceManager::Outcome outcome) { manager.Uninstall(std::move(outcome)); });
    }

  private:
    static QString ended(const std::function<void(ServiceManager::Outcome)>& request) {
        std::optional<QString> end;
        request([&](bool succeeded, const QString& reason) { end = succeeded ? u"done"_qs : reason; });
        return QTest::qWaitFor([&] { return end.has_value(); }) ? *end : u"no answer"_qs;
    }
};

} // namespace

class TestService final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void writesTheUnit() {
        const auto text = ServiceUnit::Text("/opt/100%h  b/$HOME;\xC3\xA4/K");
        QVERIFY(text && text->contains("\nConditionFileIsExecutable=/opt/100%%h  b/$HOME;\xC3\xA4/K\n"));
        QVERIFY(text->contains("\nExecStart='/opt/100%%h  b/$HOME;\xC3\xA4/K' STARTSERVICE\n"));
        QVERIFY(text->contains("\nType=notify\n") && text->contains("\nAlias=Kalvenor.service\n"));
        for (const char* refused : {"/opt/it's/K", "/opt/\\/K", "/opt/\n/K", "/opt/\xE4/K", "opt/K", ""})
            QVERIFY2(!ServiceUnit::Text(refused), refused);
        // The one that packages bring differs in the program alone.
        const QByteArray packaged = ScratchFolder().Read(QStringLiteral(PACKAGED_UNIT));
        QCOMPARE(QByteArray(packaged).replace("@program@", "/opt/k/K"), ServiceUnit::Text("/opt/k/K").value());
    }

    void installsWholeOrNotAtAll() {
        Scratch scratch;
        const QByteArray none = scratch.Unit();
        LinuxServiceManager manager = scratch.Manager();
        QCOMPARE(Scratch::Uninstalled(manager), QString()); // of what is not there
        scratch.Refuse("enable");
        QCOMPARE(Scratch::Installed(manager), u"refused"_qs);
        QCOMPARE(scratch.Unit(), none);
        scratch.Refuse("nothing");
        QCOMPARE(Scratch::Installed(manager), u"done"_qs);
        QCOMPARE(scratch.Unit(), ServiceUnit::Text("/opt/k/Kalvenor").value());
        scratch.Refuse("disable");
        QCOMPARE(Scratch::Uninstalled(manager), u"refused"_qs);
        QVERIFY(scratch.Unit() != none);
        scratch.Refuse("nothing");
        QCOMPARE(Scratch::Uninstalled(manager), u"done"_qs);
        QCOMPARE(scratch.Unit(), none);
        QVERIFY(manager.Stop(u"KalvenorPro"_qs));
        const QByteArray reload = "--user --quiet daemon-reload\n";
        const QByteArray enable = "--user --quiet enable KalvenorPro.service\n";
        const QByteArray disable = "--user --quiet disable KalvenorPro.service\n";
        const QByteArray stop = "--user stop KalvenorPro\n";
        QTRY_COMPARE(scratch.Calls(), reload + enable + reload + reload + enable + disable + disable + reload + stop);
    }

    void keepsAnEarlierUnitWhenItCannotBeEnabledAgain() {
        Scratch scratch;
        const auto installed = [&](const char* program) {
            LinuxServiceManager manager = scratch.Manager(program);
            return Scratch::Installed(manager);
        };
        QCOMPARE(installed("/opt/old/Kalvenor"), u"done"_qs);
        QCOMPARE(installed("/opt/it's/Kalvenor"), QString());
        scratch.Refuse("enable");
        QCOMPARE(installed("/opt/new/Kalvenor"), u"refused"_qs);
        QCOMPARE(scratch.Unit(), ServiceUnit::Text("/opt/old/Kalvenor").value());
    }

    void enablesTheUnitOfAPackage() {
        Scratch scratch;
        LinuxServiceManager manager = scratch.Manager();
        QCOMPARE(Scratch::Installed(manager), u"done"_qs);
        const QByteArray own = scratch.Unit();
        QVERIFY(scratch.Write(u"packaged"_qs, "[Unit]\n"));
        scratch.Refuse("reenable");
        QCOMPARE(Scratch::Installed(manager), u"refused"_qs);
        QCOMPARE(scratch.Unit(), own);
        scratch.Refuse("nothing");
        QCOMPARE(Scratch::Installed(manager), u"done"_qs);
        QVERIFY(!QFile::exists(scratch.Path(u"systemd/user/KalvenorPro.service"_qs))); // it would hide the package's
        QCOMPARE(Scratch::Uninstalled(manager), u"done"_qs);
        scratch.Refuse("is-enabled");
        QCOMPARE(Scratch::Uninstalled(manager), u"refused"_qs); // it is not enabled
        QVERIFY(scratch.Calls().endsWith("reenable KalvenorPro.service\n"
                                         "--user --quiet is-enabled KalvenorPro.service\n"
                                         "--user --quiet disable KalvenorPro.service\n"
                                         "--user --quiet is-enabled KalvenorPro.service\n"));
        QCOMPARE(scratch.Read(u"packaged"_qs), QByteArray("[Unit]\n"));
    }

    void readsTheState() {
        using Kind = ServiceState::Kind;
        const auto kind = [](const QByteArray& answer) { return StateFromProperties(answer).kind; };
        QCOMPARE(kind("LoadState=not-found\nActiveState=inactive\nUnitFileState=\n"), Kind::NotInstalled);
        QCOMPARE(kind("ActiveState=inactive\nUnitFileState=disabled\n"), Kind::NotInstalled);
        QCOMPARE(kind("ActiveState=inactive\nUnitFileState=enabled\n"), Kind::Stopped);
        QCOMPARE(kind("ActiveState=active\nUnitFileState=enabled\n"), Kind::Running);
        QCOMPARE(kind("ActiveState=activating\nUnitFileState=enabled\n"), Kind::Running);
        QCOMPARE(StateFromProperties("ActiveState=failed\nResult=exit-code\nExecMainStatus=3\n").reason,
                 u"exit-code, status 3"_qs);
        Scratch scratch;
        scratch.Refuse("show");
        std::optional<ServiceState> state;
        LinuxServiceManager manager = scratch.Manager();
        manager.QueryState([&](const ServiceState& found) { state = found; });
        QTRY_VERIFY(state && state->kind == Kind::Unknown && state->reason == u"refused"_qs);
    }

    void startsThroughTheInterpreter() {
        Scratch scratch;
        LinuxServiceManager manager = scratch.Manager();
        scratch.Program(u"interpreter"_qs, {});
        qputenv("COMSPEC", scratch.Path("bin/interpreter").toUtf8());
        QVERIFY(manager.Start(u"Kalvenor"_qs));
        QTRY_COMPARE(scratch.Calls(), QByteArray("/c net start Kalvenor\n"));
        qputenv("COMSPEC", "/nowhere/interpreter");
        QVERIFY(!manager.Stop(u"Kalvenor"_qs));
    }

    void writesEventsForTheJournal() {
        const auto eventLine = [](ServiceEvent type, int id, const QString& text, bool journal) {
            journal ? qputenv("JOURNAL_STREAM", "1:2") : qunsetenv("JOURNAL_STREAM");
            std::ostringstream said;
            std::streambuf* const former = std::cerr.rdbuf(said.rdbuf());
            LinuxServiceManager({}, {}, ServiceNotifier({})).LogEvent(type, id, text);
            std::cerr.rdbuf(former);
            return QByteArray::fromStdString(said.str());
        };
        QCOMPARE(eventLine(ServiceEvent::Error, 109, u"A\nB"_qs, true), QByteArray("<3>A B [109]\n"));
        QCOMPARE(eventLine(ServiceEvent::Information, 110, u"A"_qs, true), QByteArray("<6>A [110]\n"));
        QCOMPARE(eventLine(ServiceEvent::Error, 109, u"A"_qs, false), QByteArray("A [109]\n"));
    }

    void notifies() {
        const QByteArray name = "@" + ScratchFolder().Path("notify").toUtf8(); // in the kernel, not on the disk
        const FileDescriptor receiver(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(name.begin() + 1, name.end(), std::begin(address.sun_path) + 1);
        const auto length = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size());
        QCOMPARE(bind(receiver.Get(), reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(length)), 0);
        qputenv("NOTIFY_SOCKET", name);
        LinuxServiceManager manager({}, {}, ServiceNotifier::FromEnvironment());
        QVERIFY(!qEnvironmentVariableIsSet("NOTIFY_SOCKET")); // what an activity starts is not the service
        manager.NotifyReady();
        manager.NotifyStopping();
        for (const char* expected : {"READY=1", "STOPPING=1"}) {
            std::array<char, 100> received{};
            const ssize_t size = recv(receiver.Get(), received.data(), received.size(), 0);
            QCOMPARE(QByteArray(received.data(), std::max<ssize_t>(size, 0)), QByteArray(expected));
        }
        const QByteArray tooLong(108, '@');
        for (const QByteArray& nobody : {QByteArray("/nowhere/notify"), tooLong})
            LinuxServiceManager({}, {}, ServiceNotifier(nobody)).NotifyReady();
    }

    void hearsPauseAndContinue() {
        QVERIFY(!LinuxServiceManager({}, {}, ServiceNotifier({})).AcceptControls(false, {})); // a window
        LinuxServiceManager manager({}, {}, ServiceNotifier("/nowhere/notify"));
        QList<ServiceControl> heard;
        QVERIFY(manager.AcceptControls(false, [&](ServiceControl control) { heard.append(control); }));
        for (const int number : {SIGUSR1, SIGUSR2, SIGUSR1})
            std::raise(number);
        QVERIFY(heard.isEmpty()); // nothing happens inside the signal's handler
        const QList expected{ServiceControl::Pause, ServiceControl::Continue, ServiceControl::Pause};
        QTRY_COMPARE(heard, expected);
    }
};

QTEST_GUILESS_MAIN(TestService)
#include "test_service.moc"
