// The box "rtfText" with a log in it: its end first, the parts before and behind when the user scrolls there, never
// more than a few MiB. All reading is done beside the window; a log that cannot be read leaves the box empty but for
// the reason, one that is made anew is shown anew.
#pragma once

#include "BackgroundRead.h"
#include "LogReader.h"
#include "LogText.h"
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <memory>

class QPlainTextEdit;
class StringTable;

class LogPane final : public QWidget {
    Q_OBJECT
  public:
    /// With `kinds`: failures are marked, lines can be told apart, and what is written is shown as it comes.
    LogPane(const StringTable& texts, std::shared_ptr<const LogKinds> kinds);

    /// Shows the end of this log.
    void Open(const std::filesystem::path& log);
    void ShowEnd();
    void ShowStart();
    /// Marks the line that holds this byte; the end when the log is shorter.
    void ShowAt(qint64 position);
    /// Reads again; what is in view and selected stays, unless the end is followed.
    void Refresh();

    /// None: all lines.
    void ShowOnly(LogKindSet kinds);
    void Follow(bool follow);
    /// From the selection on; ends in SearchEnded, unless another search comes first.
    void Search(const QString& text, Qt::CaseSensitivity matchCase, bool isBackwards);
    void CancelSearch() { m_search.Cancel(); }
    /// "" when more than a line is selected.
    [[nodiscard]] QString SelectedText() const;
    /// The folder in the trash that the run at the caret names at its end; else that of the run before; "" for none
    /// among the lines in the box.
    [[nodiscard]] QString KeptFolder() const;

  Q_SIGNALS:
    /// The user has scrolled away from the end.
    void FollowEnded();
    /// What the user should know of the search; "" when there is nothing to say.
    void SearchEnded(const QString& notice);
    /// Why the log cannot be read, or that it takes long; "" when all is well.
    void Noticed(const QString& notice);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    using Read = std::function<LogPart(const LogReader&)>;
    using Then = std::function<void(const LogPart&)>;
    [[nodiscard]] LogReader reader() const { return LogReader(m_log, m_kinds, m_wanted); }
    [[nodiscard]] bool isAtEnd() const { return m_text.End() >= m_size; }
    void ask(const Read& read, const Then& then);
    void show(const LogPart& part);
    void look();
    void looked(const LogPart& part);
    void loadNeighbour();
    /// False for a part of another log than the one shown, which is then read anew.
    bool isSame(const LogPart& part);
    void goToEnd();
    void scrolled();
    void showPlaceholder();
    void reveal(const LogSearch::Hit& hit, qsizetype length);
    void copyLines();
    void showMenu(const QPoint& at);
    [[nodiscard]] QString reason(std::error_code error) const;

    const StringTable& m_texts;
    const std::shared_ptr<const LogKinds> m_kinds;
    QPlainTextEdit* m_box;
    LogText m_text;
    QTimer m_look;
    std::filesystem::path m_log;
    LogKindSet m_wanted;
    qint64 m_size = 0; ///< of the log, when it was read last
    QByteArray m_head;
    std::error_code m_error;
    bool m_follows = false;
    bool m_isChanging = false; ///< the text or the view, by the program
    BackgroundRead m_parts;
    BackgroundRead m_search;
};
