// Help's "Create an example": two folders with a little text in a folder that the user chooses, and the activity that
// copies between them. What is there already is left as it is; a failure is shown in a box, and then no activity is
// added.
#pragma once

#include <filesystem>
#include <system_error>

class ActivityCommands;
class ActivityListView;
class FilePicker;
class Program;

class ExampleCommand final {
  public:
    ExampleCommand(Program& program, ActivityCommands& activities, ActivityListView& view, FilePicker& picker)
        : m_program(program), m_activities(activities), m_view(view), m_picker(picker) {}

    /// mnuExample. An activity of the example's name is selected instead.
    void Create();

  private:
    struct Places {
        std::filesystem::path source;
        std::filesystem::path destination;
        std::filesystem::path log;
    };
    [[nodiscard]] std::error_code make(const Places& places);

    Program& m_program;
    ActivityCommands& m_activities;
    ActivityListView& m_view;
    FilePicker& m_picker;
};
