#include "modTextBox.h"

#include <QFontDatabase>
#include <QPlainTextEdit>

QPlainTextEdit* modTextBox::Make(const QString& objectName, const QString& accessibleName) {
    auto* box = new QPlainTextEdit;
    box->setObjectName(objectName);
    box->setAccessibleName(accessibleName);
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return box;
}
