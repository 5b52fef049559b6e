// Starts programs in a session of their own, without our input and output, so that neither side waits for the other.
// Owns the tools that show documents. A start that fails is the operation's result.
#pragma once

#include "Process.h"
#include "WatchedTools.h"

#include <string_view>

class LinuxProcess final : public Process {
  public:
    /// Documents go to xdg-open. False without a display, because there is no desktop then.
    [[nodiscard]] bool Open(const QString& path) override;

    /// Fails when xdg-open exits with an error.
    void ShowDocument(const QString& path, const std::function<void()>& failed) override;

    [[nodiscard]] bool OpenFolder(const QString& path) override;
    [[nodiscard]] bool OpenWebPage(const QString& address) override;

    /// Flushes the standard streams, then _exit.
    void EndNow(int exitCode) override;

  private:
    WatchedTools m_openers;
};

enum class OpenMethod {
    Start,   ///< the kernel can run it
    Shell,   ///< a script without an interpreter line, for /bin/sh
    Desktop, ///< a document
};

struct OpenFacts {
    bool executable = false;    ///< this user may execute it
    bool bitsMeanIt = true;     ///< false on file systems without permission bits, where every file looks executable
    std::string_view name;      ///< last component
    std::string_view firstPart; ///< the first bytes, up to 512
};

/// How to open a file. Never runs a file that was not meant to be a program.
[[nodiscard]] OpenMethod ChooseOpenMethod(const OpenFacts& facts);
