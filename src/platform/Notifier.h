// Tells the user something without a window: a notice of the desktop. Never throws and never waits for the desktop;
// what cannot be shown is lost.
#pragma once

#include <QString>

struct Notice {
    QString key; ///< a notice takes the place of the one before with the same key
    QString title;
    QString text; ///< plain, several lines
    bool isFailure = false;
};

class Notifier {
  public:
    virtual ~Notifier() = default;

    /// False where no notice will ever be shown.
    [[nodiscard]] virtual bool IsAvailable() const = 0;
    virtual void Show(const Notice& notice) = 0;
};

class NoNotifier final : public Notifier {
  public:
    [[nodiscard]] bool IsAvailable() const override { return false; }
    void Show(const Notice& /*notice*/) override {}
};
