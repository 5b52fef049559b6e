// The commands on single activities: new, properties, delete, clear all, and showing their folders. Owns nothing; the
// editor and the file manager are handed in. They never throw: the user is told of what fails.
#pragma once

#include <QString>

class ActivityEditor;
class ActivityListView;
class Program;

class ActivityCommands final {
  public:
    ActivityCommands(Program& program, ActivityListView& view, ActivityEditor& editor)
        : m_program(program), m_view(view), m_editor(editor) {}

    /// `sourceFolder` is filled in where it is not empty.
    void Add(const QString& sourceFolder = {});
    void Properties(const QString& name);
    void Delete(const QString& name);
    void ClearAll();

  private:
    void edit(const QString& name, const QString& sourceFolder);

    Program& m_program;
    ActivityListView& m_view;
    ActivityEditor& m_editor;
};
