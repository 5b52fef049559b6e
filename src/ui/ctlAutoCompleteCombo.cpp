#include "ctlAutoCompleteCombo.h"

#include <QCompleter>

ctlAutoCompleteCombo::ctlAutoCompleteCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
}

void ctlAutoCompleteCombo::Offer(const QStringList& texts) {
    // The first item of an empty list would become the text.
    const QString typed = Text();
    addItems(texts);
    setCurrentIndex(-1);
    SetText(typed);
}

void ctlAutoCompleteCombo::Forget() {
    const QString typed = Text();
    clear();
    SetText(typed);
}
