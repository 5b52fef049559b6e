#include "LinuxSystemInformation.h"

#include <QSysInfo>
#include <sys/sysinfo.h>

std::optional<SystemFacts> LinuxSystemInformation::Read() const {
    struct sysinfo machine {};
    if (::sysinfo(&machine) != 0)
        return std::nullopt;
    SystemFacts facts;
    facts.system = QSysInfo::prettyProductName();
    facts.kernel = QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion();
    facts.architecture = QSysInfo::currentCpuArchitecture();
    facts.processors = ::get_nprocs();
    facts.memory = static_cast<qint64>(machine.totalram) * machine.mem_unit;
    return facts;
}
