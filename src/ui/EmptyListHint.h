// What stands in the middle of an empty list: what an activity is, and the ways to the first one. It owns its labels
// and its button; when it is to be seen, its owner says.
#pragma once

#include <QWidget>

class StringTable;

class EmptyListHint final : public QWidget {
    Q_OBJECT
  public:
    explicit EmptyListHint(const StringTable& texts);

  Q_SIGNALS:
    /// The button was pressed.
    void AddWanted();
};
