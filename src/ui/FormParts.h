// The parts that forms are built from. Each gets its object name, its caption as plain text, and an accessible name
// that follows the caption. The caller's layout takes ownership of the widgets.
#pragma once

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QString>
#include <QToolButton>

class QButtonGroup;
class QPlainTextEdit;

namespace FormParts {

/// The caption as a screen reader says it: without mnemonic and closing colon.
[[nodiscard]] QString Spoken(const QString& caption);

/// Names a widget for the program and for screen readers.
void Name(QWidget& widget, const char* objectName, const QString& caption);

/// A label that is the buddy of its field and names it. Adds a missing colon.
[[nodiscard]] QLabel* Label(const QString& caption, QWidget& field);

/// Words that belong to no field.
[[nodiscard]] QLabel* PlainText(const char* objectName, const QString& text);

/// Says what a setting means, in as many lines as it takes.
[[nodiscard]] QLabel* Explanation(const QString& text);

[[nodiscard]] QCheckBox* CheckBox(const char* objectName, const QString& caption);
[[nodiscard]] QRadioButton* Option(const char* objectName, const QString& caption);
[[nodiscard]] QGroupBox* Group(const QString& caption);

/// A button of a kind that the style knows, with the icon it has in a message box.
QPushButton* AddButton(QDialogButtonBox& buttons, QDialogButtonBox::StandardButton kind, const char* objectName,
                       const QString& caption);

/// Tab enters the group at the chosen option; without one, at each of them.
void EnterAtChosen(QButtonGroup& options);

/// A button with a sign instead of a caption, which shows the caption as its tooltip.
[[nodiscard]] QToolButton* SignButton(const char* objectName, const QString& sign, const QString& caption);

/// A box for long text to read and copy, never to change: the desktop's fixed font, lines not wrapped.
[[nodiscard]] QPlainTextEdit* TextBox(const char* objectName, const QString& accessibleName);

/// A form that says something: the picture beside the words, the buttons below.
void LayOut(QWidget& form, QWidget& picture, QLayout& words, QWidget& buttons);

} // namespace FormParts
