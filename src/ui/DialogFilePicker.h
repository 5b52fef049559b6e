// Lets the user choose through file dialogs in front of the active window. Owns nothing but the dialog that is open.
#pragma once

#include "FilePicker.h"

class DialogFilePicker final : public FilePicker {
  public:
    std::optional<QString> OpenFile(const FileRequest& request) override;
    std::optional<QString> SaveFile(const FileRequest& request, bool asksToReplace) override;
    std::optional<QString> PickFolder(const FileRequest& request) override;
};
