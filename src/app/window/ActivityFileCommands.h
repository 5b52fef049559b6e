// Import and export: another activity file becomes the current one. A cancelled or failed command keeps the file that
// was in use; a failure is shown in a box.
#pragma once

#include "RecentPaths.h"
#include <QObject>
#include <QString>

class FilePicker;
class Program;
enum class Text;

class ActivityFileCommands final : public QObject {
    Q_OBJECT
  public:
    ActivityFileCommands(Program& program, FilePicker& picker);

    /// mnuImportActivities: asks, lets the user choose a file and works on it from then on.
    void Import();
    /// The same for a file that is already chosen.
    void ImportFile(const QString& path);

    /// mnuExportActivities: saves the activities under another name and works on that file from then on.
    void Export();

    /// The file that the program was started with.
    void RememberStart();
    /// The files that were opened last.
    [[nodiscard]] RecentPaths& Last() { return m_last; }

  Q_SIGNALS:
    /// For the status bar; "" ends it.
    void Progress(const QString& text);

  private:
    [[nodiscard]] bool mayLoseActivities();
    void open(const QString& path);
    [[nodiscard]] QString startFolder() const;
    void remember(const QString& path);
    void tell(Text text, Text title);

    Program& m_program;
    FilePicker& m_picker;
    RecentPaths m_last;
};
