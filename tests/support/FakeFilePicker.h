// Chooses what the test has laid out, in turn.
#pragma once

#include "FilePicker.h"

#include <QList>

class FakeFilePicker final : public FilePicker {
  public:
    std::optional<QString> OpenFile(const FileRequest& /*request*/) override {
        const QString chosen = answers.isEmpty() ? QString() : answers.takeFirst();
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen);
    }
    std::optional<QString> SaveFile(const FileRequest& request, bool /*asksToReplace*/) override {
        return OpenFile(request);
    }
    std::optional<QString> PickFolder(const FileRequest& request) override { return OpenFile(request); }

    QList<QString> answers; ///< "" or none left: cancelled
};
