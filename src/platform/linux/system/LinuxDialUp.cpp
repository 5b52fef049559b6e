#include "LinuxDialUp.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>

namespace {

bool isDialUp(const InterfaceFacts& facts) {
    // Not by the kind of hardware: a ppp line has no hardware address that could tell it.
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

/// One entry of the list is one address of an interface, or its hardware.
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

} // namespace

bool IsOneDialUp(const std::vector<InterfaceFacts>& interfaces) {
    return std::count_if(interfaces.begin(), interfaces.end(),
                         [](const InterfaceFacts& facts) { return isDialUp(facts) && isConnected(facts); }) == 1;
}

bool LinuxDialUp::IsActive() const {
    return IsOneDialUp(interfacesNow());
}
