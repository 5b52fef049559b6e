// The window that shows a log. Opened by the commands that show a log it is modal and shows nothing but the text; as a
// window of its own it has the search, the choice of lines and the end that is followed. It keeps no file open. A log
// that cannot be read leaves the window empty but for the reason.
#pragma once

#include <QDialog>
#include <filesystem>
#include <memory>
#include <optional>

class LogKinds;
class LogPane;
class LogSearchBar;
class LogTools;
class QBoxLayout;
class QTimer;
class StringTable;

class frmLogFile final : public QDialog {
    Q_OBJECT
  public:
    /// With `kinds`: a window of its own; without: to be shown modally.
    explicit frmLogFile(const StringTable& texts, QWidget* parent = nullptr,
                        std::shared_ptr<const LogKinds> kinds = nullptr);

    /// Shows this file under its caption, the caret behind its last line.
    void SetFileName(const QString& path);
    void SetFile(const std::filesystem::path& path);

    /// Reads the file again every 10 seconds from now on.
    void StartTimer();

    /// In a window of its own: the line that holds this byte of the log, whatever lines were chosen; without a byte the
    /// end, and what comes.
    void ShowAt(std::optional<qint64> position);

  Q_SIGNALS:
    /// By the user, for the run whose deleted and replaced files are in this folder; "" where the log names none.
    void UndoWanted(const QString& keptFolder);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void becomeWindow(QBoxLayout& all);

    const StringTable& m_texts;
    LogPane* m_pane;
    QTimer* m_refresh;
    LogTools* m_tools = nullptr; ///< both of a window of its own
    LogSearchBar* m_search = nullptr;
};
