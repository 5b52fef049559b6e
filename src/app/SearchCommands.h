// The two commands that search the list. Owns the search; the rows it finds are selected in the view.
#pragma once

#include "ListSearch.h"
#include <QObject>

class ActivityListView;
class DialogHost;
class Program;

class SearchCommands final : public QObject {
    Q_OBJECT
  public:
    SearchCommands(Program& program, DialogHost& dialogs, ActivityListView& view)
        : m_program(program), m_dialogs(dialogs), m_view(view) {}

    /// mnuSearch: asks for a text and selects the first row on the screen that has it.
    void Search();

    /// mnuSearchAgain: selects the next such row after the selected one.
    void SearchAgain();

  Q_SIGNALS:
    /// Whether mnuSearchAgain can be used now; it begins disabled.
    void SearchAgainEnabled(bool enabled);

  private:
    void show(std::optional<int> row);

    Program& m_program;
    DialogHost& m_dialogs;
    ActivityListView& m_view;
    ListSearch m_search;
};
