// Nobody in particular, from here to the end of the scope, where an administrator runs the tests: administrators may
// read and write everything, so that some failures never come.
#pragma once

#include <QtGlobal>
#include <sys/prctl.h>
#include <unistd.h>

class AsNobody final {
  public:
    static constexpr uid_t id = 65534;

    AsNobody() { become(id); }
    ~AsNobody() { become(0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    void become(uid_t user) const {
        // The second call keeps the process's own entries below /proc open to it.
        if (m_user == 0 && (::seteuid(user) != 0 || ::prctl(PR_SET_DUMPABLE, 1) != 0))
            qFatal("not an administrator after all");
    }

    const uid_t m_user = ::geteuid();
};
