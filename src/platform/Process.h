// Starting other programs and ending this one. Owns nothing; a failing start is reported by its result.
#pragma once

#include <QString>
#include <functional>

class Process {
  public:
    virtual ~Process() = default;

    /// Opens a file as a double click would: an executable file is started detached, any other is handed to the
    /// program that the desktop has for it. The whole text is one path; there are no arguments and no shell line.
    /// False when it could not be started.
    [[nodiscard]] virtual bool Open(const QString& path) = 0;

    /// Hands a document to the program that the desktop has for it. `failed` comes later, from the event loop, when
    /// nothing takes the document.
    virtual void ShowDocument(const QString& path, const std::function<void()>& failed) = 0;

    /// Shows a folder in the desktop's file manager. False when it is no folder or nothing could be started: no other
    /// file is ever opened, let alone run.
    [[nodiscard]] virtual bool OpenFolder(const QString& path) = 0;

    /// Shows a web page in the desktop's browser. Takes absolute http and https addresses only; false for any other and
    /// when nothing could be started.
    [[nodiscard]] virtual bool OpenWebPage(const QString& address) = 0;

    /// Ends this process at once. Nothing is saved, no destructor runs. In a test this returns.
    virtual void EndNow(int exitCode) = 0;
};
