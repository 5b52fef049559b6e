#include "RecordBindings.h"

#include "EditorFields.h"
#include "FormParts.h"
#include "StringTable.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <memory>

template <typename Read, typename Write>
void RecordBindings::bindText(ActivityField field, Read read, Write write) {
    // Controls cannot hold every text: line breaks and unusual blanks would be lost.
    const auto shown = std::make_shared<QString>();
    m_bindings.push_back({[=](const ActivityRecord& record) {
                              write(record.Text(field));
                              *shown = read();
                          },
                          [=](ActivityRecord& record) {
                              if (read() != *shown)
                                  record.SetText(field, read());
                          }});
}

void RecordBindings::Text(QLineEdit& line, ActivityField field) {
    bindText(
        field, [&line] { return line.text(); }, [&line](const QString& text) { line.setText(text); });
}

void RecordBindings::Text(QPlainTextEdit& lines, ActivityField field) {
    bindText(
        field, [&lines] { return lines.toPlainText(); }, [&lines](const QString& text) { lines.setPlainText(text); });
}

void RecordBindings::Text(ctlAutoCompleteCombo& combo, ActivityField field) {
    bindText(
        field, [&combo] { return combo.Text(); }, [&combo](const QString& text) { combo.SetText(text); });
}

void RecordBindings::Masked(MaskedField& line, ActivityField field, const Spell& show, const Spell& store) {
    m_bindings.push_back({[=, &line](const ActivityRecord& record) { line.setText(show(record.Text(field))); },
                          [=, &line](ActivityRecord& record) {
                              // What the mask cannot show must survive an unedited field.
                              const QString stored = record.Text(field);
                              const QString shown = line.Shown();
                              const QString spelled = store(shown);
                              if (line.IsBlank())
                                  record.SetText(field, show(stored).isEmpty() ? stored : QString());
                              else
                                  record.SetText(field, spelled.isEmpty() ? shown : spelled);
                          }});
}

void RecordBindings::Switch(QCheckBox& box, ActivityField field) {
    m_bindings.push_back({[=, &box](const ActivityRecord& record) { box.setChecked(record.IsOn(field)); },
                          [=, &box](ActivityRecord& record) { record.SetOn(field, box.isChecked()); }});
}

QCheckBox* RecordBindings::NewSwitch(const SwitchRow& row, const StringTable& texts) {
    QCheckBox* box = FormParts::CheckBox(row.name, texts[row.text]);
    Switch(*box, row.field);
    return box;
}

void RecordBindings::Switch(QAbstractButton& on, QAbstractButton& off, ActivityField field) {
    m_bindings.push_back(
        {[=, &on, &off](const ActivityRecord& record) { (record.IsOn(field) ? on : off).setChecked(true); },
         [=, &on](ActivityRecord& record) { record.SetOn(field, on.isChecked()); }});
}

void RecordBindings::Choice(QButtonGroup& options, ActivityField field) {
    m_bindings.push_back({[=, &options](const ActivityRecord& record) {
                              for (QAbstractButton* option : options.buttons())
                                  if (record.Text(field) == QString::number(options.id(option)))
                                      option->setChecked(true);
                          },
                          [=, &options](ActivityRecord& record) {
                              if (options.checkedButton() != nullptr)
                                  record.SetNumber(field, options.checkedId());
                          }});
}

void RecordBindings::Number(QSpinBox& box, ActivityField field) {
    m_bindings.push_back({[=, &box](const ActivityRecord& record) { box.setValue(record.Number(field)); },
                          [=, &box](ActivityRecord& record) { record.SetNumber(field, box.value()); }});
}

void RecordBindings::Show(const ActivityRecord& record) {
    for (const Binding& binding : m_bindings)
        binding.show(record);
}

void RecordBindings::Store(ActivityRecord& record) const {
    for (const Binding& binding : m_bindings)
        binding.store(record);
}
