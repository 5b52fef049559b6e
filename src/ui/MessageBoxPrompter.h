// Asks the user through message boxes. After StopAsking it gives the safe answer at once, so that nothing waits for a
// user who has left.
#pragma once

#include "Prompter.h"
#include <QPointer>
#include <vector>

class QMessageBox;
class QWidget;
class StringTable;

class MessageBoxPrompter final : public Prompter {
  public:
    explicit MessageBoxPrompter(const StringTable& texts);
    ~MessageBoxPrompter() override;

    /// Boxes open in front of this window while it is visible, otherwise on their own.
    void SetWindow(QWidget* window);

    MessageAnswer Ask(const Message& message) override;

    /// Closes every open box with its safe answer and opens no more.
    void StopAsking();

  private:
    void addButtons(QMessageBox& box, MessageButtons buttons) const;
    void countDown(QMessageBox& box, std::chrono::seconds seconds) const;

    const StringTable& m_texts;
    QPointer<QWidget> m_window;
    std::vector<QMessageBox*> m_open;
    bool m_asking = true;
};
