// The log windows that stand beside the main window, one for each log. Owns them: a closed one is destroyed a moment
// later, the others with this object.
#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class LogKinds;
class StringTable;
class frmLogFile;

class LogWindows final {
  public:
    /// `undo` gets what frmLogFile::UndoWanted tells.
    LogWindows(const StringTable& texts, std::function<void(const QString& keptFolder)> undo);
    ~LogWindows();
    LogWindows(const LogWindows&) = delete;
    LogWindows& operator=(const LogWindows&) = delete;

    /// Opens the log's window or brings it to the front. `position`: a byte of the log whose line is shown and marked,
    /// or the end when the log is shorter. Does not touch the disk.
    void Show(const std::filesystem::path& log, std::optional<qint64> position);

    void CloseAll();

  private:
    struct Window {
        std::filesystem::path log;
        std::unique_ptr<frmLogFile> form;
    };
    [[nodiscard]] frmLogFile& windowOf(const std::filesystem::path& log);
    void dropClosed();

    const StringTable& m_texts;
    std::function<void(const QString&)> m_undo;
    std::shared_ptr<const LogKinds> m_kinds;
    QObject m_context; ///< of what is done a moment later
    std::vector<Window> m_windows;
};
