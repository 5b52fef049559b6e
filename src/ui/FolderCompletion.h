// Watches a line for a folder, and offers the folders that continue what is typed. Each folder is listed once, beside
// the window's own thread and one at a time; what is typed meanwhile makes the answer obsolete. The text and its cursor
// are the user's alone. Refers to the line.
#pragma once

#include <QObject>
#include <QString>
#include <QStringListModel>
#include <QTimer>
#include <future>

class QCompleter;
class QLineEdit;

class FolderCompletion final : public QObject {
    Q_OBJECT
  public:
    explicit FolderCompletion(QLineEdit& line);

  private:
    void follow(const QString& typed);
    void look();
    void take();
    void offer();

    QLineEdit& m_line;
    QStringListModel m_folders;
    QCompleter* m_completer;
    QTimer m_waiting{this}; ///< for the answer
    QString m_typed;        ///< last by the user
    QString m_wanted;       ///< the folder in it, with the slash
    QString m_asked;        ///< the folder that was or is listed
    std::future<QStringList> m_answer;
};
