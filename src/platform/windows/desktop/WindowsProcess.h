// Opens files through the shell of Windows. A start that fails is the operation's result; the system shows no box of
// its own.
#pragma once

#include "Process.h"
#include <QObject>

class WindowsProcess final : public Process {
  public:
    [[nodiscard]] bool Open(const QString& path) override;
    void ShowDocument(const QString& path, const std::function<void()>& failed) override;
    [[nodiscard]] bool OpenFolder(const QString& path) override;
    [[nodiscard]] bool OpenWebPage(const QString& address) override;
    void EndNow(int exitCode) override;

  private:
    QObject m_failures; ///< what is still to be told
};
