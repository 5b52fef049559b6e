// The name servers of resolv.conf(5), as the C library's resolver reads them: nameserver, domain and search lines, and
// LOCALDOMAIN. Without a nameserver line that is the server on this machine. Owns nothing.
#pragma once

#include "NameService.h"

class LinuxNameService final : public NameService {
  public:
    [[nodiscard]] NameServers Discover() const override;
};
