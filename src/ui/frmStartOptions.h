// The dialog "General options". Takes the options as values and gives them back. "Save" creates a missing log file and
// updates the autostart entry; a log in a folder that does not exist keeps the dialog open.
#pragma once

#include "FormServices.h"
#include <QDialog>
#include <filesystem>
#include <vector>

class Autostart;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGroupBox;
class QLineEdit;

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
        bool summaryInLog = false;
        bool summaryInMail = false;
        bool countByTheClock = false;
        bool runMissed = false;
        int notify = 0;        ///< the row of cboNotify
        bool canNotify = true; ///< else that row is hidden
    };
    /// `program` is what starts with the session. An entry for it that exists already checks chkStartWithWindows,
    /// whatever the option says.
    frmStartOptions(const FormServices& services, Autostart& autostart, std::filesystem::path program,
                    const Options& options, QWidget* parent = nullptr);

    /// What the controls show. Valid after "Save", when the dialog has ended accepted.
    [[nodiscard]] Options Values() const;

    /// Makes or removes the entry for the user's session, as chkStartWithWindows says.
    void CreateAutoStart();

  Q_SIGNALS:
    void HelpWanted();

  private:
    QGroupBox* buildSwitches(const Options& options);
    QGroupBox* buildLogFile(const Options& options);
    QGroupBox* buildSummary(const Options& options);
    QGroupBox* buildSchedule(const Options& options);
    QDialogButtonBox* buildButtons();
    void save();
    void selectFile();
    [[nodiscard]] bool acceptsLogPath();

    FormServices m_services;
    Autostart& m_autostart;
    std::filesystem::path m_program;
    std::vector<QCheckBox*> m_switches; ///< in the order of their table
    QLineEdit* m_loggingPath = nullptr;
    QCheckBox* m_summaryInLog = nullptr;
    QCheckBox* m_summaryInMail = nullptr;
    QComboBox* m_notify = nullptr;
    QCheckBox* m_countByTheClock = nullptr;
    QCheckBox* m_runMissed = nullptr;
};
