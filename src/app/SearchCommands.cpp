#include "SearchCommands.h"

#include "ActivityListView.h"
#include "DialogHost.h"
#include "Program.h"
#include "Prompter.h"
#include "frmSearch.h"

void SearchCommands::Search() {
    if (m_dialogs.RaiseOpen())
        return;
    frmSearch form(m_program.Texts(), m_search.Text(), m_search.MatchCase(), m_dialogs.Parent());
    if (m_dialogs.Run(form) == QDialog::Accepted && !form.SearchText().isEmpty())
        show(m_search.Search(m_program.List(), m_view.ShownRows(), form.SearchText(), form.MatchCase()));
}

void SearchCommands::SearchAgain() {
    if (m_search.CanSearchAgain())
        show(m_search.SearchAgain(m_program.List(), m_view.ShownRows(), m_program.List().RowOf(m_view.CurrentName())));
}

void SearchCommands::show(std::optional<int> row) {
    Q_EMIT SearchAgainEnabled(row.has_value());
    if (row) {
        m_view.Select(m_program.List().NameAt(*row));
        return;
    }
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask(
        {texts[Text::SearchNotFound], texts[Text::Search], MessageIcon::Information, MessageButtons::Ok});
}
