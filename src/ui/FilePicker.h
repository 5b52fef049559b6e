// Choosing files and folders. Owns nothing. A cancelled choice is nullopt; nothing on disk is touched.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

struct FileRequest {
    QString title;
    QStringList filters; ///< "Description (*.kvd)", the first is preset
    QString folder;      ///< to begin in; "" for the current directory
    QString file;        ///< preset path; "" for none
    QString suffix{};    ///< is added to a new name that has none; without a point, "" for none
};

class FilePicker {
  public:
    virtual ~FilePicker() = default;

    /// A file to read. Events run while it is chosen.
    [[nodiscard]] virtual std::optional<QString> OpenFile(const FileRequest& request) = 0;

    /// A name for a file that may exist or not; the question about an existing one is the dialog's own when
    /// `asksToReplace`.
    [[nodiscard]] virtual std::optional<QString> SaveFile(const FileRequest& request, bool asksToReplace) = 0;

    /// A folder that exists.
    [[nodiscard]] virtual std::optional<QString> PickFolder(const FileRequest& request) = 0;
};
