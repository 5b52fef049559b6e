// Starts programs detached from this one: in a session of their own, without our input and output, so that neither side
// ever waits for the other. Owns nothing; a start that fails is told by the result.
#pragma once

#include "Process.h"

class LinuxProcess final : public Process {
  public:
    /// Documents go to xdg-open; without a display there is no desktop, and the answer is false.
    [[nodiscard]] bool Open(const QString& path) override;

    [[nodiscard]] bool OpenFolder(const QString& path) override;
    [[nodiscard]] bool OpenWebPage(const QString& address) override;

    /// Flushes the standard streams, then _exit.
    void EndNow(int exitCode) override;
};
