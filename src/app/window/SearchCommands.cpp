#include "SearchCommands.h"

#include "ActivityListView.h"
#include "DialogHost.h"
#include "Program.h"
#include "Prompter.h"
#include "frmSearch.h"
#include <algorithm>

void SearchCommands::Search() {
    if (m_dialogs.RaiseOpen())
        return;
    frmSearch form(m_program.Texts(), m_text, m_matchCase, m_dialogs.Parent());
    if (m_dialogs.Run(form) != QDialog::Accepted || form.SearchText().isEmpty())
        return;
    m_text = form.SearchText();
    m_matchCase = form.MatchCase();
    selectNext(std::nullopt);
}

void SearchCommands::SearchAgain() {
    if (m_found)
        selectNext(m_program.List().RowOf(m_view.CurrentName()));
}

void SearchCommands::selectNext(std::optional<int> after) {
    const std::vector<int> order = m_view.ShownRows();
    const auto start = after ? std::find(order.begin(), order.end(), *after) : order.end();
    const auto hit = std::find_if(start == order.end() ? order.begin() : std::next(start), order.end(),
                                  [this](int row) { return isInRow(row); });
    m_found = hit != order.end();
    Q_EMIT SearchAgainEnabled(m_found);
    if (m_found) {
        m_view.Select(m_program.List().NameAt(*hit));
        return;
    }
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask(
        {texts[Text::SearchNotFound], texts[Text::Search], MessageIcon::Information, MessageButtons::Ok});
}

bool SearchCommands::isInRow(int row) const {
    const ActivityList& list = m_program.List();
    const QString name = list.NameAt(row);
    for (const auto column : {ActivityList::Name, ActivityList::Source, ActivityList::Destination,
                              ActivityList::Schedule, ActivityList::Status}) {
        if (isIn(list.Text(name, column)))
            return true;
    }
    return isIn(list.CommentAt(row));
}

bool SearchCommands::isIn(const QString& text) const {
    return m_matchCase ? text.contains(m_text) : text.toUpper().contains(m_text.toUpper());
}
