#include "EditorGeneralTab.h"

#include "FieldHint.h"
#include "FilePicker.h"
#include "FolderHint.h"
#include "FormParts.h"
#include "FormServices.h"
#include "PathLook.h"
#include "StringTable.h"
#include "modNativePath.h"
#include <QGridLayout>
#include <QPlainTextEdit>

EditorGeneralTab::EditorGeneralTab(const EditorServices& services, const NameHint::IsUsable& isUsableName,
                                   const QStringList& takenNames)
    : m_services(services), txtName(new QLineEdit), txtSourceDir(PathRow::FolderLine()),
      txtTargetDir(PathRow::FolderLine()), m_recentSources(services.settings, QStringLiteral("SourceDirs")),
      m_recentTargets(services.settings, QStringLiteral("TargetDirs")), m_target(*txtTargetDir) {
    const StringTable& texts = services.texts;
    QCheckBox* chkActiv = FormParts::CheckBox("chkActiv", texts[Text::ActivityEnabled]);
    auto* txtComment = new QPlainTextEdit;
    txtComment->setTabChangesFocus(true);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtSourceDir->setObjectName(QStringLiteral("txtSourceDir"));
    txtTargetDir->setObjectName(QStringLiteral("txtTargetDir"));
    txtComment->setObjectName(QStringLiteral("txtComment"));

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(12);
    grid->addWidget(FormParts::Label(texts[Text::NameTitle], *txtName), 0, 0);
    grid->addWidget(txtName, 0, 1);
    grid->addWidget((new NameHint(*txtName, texts, isUsableName, takenNames))->Hint(), 1, 1);
    grid->addWidget(FormParts::Label(texts[Text::SourceColumn], *txtSourceDir), 2, 0);
    grid->addWidget(folderRow(txtSourceDir, true), 2, 1);
    grid->addWidget((new FolderHint(*txtSourceDir, texts))->Hint(), 3, 1);
    grid->addWidget(FormParts::Label(texts[Text::DestinationColumn], *txtTargetDir), 4, 0);
    grid->addWidget(folderRow(txtTargetDir, false), 4, 1);
    grid->addWidget((new FolderHint(*txtTargetDir, texts))->Hint(), 5, 1);
    grid->addWidget(chkActiv, 6, 1);
    grid->addWidget(FormParts::Label(texts[Text::Comment], *txtComment), 7, 0, Qt::AlignTop);
    grid->addWidget(txtComment, 7, 1);
    grid->setRowStretch(7, 1);

    m_bindings.Text(*txtSourceDir, ActivityField::SourceDir);
    m_bindings.Text(*txtTargetDir, ActivityField::TargetDir);
    m_bindings.Text(*txtComment, ActivityField::Comment);
    m_bindings.Switch(*chkActiv, ActivityField::Active);
}

PathRow* EditorGeneralTab::folderRow(QLineEdit* edit, bool isSource) {
    const StringTable& texts = m_services.texts;
    const QString caption = texts[isSource ? Text::SelectSource : Text::SelectDestination];
    const RecentPaths& recent = isSource ? m_recentSources : m_recentTargets;
    const auto pick = [this, caption, &recent](const QString& present) {
        const bool isThere = PathLook::IsFolderAtHand(modNativePath::Absolute(present));
        const QString begin = isThere ? present : recent.Paths().value(0);
        return m_services.picker.PickFolder({caption, {}, begin, {}});
    };
    auto* row = new PathRow(edit, {isSource ? "cmdSourceDir" : "cmdTargetDir", caption}, pick);
    row->AddRecent({isSource ? "cmdRecentSourceDirs" : "cmdRecentTargetDirs",
                    texts[isSource ? Text::RecentSources : Text::RecentDestinations]},
                   recent);
    return row;
}

void EditorGeneralTab::Show(const QString& name, const ActivityRecord& record) {
    txtName->setText(name);
    m_bindings.Show(record);
}

QString EditorGeneralTab::Name() const {
    return txtName->text().trimmed();
}

void EditorGeneralTab::RememberFolders() {
    m_recentSources.Remember(txtSourceDir->text());
    m_recentTargets.Remember(txtTargetDir->text());
}
