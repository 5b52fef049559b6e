// The row above a log: which kinds of lines are shown, and whether its end is followed. Owns its buttons and nothing
// else.
#pragma once

#include "LogKinds.h"
#include <QWidget>
#include <utility>
#include <vector>

class QToolButton;
class StringTable;

class LogTools final : public QWidget {
    Q_OBJECT
  public:
    explicit LogTools(const StringTable& texts);

    /// None checked: all lines.
    void ShowAll();
    void SetFollows(bool follows);

  Q_SIGNALS:
    void KindsChosen(LogKindSet kinds);
    void FollowChosen(bool follows);

  private:
    [[nodiscard]] LogKindSet chosen() const;

    std::vector<std::pair<LogKind, QToolButton*>> m_kinds;
    QToolButton* m_follow;
};
