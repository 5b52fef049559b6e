// Finds the name servers out once, when they are first asked for, and keeps the answer. Owns the service it asks.
#pragma once

#include "NameService.h"

#include <memory>
#include <optional>

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
