// One line that names the drive of a folder and says whether it is there. The disk is asked beside the window's own
// thread, one look at a time; until it has answered the line is empty.
#pragma once

#include "modDrive.h"
#include <QLabel>
#include <QTimer>
#include <future>

class StringTable;

class DriveLine final : public QLabel {
    Q_OBJECT
  public:
    DriveLine(const char* objectName, const StringTable& texts);

    /// `mark`: the drive that the folder belongs to (DriveMark); empty: the one that it is on now.
    void Look(const QString& path, const QString& mark);

  private:
    void take();
    [[nodiscard]] QString text(const QString& present) const;

    const StringTable& m_texts;
    QString m_path;  ///< looked for
    QString m_asked; ///< that the look under way is for
    QString m_mark;
    QTimer m_waiting{this}; ///< for the answer
    std::future<std::optional<modDrive::Named>> m_answer;
};
