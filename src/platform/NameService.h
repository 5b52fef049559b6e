// Which name servers this computer asks. Never fails: where nothing can be found out, the list is empty.
#pragma once

#include <QString>
#include <vector>

struct NameServer {
    QString address; ///< IPv4 or IPv6 in its usual form; a scope follows "%"
    quint16 port = 53;
};

struct NameServers {
    std::vector<NameServer> servers; ///< in the order in which they are to be asked
    QString localDomain;             ///< without a dot at either end; empty: none
};

class NameService {
  public:
    virtual ~NameService() = default;

    [[nodiscard]] virtual NameServers Discover() const = 0;
};
