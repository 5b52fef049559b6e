// Lets no file grow beyond a size while it lives: writes come up short as on a full disk, and no mount is needed.
#pragma once

#include <csignal>
#include <sys/resource.h>

class SizeLimit final {
  public:
    explicit SizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const struct rlimit small { bytes, m_before.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

  private:
    struct rlimit m_before {};
    void (*m_handler)(int);
};
