// The row above a log: which kinds of lines are shown, whether its end is followed, and the way to undo a run. Owns its
// controls and nothing else.
#pragma once

#include "LogKinds.h"
#include <QWidget>
#include <utility>
#include <vector>

class QCheckBox;
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
    void UndoWanted();

  private:
    [[nodiscard]] LogKindSet chosen() const;

    std::vector<std::pair<LogKind, QCheckBox*>> m_kinds;
    QCheckBox* m_follow;
};
