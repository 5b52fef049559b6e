// The editor's third tab: what happens with which files, and what follows a change. Creates an empty log file when the
// user picks one that does not exist.
#pragma once

#include "EditorFields.h"
#include "RecordBindings.h"
#include <QWidget>

class PathRow;
class QButtonGroup;
class QGroupBox;
class QRadioButton;
struct EditorServices;

class EditorActionTab final : public QWidget {
    Q_OBJECT
  public:
    explicit EditorActionTab(const EditorServices& services);

    void Show(const ActivityRecord& record);
    void Store(ActivityRecord& record) const { m_bindings.Store(record); }

    /// False for "No action".
    [[nodiscard]] bool IsDestinationWanted() const;

  Q_SIGNALS:
    void ActionChosen();
    void PreviewWanted();

  private:
    [[nodiscard]] QGroupBox* buildAction();
    [[nodiscard]] QLayout* warningOfMirror();
    [[nodiscard]] QGroupBox* buildFileTypes();
    [[nodiscard]] QGroupBox* buildReactions();
    [[nodiscard]] PathRow* programRow();
    [[nodiscard]] PathRow* logFileRow();

    const EditorServices& m_services;
    QButtonGroup* m_actions;
    QRadioButton* optOnlyThis;
    QLineEdit* txtExtensions;
    SwitchableText m_extensions;
    RecordBindings m_bindings;
};
