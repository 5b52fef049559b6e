// The window that shows a log. It keeps no file open. A log that cannot be read leaves the window empty but for the
// reason.
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QTimer;
class StringTable;

class frmLogFile final : public QDialog {
    Q_OBJECT
  public:
    /// Only the end of a larger log is shown.
    static constexpr qint64 MostMebibytes = 4;

    explicit frmLogFile(const StringTable& texts, QWidget* parent = nullptr);

    /// Shows this file under its caption, the caret behind its last line.
    void SetFileName(const QString& path);

    /// Reads the file again every 10 seconds from now on.
    void StartTimer();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void load();

    const StringTable& m_texts;
    QString m_path;
    QPlainTextEdit* m_text;
    QTimer* m_refresh;
};
