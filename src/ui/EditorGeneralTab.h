// The editor's first tab: the activity's name, its two directories, comment and whether it is enabled. Objects to a
// name or a folder while it is typed; the disk is touched only to offer, look for and create folders.
#pragma once

#include "EditorFields.h"
#include "NameHint.h"
#include "PathRow.h"
#include "RecordBindings.h"
#include <QWidget>

struct EditorServices;

class EditorGeneralTab final : public QWidget {
    Q_OBJECT
  public:
    EditorGeneralTab(const EditorServices& services, const NameHint::IsUsable& isUsableName,
                     const QStringList& takenNames);

    void Show(const QString& name, const ActivityRecord& record);
    void Store(ActivityRecord& record) const { m_bindings.Store(record); }

    /// Trimmed.
    [[nodiscard]] QString Name() const;

    /// An unwanted destination is empty and disabled.
    void SetDestinationWanted(bool wanted) { m_target.SetWanted(wanted); }

    /// Offers both directories again the next time.
    void RememberFolders();

  private:
    [[nodiscard]] PathRow* folderRow(QLineEdit* edit, bool isSource);

    const EditorServices& m_services;
    QLineEdit* txtName;
    QLineEdit* txtSourceDir;
    QLineEdit* txtTargetDir;
    RecentPaths m_recentSources;
    RecentPaths m_recentTargets;
    SwitchableText m_target;
    RecordBindings m_bindings;
};
