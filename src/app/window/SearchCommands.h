// The two commands that search the list. Remembers the last search, so that it can be repeated, and selects in the view
// what it finds. A miss is shown in a box.
#pragma once

#include <QObject>
#include <optional>

class ActivityListView;
class DialogHost;
class Program;

class SearchCommands final : public QObject {
    Q_OBJECT
  public:
    SearchCommands(Program& program, DialogHost& dialogs, ActivityListView& view)
        : m_program(program), m_dialogs(dialogs), m_view(view) {}

    /// mnuSearch: asks for a text and selects the first row on the screen that has it in its name, one of the next four
    /// columns or its comment. Without "match case" both sides are turned to upper case. An empty text finds nothing.
    void Search();

    /// mnuSearchAgain: selects the next such row after the selected one. It does not wrap.
    void SearchAgain();

  Q_SIGNALS:
    /// Whether mnuSearchAgain can be used now: only a hit can be followed by another. It begins disabled.
    void SearchAgainEnabled(bool enabled);

  private:
    void selectNext(std::optional<int> after);
    [[nodiscard]] bool isInRow(int row) const;
    [[nodiscard]] bool isIn(const QString& text) const;

    Program& m_program;
    DialogHost& m_dialogs;
    ActivityListView& m_view;
    QString m_text;
    bool m_matchCase = false;
    bool m_found = false;
};
