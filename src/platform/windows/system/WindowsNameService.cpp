#include "WindowsServices.h"

#include <winsock2.h>

#include <iphlpapi.h>
#include <vector>

namespace {

class WindowsNameService final : public NameService {
  public:
    NameServers Discover() const override;
};

NameServers WindowsNameService::Discover() const {
    std::vector<FIXED_INFO> buffer(1);
    ULONG bytes = sizeof(FIXED_INFO);
    DWORD result = ERROR_BUFFER_OVERFLOW;
    // The list may grow between two calls.
    for (int attempt = 0; attempt < 5 && result == ERROR_BUFFER_OVERFLOW; ++attempt) {
        buffer.resize(bytes / sizeof(FIXED_INFO) + 1);
        bytes = static_cast<ULONG>(buffer.size() * sizeof(FIXED_INFO));
        result = GetNetworkParams(buffer.data(), &bytes);
    }
    if (result != ERROR_SUCCESS)
        return {};
    NameServers found;
    for (const IP_ADDR_STRING* entry = &buffer.front().DnsServerList; entry != nullptr; entry = entry->Next) {
        const QString address = QString::fromLatin1(static_cast<const char*>(entry->IpAddress.String));
        if (!address.isEmpty())
            found.servers.push_back({address});
    }
    found.localDomain = QString::fromLocal8Bit(static_cast<const char*>(buffer.front().DomainName));
    while (found.localDomain.startsWith(u'.'))
        found.localDomain.remove(0, 1);
    while (found.localDomain.endsWith(u'.'))
        found.localDomain.chop(1);
    return found;
}

} // namespace

std::unique_ptr<NameService> MakeNameService() {
    return std::make_unique<WindowsNameService>();
}
