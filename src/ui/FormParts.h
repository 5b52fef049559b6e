// The small parts that forms are put together from: everything gets its object name, its caption as plain text, and an
// accessible name that follows the caption. Free functions; the caller's layout takes the widgets over.
#pragma once

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QString>
#include <QToolButton>

class QButtonGroup;

namespace FormParts {

/// The caption as it is read out: without mnemonic and closing colon.
[[nodiscard]] QString Spoken(const QString& caption);

/// Names a widget for the program and for people who hear it.
void Name(QWidget& widget, const char* objectName, const QString& caption);

/// A label that leads to its field and names it. A missing colon is added.
[[nodiscard]] QLabel* Label(const QString& caption, QWidget& field);

/// Words of their own, which lead to no field.
[[nodiscard]] QLabel* PlainText(const char* objectName, const QString& text);

[[nodiscard]] QCheckBox* CheckBox(const char* objectName, const QString& caption);
[[nodiscard]] QRadioButton* Option(const char* objectName, const QString& caption);
[[nodiscard]] QGroupBox* Group(const QString& caption);

/// A button of a kind that the style knows: it gets the icon that it has in a message box.
QPushButton* AddButton(QDialogButtonBox& buttons, QDialogButtonBox::StandardButton kind, const char* objectName,
                       const QString& caption);

/// Tab enters the group at the chosen option; without one, at each of them.
void EnterAtChosen(QButtonGroup& options);

/// A button with a sign instead of a caption, which shows the caption as its tooltip.
[[nodiscard]] QToolButton* SignButton(const char* objectName, const QString& sign, const QString& caption);

/// A form that says something: the picture beside the words, the buttons below.
void LayOut(QWidget& form, QWidget& picture, QLayout& words, QWidget& buttons);

} // namespace FormParts
