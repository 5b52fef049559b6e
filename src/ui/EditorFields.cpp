#include "EditorFields.h"

#include <QCompleter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>

namespace {
constexpr QChar gap = u'_';
} // namespace

MaskedField::MaskedField(const QString& format, QWidget* parent) : QLineEdit(parent) {
    QString mask = format;
    std::replace_if(
        mask.begin(), mask.end(), [](QChar c) { return c.isLetter(); }, QChar(u'0'));
    setInputMask(mask + u';' + gap);
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int digits = fontMetrics().horizontalAdvance(QString(format.size() + 1, u'0')) + 8;
    const QSize text(digits, fontMetrics().height());
    setFixedWidth(style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this).width());
}

QString MaskedField::Shown() const {
    return displayText().replace(gap, u' ');
}

bool MaskedField::IsBlank() const {
    const QString shown = displayText();
    return std::none_of(shown.begin(), shown.end(), [](QChar c) { return c.isDigit(); });
}

bool MaskedField::IsFull() const {
    return !displayText().contains(gap);
}

void MaskedField::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // A click into the middle of an empty field would leave its first places out.
    if (IsBlank())
        setCursorPosition(0);
}

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

void SwitchableText::SetWanted(bool wanted) {
    if (wanted == m_wanted)
        return;
    m_wanted = wanted;
    m_line.setEnabled(wanted);
    if (wanted && m_line.text().isEmpty()) {
        m_line.setText(m_kept);
    } else if (!wanted) {
        m_kept = m_line.text();
        m_line.clear();
    }
}
