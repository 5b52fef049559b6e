// The window that shows a log: its end first, the parts before and behind when the user scrolls there. It keeps no file
// open and never more than one part. A log that cannot be read leaves the window empty but for the reason.
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QTimer;
class StringTable;
struct LogPart;

class frmLogFile final : public QDialog {
    Q_OBJECT
  public:
    explicit frmLogFile(const StringTable& texts, QWidget* parent = nullptr);

    /// Shows this file under its caption, the caret behind its last line.
    void SetFileName(const QString& path);

    /// Reads the file again every 10 seconds from now on.
    void StartTimer();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void load();
    void loadStart();
    void loadNeighbour();
    void fill(const LogPart& part);

    const StringTable& m_texts;
    QString m_path;
    QPlainTextEdit* m_text;
    QTimer* m_refresh;
    qint64 m_begin = 0; ///< of the part shown, in the file
    qint64 m_end = 0;
    qint64 m_size = 0; ///< of the file, when it was read
};
