// The commands on single activities: new, properties, delete, clear all. A save that fails is shown in a box and leaves
// document, list and file as they were.
#pragma once

#include <QString>
#include <QStringList>

class ActivityEditor;
class ActivityListView;
class ActivityRecord;
class Program;
enum class Text;

class ActivityCommands final {
  public:
    ActivityCommands(Program& program, ActivityListView& view, ActivityEditor& editor)
        : m_program(program), m_view(view), m_editor(editor) {}

    /// Begins with `sourceFolder` unless it is empty.
    void Add(const QString& sourceFolder = {});
    /// Without the editor.
    void AddReady(const QString& name, const ActivityRecord& record);
    void Properties(const QString& name);
    void Delete(const QString& name);
    /// All of them after one question, in one step.
    void DeleteSelected(const QStringList& names);
    void ClearAll();

  private:
    void edit(const QString& name, const QString& sourceFolder);
    [[nodiscard]] bool save(const QString& openedName, const QString& name, const ActivityRecord& record);
    void show(const QString& name);
    [[nodiscard]] QString firstBeside(const QStringList& names) const;
    [[nodiscard]] bool mayDelete(const QString& question, Text title);

    Program& m_program;
    ActivityListView& m_view;
    ActivityEditor& m_editor;
};
