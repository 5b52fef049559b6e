// Starts other programs and ends this one. A start that fails is the operation's result.
#pragma once

#include <QString>
#include <functional>

class Process {
  public:
    virtual ~Process() = default;

    /// Opens a file as a double click would: an executable file is started detached, any other is handed to the
    /// program that the desktop has for it. The whole text is one path; there are no arguments and no shell line.
    /// False when the start failed.
    [[nodiscard]] virtual bool Open(const QString& path) = 0;

    /// Hands a document to the program that the desktop has for it. `failed` is called later, from the event loop, when
    /// no program takes the document.
    virtual void ShowDocument(const QString& path, const std::function<void()>& failed) = 0;

    /// Shows a folder in the desktop's file manager. False when it is no folder or the start failed. Never opens or
    /// runs any other file.
    [[nodiscard]] virtual bool OpenFolder(const QString& path) = 0;

    /// Shows a web page in the desktop's browser. Takes absolute http and https addresses only; false for any other and
    /// when the start failed.
    [[nodiscard]] virtual bool OpenWebPage(const QString& address) = 0;

    /// Ends this process at once, without saving or running destructors. In a test this returns.
    virtual void EndNow(int exitCode) = 0;
};
