#include "LinuxServices.h"

#include "SystemCall.h"
#include "modForeignText.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QSysInfo>
#include <algorithm>
#include <fstream>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/sysinfo.h>

namespace {

constexpr int passwordMilliseconds = 120000;

timespec asTimespec(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const auto whole = floor<seconds>(time);
    timespec value{};
    value.tv_sec = static_cast<time_t>(whole.time_since_epoch().count());
    value.tv_nsec = static_cast<long>(duration_cast<nanoseconds>(time - whole).count());
    return value;
}

class LinuxSystemClock final : public SystemClock {
  public:
    explicit LinuxSystemClock(SetTime settime) : m_settime(settime) {}

    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override;

  private:
    void askTimedated(std::chrono::system_clock::time_point time, const QString& refusal, const Outcome& outcome);

    SetTime m_settime;
    QObject m_questions; ///< parent of the pending requests
};

void LinuxSystemClock::Set(std::chrono::system_clock::time_point time, Outcome outcome) {
    const timespec value = asTimespec(time);
    if (m_settime(CLOCK_REALTIME, &value) == 0) {
        outcome({});
        return;
    }
    const std::error_code refusal = LastError();
    const QString reason = modForeignText::OfError(refusal);
    if (refusal == std::errc::operation_not_permitted)
        askTimedated(time, reason, outcome);
    else
        outcome(reason);
}

void LinuxSystemClock::askTimedated(std::chrono::system_clock::time_point time, const QString& refusal,
                                    const Outcome& outcome) {
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) {
        outcome(refusal);
        return;
    }
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
        QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("SetTime"));
    // Relative to now, so that it is still right when the user has typed the password.
    const auto step =
        std::chrono::duration_cast<std::chrono::microseconds>(time - std::chrono::system_clock::now()).count();
    const bool relative = true;
    const bool mayAskForPassword = true;
    request << static_cast<qlonglong>(step) << relative << mayAskForPassword;
    auto* const question = new QDBusPendingCallWatcher(bus.asyncCall(request, passwordMilliseconds), &m_questions);
    QObject::connect(question, &QDBusPendingCallWatcher::finished, question, [question, refusal, outcome] {
        question->deleteLater();
        // Without timedated the error may have no message.
        const QString reason = question->error().message();
        outcome(!question->isError() ? QString() : reason.isEmpty() ? refusal : refusal + u": " + reason);
    });
}

class LinuxPowerControl final : public PowerControl {
  public:
    bool PowerOff() override {
        constexpr int timeoutMilliseconds = 10000;
        const QDBusConnection bus = QDBusConnection::systemBus();
        if (!bus.isConnected())
            return false;
        auto request = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PowerOff"));
        const bool mayAskForPassword = false; // monitoring ends when the user may be away
        request << mayAskForPassword;
        const QDBusMessage answer = bus.call(request, QDBus::Block, timeoutMilliseconds);
        return answer.type() == QDBusMessage::ReplyMessage;
    }
};

bool isDialUp(const InterfaceFacts& facts) {
    // By DEVTYPE, because a ppp line has no hardware address.
    return facts.deviceType == "ppp" || facts.deviceType == "wwan";
}

bool isConnected(const InterfaceFacts& facts) {
    constexpr unsigned needed = IFF_UP | IFF_RUNNING;
    return (facts.flags & needed) == needed && facts.hasAddress;
}

std::string deviceTypeOf(const std::string& interface) {
    std::ifstream uevent(std::filesystem::path("/sys/class/net") / interface / "uevent");
    const std::string key = "DEVTYPE=";
    for (std::string line; std::getline(uevent, line);) {
        if (line.rfind(key, 0) == 0)
            return line.substr(key.size());
    }
    return {};
}

/// An entry of the list is one address of an interface, or its hardware.
void takeEntry(const ifaddrs& entry, InterfaceFacts& facts) {
    facts.flags = entry.ifa_flags;
    if (entry.ifa_addr == nullptr)
        return;
    switch (entry.ifa_addr->sa_family) {
    case AF_INET:
        facts.hasAddress = true;
        break;
    case AF_INET6: {
        const in6_addr& address = reinterpret_cast<const sockaddr_in6*>(entry.ifa_addr)->sin6_addr;
        const bool linkOnly = address.s6_addr[0] == 0xfe && (address.s6_addr[1] & 0xc0) == 0x80;
        facts.hasAddress = facts.hasAddress || !linkOnly;
        break;
    }
    default:
        break;
    }
}

std::vector<InterfaceFacts> interfacesNow() {
    ifaddrs* first = nullptr;
    std::vector<InterfaceFacts> interfaces;
    if (getifaddrs(&first) != 0)
        return interfaces;
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> list(first, &freeifaddrs);
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
        const std::string name = entry->ifa_name;
        auto facts = std::find_if(interfaces.begin(), interfaces.end(),
                                  [&](const InterfaceFacts& known) { return known.name == name; });
        if (facts == interfaces.end()) {
            interfaces.push_back({name, 0, deviceTypeOf(name), false});
            facts = std::prev(interfaces.end());
        }
        takeEntry(*entry, *facts);
    }
    return interfaces;
}

class LinuxDialUp final : public DialUp {
  public:
    bool IsActive() const override { return IsOneDialUp(interfacesNow()); }
};

} // namespace

std::optional<SystemFacts> ReadSystemFacts() {
    struct sysinfo machine {};
    if (::sysinfo(&machine) != 0)
        return std::nullopt;
    SystemFacts facts;
    facts.system = QSysInfo::prettyProductName();
    facts.kernel = QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion();
    facts.architecture = QSysInfo::currentCpuArchitecture();
    facts.processors = ::get_nprocs();
    facts.memory = static_cast<qint64>(machine.totalram) * machine.mem_unit;
    return facts;
}

std::unique_ptr<PowerControl> MakePowerControl() {
    return std::make_unique<LinuxPowerControl>();
}

std::unique_ptr<SystemClock> MakeSystemClock(SetTime settime) {
    return std::make_unique<LinuxSystemClock>(settime);
}

std::unique_ptr<DialUp> MakeDialUp() {
    return std::make_unique<LinuxDialUp>();
}

bool IsOneDialUp(const std::vector<InterfaceFacts>& interfaces) {
    return std::count_if(interfaces.begin(), interfaces.end(),
                         [](const InterfaceFacts& facts) { return isDialUp(facts) && isConnected(facts); }) == 1;
}
