// Starts programs detached from this one: in a session of their own, without our input and output, so that neither side
// ever waits for the other. Owns the tools that show documents; a start that fails is told by the result.
#pragma once

#include "Process.h"
#include "WatchedTools.h"

class LinuxProcess final : public Process {
  public:
    /// Documents go to xdg-open; without a display there is no desktop, and the answer is false.
    [[nodiscard]] bool Open(const QString& path) override;

    /// The exit code of xdg-open tells.
    void ShowDocument(const QString& path, const std::function<void()>& failed) override;

    [[nodiscard]] bool OpenFolder(const QString& path) override;
    [[nodiscard]] bool OpenWebPage(const QString& address) override;

    /// Flushes the standard streams, then _exit.
    void EndNow(int exitCode) override;

  private:
    WatchedTools m_openers;
};
