// The service as systemd sees it: its unit, the calls of systemctl, the notices, the lines for the journal.
#include "LinuxServiceManager.h"
#include "SystemCall.h"

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
                                     " echo refused >&2; exit 1;; esac\n");
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
    [[nodiscard]] LinuxServiceManager Manager(const char* program = "/opt/k/Kalvenor") const {
        return {program, folder.path().toStdString(), ServiceNotifier({})};
    }
    /// "done", or the reason why not.
    [[nodiscard]] static QString Installed(LinuxServiceManager& manager) {
        return ended([&](ServiceManager::Outcome outcome) { manager.Install(std::move(outcome)); });
    }
    [[nodiscard]] static QString Uninstalled(LinuxServiceManager& manager) {
        return ended([&](ServiceManager::Outcome outcome) { manager.Uninstall(std::move(outcome)); });
    }
    QTemporaryDir folder;

  private:
    static QString ended(const std::function<void(ServiceManager::Outcome)>& request) {
        std::optional<QString> end;
        request([&](bool succeeded, const QString& reason) { end = succeeded ? u"done"_qs : reason; });
        return QTest::qWaitFor([&] { return end.has_value(); }) ? *end : u"no answer"_qs;
    }
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
    void writesTheUnit() {
        const auto text = ServiceUnit::Text("/opt/100%h  b/$HOME;\xC3\xA4/K");
        QVERIFY(text && text->contains("\nExecStart='/opt/100%%h  b/$HOME;\xC3\xA4/K' STARTSERVICE\n"));
        QVERIFY(text->contains("\nType=notify\n") && text->contains("\nAlias=Kalvenor.service\n"));
        for (const char* refused : {"/opt/it's/K", "/opt/\\/K", "/opt/\n/K", "/opt/\xE4/K", "opt/K", ""})
            QVERIFY2(!ServiceUnit::Text(refused), refused);
    }

    void installsWholeOrNotAtAll() {
        Scratch scratch;
        LinuxServiceManager manager = scratch.Manager();
        QCOMPARE(Scratch::Uninstalled(manager), QString()); // of what is not there
        scratch.Refuse("enable");
        QCOMPARE(Scratch::Installed(manager), u"refused"_qs);
        QCOMPARE(scratch.Unit(), QByteArray());
        scratch.Refuse("nothing");
        QCOMPARE(Scratch::Installed(manager), u"done"_qs);
        QCOMPARE(scratch.Unit(), ServiceUnit::Text("/opt/k/Kalvenor").value());
        scratch.Refuse("disable");
        QCOMPARE(Scratch::Uninstalled(manager), u"refused"_qs);
        QVERIFY(!scratch.Unit().isEmpty());
        scratch.Refuse("nothing");
        QCOMPARE(Scratch::Uninstalled(manager), u"done"_qs);
        QCOMPARE(scratch.Unit(), QByteArray());
        QVERIFY(manager.Stop(u"KalvenorPro"_qs));
        const QByteArray reload = "--user --quiet daemon-reload\n";
        const QByteArray enable = "--user --quiet enable KalvenorPro.service\n";
        const QByteArray disable = "--user --quiet disable KalvenorPro.service\n";
        const QByteArray stop = "--user stop KalvenorPro\n";
        QTRY_COMPARE(scratch.Calls(), reload + enable + reload + reload + enable + disable + disable + reload + stop);
    }

    void keepsAnEarlierUnitWhenItCannotBeEnabledAgain() {
        Scratch scratch;
        LinuxServiceManager older = scratch.Manager("/opt/old/Kalvenor");
        QCOMPARE(Scratch::Installed(older), u"done"_qs);
        LinuxServiceManager badlyNamed = scratch.Manager("/opt/it's/Kalvenor");
        QCOMPARE(Scratch::Installed(badlyNamed), QString());
        scratch.Refuse("enable");
        LinuxServiceManager newer = scratch.Manager("/opt/new/Kalvenor");
        QCOMPARE(Scratch::Installed(newer), u"refused"_qs);
        QCOMPARE(scratch.Unit(), ServiceUnit::Text("/opt/old/Kalvenor").value());
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
        qputenv("COMSPEC", scratch.folder.filePath(u"bin/interpreter"_qs).toUtf8());
        QVERIFY(manager.Start(u"Kalvenor"_qs));
        QTRY_COMPARE(scratch.Calls(), QByteArray("/c net start Kalvenor\n"));
        qputenv("COMSPEC", "/nowhere/interpreter");
        QVERIFY(!manager.Stop(u"Kalvenor"_qs));
    }

    void writesEventsForTheJournal() {
        QCOMPARE(EventLine(ServiceEvent::Error, 109, u"A\nB"_qs, true), QByteArray("<3>A B [109]\n"));
        QCOMPARE(EventLine(ServiceEvent::Information, 110, u"A"_qs, true), QByteArray("<6>A [110]\n"));
        QCOMPARE(EventLine(ServiceEvent::Error, 109, u"A"_qs, false), QByteArray("A [109]\n"));
    }

    void notifies() {
        const QTemporaryDir folder;
        const QByteArray name = "@" + folder.filePath(u"notify"_qs).toUtf8(); // in the kernel, not on the disk
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
