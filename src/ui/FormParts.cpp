#include "FormParts.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

QString FormParts::Spoken(const QString& caption) {
    static const QRegularExpression mnemonic(QStringLiteral("&(.)"));
    QString spoken = QString(caption).replace(mnemonic, QStringLiteral("\\1"));
    if (spoken.endsWith(u':'))
        spoken.chop(1);
    return spoken;
}

void FormParts::Name(QWidget& widget, const char* objectName, const QString& caption) {
    widget.setObjectName(QLatin1String(objectName));
    widget.setAccessibleName(Spoken(caption));
}

QLabel* FormParts::Label(const QString& caption, QWidget& field) {
    auto* label = new QLabel(caption.endsWith(u':') ? caption : QString(caption + u':'));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&field);
    field.setAccessibleName(Spoken(caption));
    // To a screen reader the line inside an editable box is a control of its own.
    if (auto* box = qobject_cast<QComboBox*>(&field); box != nullptr && box->isEditable())
        box->lineEdit()->setAccessibleName(Spoken(caption));
    return label;
}

QLabel* FormParts::PlainText(const char* objectName, const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QLatin1String(objectName));
    return label;
}

QLabel* FormParts::Explanation(const QString& text) {
    QLabel* label = PlainText("", text);
    label->setWordWrap(true);
    return label;
}

QCheckBox* FormParts::CheckBox(const char* objectName, const QString& caption) {
    auto* box = new QCheckBox(caption);
    Name(*box, objectName, caption);
    return box;
}

QRadioButton* FormParts::Option(const char* objectName, const QString& caption) {
    auto* option = new QRadioButton(caption);
    Name(*option, objectName, caption);
    return option;
}

QGroupBox* FormParts::Group(const QString& caption) {
    auto* group = new QGroupBox(caption);
    group->setAccessibleName(Spoken(caption));
    return group;
}

QPushButton* FormParts::AddButton(QDialogButtonBox& buttons, QDialogButtonBox::StandardButton kind,
                                  const char* objectName, const QString& caption) {
    QPushButton* button = buttons.addButton(kind);
    button->setText(caption);
    Name(*button, objectName, caption);
    return button;
}

void FormParts::EnterAtChosen(QButtonGroup& options) {
    // Qt does this too, but only once the group has had the focus.
    QObject::connect(&options, &QButtonGroup::idToggled, &options, [&options] {
        for (QAbstractButton* option : options.buttons())
            option->setFocusPolicy(option == options.checkedButton() ? Qt::StrongFocus : Qt::ClickFocus);
    });
}

QToolButton* FormParts::SignButton(const char* objectName, const QString& sign, const QString& caption) {
    auto* button = new QToolButton;
    Name(*button, objectName, caption);
    button->setText(sign);
    button->setToolTip(Spoken(caption).toHtmlEscaped());
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QPlainTextEdit* FormParts::TextBox(const char* objectName, const QString& accessibleName) {
    auto* box = new QPlainTextEdit;
    box->setObjectName(QLatin1String(objectName));
    box->setAccessibleName(accessibleName);
    box->setReadOnly(true);
    box->setUndoRedoEnabled(false);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return box;
}

void FormParts::LayOut(QWidget& form, QWidget& picture, QLayout& words, QWidget& buttons) {
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(&picture);
    top->addLayout(&words, 1);
    auto* all = new QVBoxLayout(&form);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(16);
    all->addLayout(top, 1);
    all->addWidget(&buttons);
}
