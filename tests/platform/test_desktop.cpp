// The entries that start the program with the session or by a double click, dial-up lines among the network interfaces,
// and setting the clock.
#include "DesktopTexts.h"
#include "LinuxAutostart.h"
#include "LinuxDialUp.h"
#include "LinuxFileTypes.h"
#include "LinuxSystemClock.h"
#include "ScratchFolder.h"

#include <QTest>
#include <memory>
#include <net/if.h>

using namespace std::chrono_literals;

namespace {

const QString autostart = u"config/autostart/Kalvenor.desktop"_qs;

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

    void startsWithTheSession() {
        LinuxAutostart entries;
        const QString name = u"Kalvenor"_qs;
        QVERIFY(!entries.Exists(name) && !entries.Remove(name));
        QVERIFY(!entries.Create(name, "/old/Kalvenor") && !entries.Create(name, R"(/My "$HOME"/100%f/\/K)"));
        QCOMPARE(m_home->Read(autostart), QByteArray("[Desktop Entry]\nType=Application\nName=Kalvenor\n"
                                                     R"(Exec="/My \\"\\$HOME\\"/100%%f/\\\\/K")"
                                                     "\nTerminal=false\n"));
        QCOMPARE(DesktopTexts::ExecProgram("/a\nHidden=true/K"), QByteArray(R"("/a\nHidden=true/K")"));
        QVERIFY(entries.Exists(name) && !entries.Exists(u"Other"_qs));
        QVERIFY(!entries.Remove(name) && !entries.Exists(name));
        QVERIFY(QDir().mkpath(m_home->Path(autostart))); // a folder has the entry's name
        QVERIFY(entries.Create(name, "/a/Kalvenor") && entries.Remove(name) && entries.Exists(name));
    }

    void registersAFileType() {
        const QString list = u"config/mimeapps.list"_qs;
        const QByteArray defaults = "# mine\n[Default Applications]\napplication/x-kalvenor-activities=";
        const QByteArray others = "b.desktop;\ntext/plain=a.desktop\n\n[Added Associations]\nx/y=z;\n";
        QVERIFY(m_home->Write(list, defaults + others));
        LinuxFileTypes types(m_home->Native(u"data"_qs), m_home->Native(u"config"_qs));
        for (int time = 0; time < 2; ++time) { // the second time nothing changes
            QVERIFY(!types.Register({"/opt/a b/Kalvenor", u".kvd"_qs, {}, u"A <list> & more"_qs}));
            const QByteArray entry = m_home->Read(u"data/applications/kalvenor-activities.desktop"_qs);
            QVERIFY(entry.contains("\nExec=\"/opt/a b/Kalvenor\" %f\n"));
            QVERIFY(entry.contains("\nMimeType=application/x-kalvenor-activities;\n"));
            QCOMPARE(m_home->Read(list), defaults + "kalvenor-activities.desktop;" + others);
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

    void setsTheClockOrSaysWhyNot() {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere"); // never the real one: its clock is not for tests
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        LinuxSystemClock clock(&settime);
        for (const int error : {0, EINVAL, EPERM}) {
            settimeError = error;
            clock.Set(std::chrono::system_clock::time_point(-1500ms), outcome);
        }
        QCOMPARE(outcomes, (QStringList{QString(), u"Invalid argument"_qs, u"Operation not permitted"_qs}));
        QCOMPARE(settimeGiven.tv_sec, time_t(-2));
        QCOMPARE(settimeGiven.tv_nsec, 500000000L);
    }

  private:
    std::unique_ptr<ScratchFolder> m_home;
};

QTEST_GUILESS_MAIN(TestDesktop)
#include "test_desktop.moc"
