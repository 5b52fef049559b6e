// Which control edits which field of an activity: shows a record in the controls and reads it back. A text nobody has
// changed is given back exactly as it was; switches and numbers are given back as they are shown. Refers to the
// controls.
#pragma once

#include "ActivityRecord.h"
#include <functional>
#include <vector>

class MaskedField;
class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class ctlAutoCompleteCombo;

class RecordBindings final {
  public:
    void Text(QLineEdit& line, ActivityField field);
    void Text(QPlainTextEdit& lines, ActivityField field);
    void Text(ctlAutoCompleteCombo& combo, ActivityField field);

    /// One text in the other's form, "" when it has none.
    using Spell = std::function<QString(const QString&)>;

    /// `show` turns the stored text into one that fits the mask, `store` what the mask shows into the stored one. What
    /// cannot be turned is stored as it is shown.
    void Masked(MaskedField& line, ActivityField field, const Spell& show, const Spell& store);
    void Switch(QCheckBox& box, ActivityField field);

    /// A switch as a pair of options.
    void Switch(QAbstractButton& on, QAbstractButton& off, ActivityField field);

    /// Options whose ids are the field's codes. Without a known code none is chosen, and the code stays.
    void Choice(QButtonGroup& options, ActivityField field);

    /// The number must lie in the range, or the nearest one is shown.
    void Number(QSpinBox& box, ActivityField field);

    void Show(const ActivityRecord& record);
    void Store(ActivityRecord& record) const;

  private:
    struct Binding {
        std::function<void(const ActivityRecord&)> show;
        std::function<void(ActivityRecord&)> store;
    };
    template <typename Read, typename Write>
    void bindText(ActivityField field, Read read, Write write);
    std::vector<Binding> m_bindings;
};
