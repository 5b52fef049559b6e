// A line for the path of a folder: completes folders while one types, and takes a folder that is dropped on it. Owns
// its text; a path that leads nowhere is just a text.
#pragma once

#include <QLineEdit>

class QFileSystemModel;

class FolderEdit final : public QLineEdit {
    Q_OBJECT
  public:
    explicit FolderEdit(QWidget* parent = nullptr);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void offerFolders(const QString& typed);
    QFileSystemModel* m_folders = nullptr;
};
