// Binds controls to the fields of an activity: shows a record in them and reads it back. A text that was not edited
// comes back exactly as it was; switches and numbers come back as they are shown. Refers to the controls.
#pragma once

#include "ActivityRecord.h"
#include "Text.h"
#include <functional>
#include <vector>

class MaskedField;
class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class StringTable;
class ctlAutoCompleteCombo;

/// One row of a table of check boxes, each a switch of the activity.
struct SwitchRow {
    ActivityField field;
    const char* name; ///< object name
    Text text;        ///< caption
};

class RecordBindings final {
  public:
    void Text(QLineEdit& line, ActivityField field);
    void Text(QPlainTextEdit& lines, ActivityField field);
    void Text(ctlAutoCompleteCombo& combo, ActivityField field);

    /// Converts a text into another form; "" when that fails.
    using Spell = std::function<QString(const QString&)>;

    /// `show` converts the stored text into the mask's form, `store` converts it back. What cannot be converted is
    /// stored as it is shown.
    void Masked(MaskedField& line, ActivityField field, const Spell& show, const Spell& store);
    void Switch(QCheckBox& box, ActivityField field);

    /// Makes the check box of the row and binds it. The caller places it in a layout, which takes it over.
    [[nodiscard]] QCheckBox* NewSwitch(const SwitchRow& row, const StringTable& texts);

    /// A switch as a pair of options.
    void Switch(QAbstractButton& on, QAbstractButton& off, ActivityField field);

    /// Options whose ids are the field's codes. With an unknown code none is chosen, and the code is kept.
    void Choice(QButtonGroup& options, ActivityField field);

    /// A number outside the range is shown as the nearest one inside.
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
