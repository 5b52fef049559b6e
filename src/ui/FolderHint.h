// Watches a line for a folder, and objects to one that does not exist; offers to create it. The disk is asked when the
// typing pauses, one look at a time and beside the window's own thread. "~" becomes the user's folder when the line is
// left. Refers to the line.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <future>

class FieldHint;
class QLineEdit;
class StringTable;

class FolderHint final : public QObject {
    Q_OBJECT
  public:
    FolderHint(QLineEdit& line, const StringTable& texts);

    /// For the caller's layout, which takes it over.
    [[nodiscard]] FieldHint* Hint() const { return m_hint; }

  private:
    void look();
    void take();
    void create();

    QLineEdit& m_line;
    const StringTable& m_texts;
    FieldHint* m_hint;
    QTimer m_pause{this};
    QTimer m_waiting{this}; ///< for the answer
    QString m_asked;        ///< the folder that was or is looked for, with "~" written out
    std::future<bool> m_answer;
};
