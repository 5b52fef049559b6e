#include "LinuxServices.h"

#include <QFile>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <net/if.h>
#include <optional>
#include <resolv.h>

namespace {

/// A private state: the C library uses the one it keeps for each thread for its own look-ups.
class ResolverState final {
  public:
    ResolverState() : m_ready(res_ninit(&m_state) == 0) {}
    ~ResolverState() {
        if (m_ready)
            res_nclose(&m_state);
    }
    Q_DISABLE_COPY_MOVE(ResolverState)

    [[nodiscard]] bool Ready() const { return m_ready; }
    [[nodiscard]] const struct __res_state& Get() const { return m_state; }

  private:
    struct __res_state m_state {};
    bool m_ready;
};

std::optional<NameServer> asServer(const sockaddr_in& address) {
    std::array<char, INET_ADDRSTRLEN> text{};
    if (!inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size()))
        return std::nullopt;
    return NameServer{QString::fromLatin1(text.data()), ntohs(address.sin_port)};
}

std::optional<NameServer> asServer(const sockaddr_in6& address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (!inet_ntop(AF_INET6, &address.sin6_addr, text.data(), text.size()))
        return std::nullopt;
    NameServer server{QString::fromLatin1(text.data()), ntohs(address.sin6_port)};
    std::array<char, IF_NAMESIZE> interface {};
    if (address.sin6_scope_id != 0 && if_indextoname(address.sin6_scope_id, interface.data()))
        server.address += u'%' + QString::fromLocal8Bit(interface.data());
    return server;
}

/// For an IPv6 server the resolver leaves the list entry empty and uses the extension.
std::optional<NameServer> serverAt(const struct __res_state& state, std::size_t index) {
    const sockaddr_in& address = state.nsaddr_list[index];
    if (address.sin_family == AF_INET)
        return asServer(address);
    const sockaddr_in6* extended = state._u._ext.nsaddrs[index];
    return extended ? asServer(*extended) : std::nullopt;
}

QString localDomain(const struct __res_state& state) {
    const char* const domain = state.dnsrch[0] ? state.dnsrch[0] : state.defdname;
    QString text = QFile::decodeName(domain);
    while (text.startsWith(u'.'))
        text.remove(0, 1);
    while (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

class LinuxNameService final : public NameService {
  public:
    NameServers Discover() const override;
};

NameServers LinuxNameService::Discover() const {
    const ResolverState resolver;
    if (!resolver.Ready())
        return {};
    NameServers found;
    const auto count = static_cast<std::size_t>(std::clamp(resolver.Get().nscount, 0, MAXNS));
    for (std::size_t index = 0; index < count; ++index) {
        if (auto server = serverAt(resolver.Get(), index))
            found.servers.push_back(std::move(*server));
    }
    found.localDomain = localDomain(resolver.Get());
    return found;
}

} // namespace

std::unique_ptr<NameService> MakeNameService() {
    return std::make_unique<LinuxNameService>();
}
