// The status bar: a message or else the last result, what runs and how far it has come, how many activities there are.
// A timer reads the progress a few times a second, only while something runs.
#pragma once

#include <QObject>
#include <QTimer>

class Program;
class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;
class ResultLook;

class StatusPanel final : public QObject {
    Q_OBJECT
  public:
    StatusPanel(QStatusBar& bar, Program& program, const ResultLook& results);

    /// A text that stays until the next one; "" for none.
    void Say(const QString& text);
    void ShowCount();

  Q_SIGNALS:
    /// A click on the last result.
    void ResultOpened();

  private:
    void look();
    void showResult();

    QStatusBar& m_bar;
    Program& m_program;
    const ResultLook& m_results;
    QToolButton* m_result;
    QLabel* m_running;
    QProgressBar* m_progress;
    QToolButton* m_stop;
    QLabel* m_count;
    QTimer m_timer;
};
