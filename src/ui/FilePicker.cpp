#include "FilePicker.h"

#include "PathLook.h"
#include "modNativePath.h"
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

namespace {

/// Each filter is shown as written, in front of a pattern of its own: "*.*" means every file here, but most
/// names here have no dot.
QStringList withPatterns(const QStringList& filters) {
    QStringList result;
    for (const QString& filter : filters) {
        const QString pattern = filter.mid(filter.lastIndexOf(u'('));
        result.append(filter + u' ' + (pattern == u"(*.*)" ? QStringLiteral("(*)") : pattern));
    }
    return result;
}

std::optional<QString> ask(QFileDialog& dialog, const FileRequest& request) {
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(withPatterns(request.filters));
    dialog.setDefaultSuffix(request.suffix); // by the dialog, which asks before it replaces a file of that name
    const QFileInfo file(request.file);
    const QString folder = request.file.isEmpty() ? request.folder : file.path();
    // The dialog itself would wait for a drive that does not answer.
    if (!folder.isEmpty() && PathLook::IsFolderAtHand(modNativePath::FromText(folder)))
        dialog.setDirectory(folder);
    if (!request.file.isEmpty())
        dialog.selectFile(file.fileName());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QStringList chosen = dialog.selectedFiles();
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen.first());
}

/// File dialogs in front of the active window.
class DialogFilePicker final : public FilePicker {
  public:
    std::optional<QString> OpenFile(const FileRequest& request) override;
    std::optional<QString> SaveFile(const FileRequest& request, bool asksToReplace) override;
    std::optional<QString> PickFolder(const FileRequest& request) override;
};

std::optional<QString> DialogFilePicker::OpenFile(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog, request);
}

std::optional<QString> DialogFilePicker::SaveFile(const FileRequest& request, bool asksToReplace) {
    QFileDialog dialog(QApplication::activeWindow(), request.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !asksToReplace);
    return ask(dialog, request);
}

std::optional<QString> DialogFilePicker::PickFolder(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return ask(dialog, request);
}

} // namespace

std::unique_ptr<FilePicker> MakeFilePicker() {
    return std::make_unique<DialogFilePicker>();
}
