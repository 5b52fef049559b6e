// The dial-up lines among this computer's network interfaces: point-to-point ones (ppp) and mobile broadband modems
// (wwan), from getifaddrs(3) and /sys/class/net. Owns nothing.
#pragma once

#include "DialUp.h"
#include <string>
#include <vector>

/// What is known of one network interface.
struct InterfaceFacts {
    std::string name;
    unsigned flags = 0;      ///< IFF_UP and the others of netdevice(7)
    std::string deviceType;  ///< DEVTYPE of its uevent file, "ppp" or "wwan"; "" when there is none
    bool hasAddress = false; ///< an internet address that is good beyond the link
};

/// True when exactly one of them is a dial-up line that is up, with an address.
[[nodiscard]] bool IsOneDialUp(const std::vector<InterfaceFacts>& interfaces);

class LinuxDialUp final : public DialUp {
  public:
    [[nodiscard]] bool IsActive() const override;
};
