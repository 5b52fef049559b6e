// What this machine is. Owns nothing; nullopt where the system tells nothing about itself.
#pragma once

#include <QString>
#include <optional>

struct SystemFacts {
    QString system;       ///< name and version of the operating system
    QString kernel;       ///< its kernel's name and version
    QString architecture; ///< of the processor, "x86_64"
    int processors = 0;   ///< that are switched on
    qint64 memory = 0;    ///< bytes
};

class SystemInformation {
  public:
    virtual ~SystemInformation() = default;

    [[nodiscard]] virtual std::optional<SystemFacts> Read() const = 0;
};
