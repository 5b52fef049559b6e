// Lets the user choose files and folders. A cancelled choice is nullopt; nothing on disk is touched.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

struct FileRequest {
    QString title;
    QStringList filters; ///< "Description (*.kvd)", the first is preset
    QString folder;      ///< to begin in; "" for the current directory
    QString file;        ///< preset path; "" for none
    QString suffix{};    ///< added to a new name that has none; without a dot, "" for none
};

class FilePicker {
  public:
    virtual ~FilePicker() = default;

    /// A file to read. Events run while it is chosen.
    [[nodiscard]] virtual std::optional<QString> OpenFile(const FileRequest& request) = 0;

    /// A name for a file that may exist or not. With `asksToReplace` the dialog itself asks about an existing one.
    [[nodiscard]] virtual std::optional<QString> SaveFile(const FileRequest& request, bool asksToReplace) = 0;

    /// A folder that exists.
    [[nodiscard]] virtual std::optional<QString> PickFolder(const FileRequest& request) = 0;
};

/// Chooses through file dialogs on the screen.
[[nodiscard]] std::unique_ptr<FilePicker> MakeFilePicker();
