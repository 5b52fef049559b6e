// The dialog "General options". Takes the options as values and gives them back. "Save" creates a missing log file and
// updates the autostart entry; a log in a folder that does not exist keeps the dialog open.
#pragma once

#include "FormServices.h"
#include "MailOptions.h"
#include "Text.h"
#include <QDialog>
#include <filesystem>
#include <vector>

class Autostart;
class MailOptionsPage;
class PasswordStore;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGroupBox;
class QLineEdit;
class QTabWidget;

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
        MailOptions mail;
    };
    /// `program` is what starts with the session. An entry for it that exists already checks chkStartWithWindows,
    /// whatever the option says.
    frmStartOptions(const FormServices& services, Autostart& autostart, std::filesystem::path program,
                    PasswordStore& passwords, const Options& options, QWidget* parent = nullptr);

    /// What the controls show. Valid after "Save", when the dialog has ended accepted.
    [[nodiscard]] Options Values() const;

    /// The password that was typed for the user and host of Values().mail; "" for none.
    [[nodiscard]] QString NewMailPassword() const;

    /// Makes or removes the entry for the user's session, as chkStartWithWindows says.
    void CreateAutoStart();

  Q_SIGNALS:
    void HelpWanted();

  private:
    void addTab(QWidget* page, const char* name, Text caption);
    QGroupBox* buildSwitches(const Options& options);
    QGroupBox* buildLogFile(const Options& options);
    QGroupBox* buildSummary(const Options& options);
    QGroupBox* buildSchedule(const Options& options);
    QDialogButtonBox* buildButtons();
    void save();
    void selectFile();
    [[nodiscard]] bool acceptsLogPath();
    [[nodiscard]] bool acceptsPassword();

    FormServices m_services;
    Autostart& m_autostart;
    std::filesystem::path m_program;
    QTabWidget* m_tabs;
    MailOptionsPage* m_mail;
    std::vector<QCheckBox*> m_switches; ///< in the order of their table
    QLineEdit* m_loggingPath = nullptr;
    QCheckBox* m_summaryInLog = nullptr;
    QCheckBox* m_summaryInMail = nullptr;
    QComboBox* m_notify = nullptr;
    QCheckBox* m_countByTheClock = nullptr;
    QCheckBox* m_runMissed = nullptr;
};
