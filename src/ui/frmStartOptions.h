// The dialog "General options". Takes the options as values and gives them back. "Save" creates a log file that does
// not exist yet, and brings the start with the user's session in line; a log in a folder that does not exist keeps the
// dialog open.
#pragma once

#include <QDialog>
#include <filesystem>
#include <vector>

class Autostart;
class FilePicker;
class OwnFiles;
class Prompter;
class QCheckBox;
class QDialogButtonBox;
class QGroupBox;
class QLineEdit;
class SettingsStore;
class StringTable;

class frmStartOptions final : public QDialog {
    Q_OBJECT
  public:
    struct Options {
        bool startWithWindows = false;
        bool minToTray = false;
        bool shutdown = false;
        bool startUp = false;
        bool logfileRefresh = false;
        bool exitAlert = true;
        bool stopIfFolderNotExist = true;
        QString loggingPath; ///< "" = no application log
    };
    struct Parts {
        OwnFiles& files;
        SettingsStore& settings;
        Autostart& autostart;
        Prompter& prompter;
        FilePicker& picker;
        const StringTable& texts;
        std::filesystem::path program; ///< what starts with the session
    };

    /// An entry for the user's session that exists already checks chkStartWithWindows, whatever the option says.
    frmStartOptions(const Parts& parts, const Options& options, QWidget* parent = nullptr);

    /// What the controls show. Of use only when the dialog ended accepted, which is "Save".
    [[nodiscard]] Options Values() const;

    /// Makes or removes the entry for the user's session, as chkStartWithWindows says.
    void CreateAutoStart();

  Q_SIGNALS:
    void HelpWanted();

  private:
    QGroupBox* buildSwitches(const Options& options);
    QGroupBox* buildLogFile(const Options& options);
    QDialogButtonBox* buildButtons();
    void save();
    void selectFile();
    [[nodiscard]] bool acceptsLogPath();

    Parts m_parts;
    std::vector<QCheckBox*> m_switches; ///< in the order of their table
    QLineEdit* m_loggingPath = nullptr;
};
