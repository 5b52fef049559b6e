// The status bar: a message, what runs and how far it has come, how many activities there are. A timer reads the
// progress a few times a second, only while something runs.
#pragma once

#include <QObject>
#include <QTimer>

class Program;
class QLabel;
class QProgressBar;
class QStatusBar;

class StatusPanel final : public QObject {
    Q_OBJECT
  public:
    StatusPanel(QStatusBar& bar, Program& program);

    /// A text that stays until the next one; "" for none.
    void Say(const QString& text);
    void ShowCount();

  private:
    void look();

    QStatusBar& m_bar;
    Program& m_program;
    QLabel* m_running;
    QProgressBar* m_progress;
    QLabel* m_count;
    QTimer m_timer;
};
