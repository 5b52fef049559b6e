// The name servers that this computer asks. Never fails: the list is empty when none can be found.
#pragma once

#include <QString>
#include <memory>
#include <optional>
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

/// Asks another service on the first call and keeps the answer.
class CachedNameService final : public NameService {
  public:
    explicit CachedNameService(std::unique_ptr<NameService> source) : m_source(std::move(source)) {}

    [[nodiscard]] NameServers Discover() const override {
        if (!m_known)
            m_known = m_source->Discover();
        return *m_known;
    }

  private:
    std::unique_ptr<NameService> m_source;
    mutable std::optional<NameServers> m_known;
};
