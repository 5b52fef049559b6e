#include "MaskedField.h"

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
