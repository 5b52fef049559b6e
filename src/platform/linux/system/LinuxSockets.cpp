#include "modSocketQueue.h"

#include <linux/sockios.h>
#include <sys/ioctl.h>

qint64 modSocketQueue::Untaken(qintptr descriptor) {
    int bytes = 0;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system has no other call for it
    return ::ioctl(static_cast<int>(descriptor), SIOCOUTQ, &bytes) == 0 ? bytes : 0;
}
