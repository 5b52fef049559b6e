// A line for a path with the buttons that fill it: a picker, and for some a menu of recent choices. The row owns the
// buttons and lays the line out; they are enabled as the line is.
#pragma once

#include "RecentPaths.h"
#include <QWidget>
#include <functional>
#include <optional>

class QHBoxLayout;
class QLineEdit;
class QToolButton;

class PathRow final : public QWidget {
    Q_OBJECT
  public:
    /// Called for a path when the button is pressed; nullopt leaves the old one.
    using Pick = std::function<std::optional<QString>(const QString& present)>;

    struct Button {
        const char* objectName;
        QString caption;
    };

    /// A line for a folder: completes folders while one types, and takes a folder that is dropped on it.
    [[nodiscard]] static QLineEdit* FolderLine();

    PathRow(QLineEdit* line, const Button& picker, const Pick& pick);

    /// `recent` must outlive the row.
    void AddRecent(const Button& button, const RecentPaths& recent);

    [[nodiscard]] QLineEdit& Line() const { return *m_line; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QToolButton* addButton(const Button& button, const QString& sign);
    void followLine();
    QLineEdit* m_line;
    QHBoxLayout* m_layout;
};
