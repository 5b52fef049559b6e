// The editor's fourth tab: the mail that follows a run. All its controls are disabled while the notification is off.
// Offers the addresses of the activity file and the contacts of the desktop's mail program.
#pragma once

#include "RecordBindings.h"
#include "TestMail.h"
#include <QStringList>
#include <QWidget>

class ActivityFile;
class QGridLayout;
class QLabel;
class QPushButton;
struct EditorServices;

/// What the activities of a file have already: mail addresses to choose from, and names that are taken.
struct KnownTexts {
    QStringList names; ///< as they stand in the file
    QStringList senders;
    QStringList recipients;
    QStringList copies;

    /// The addresses sorted, without doubles and empty ones.
    [[nodiscard]] static KnownTexts Of(const ActivityFile& file);
};

class EditorMailTab final : public QWidget {
    Q_OBJECT
  public:
    EditorMailTab(const EditorServices& services, const KnownTexts& known);

    void Show(const ActivityRecord& record);
    void Store(ActivityRecord& record) const { m_bindings.Store(record); }

    /// Gives up a test mail that is under way; its outcome is not told any more.
    void GiveUpTest() { m_test.reset(); }

  private:
    void buildAddresses(const KnownTexts& known);
    void buildText();
    void buildContents();
    void buildHost();
    void loadContacts();
    void sendTest();
    void tellOutcome(const QString& recipient, const QString& failure);
    void followSwitches();

    const EditorServices& m_services;
    bool m_hasMailProgram;
    QCheckBox* chkMail;
    QPushButton* cmdLoadMailFromOutlook;
    QWidget* m_mail;
    QGridLayout* m_grid;
    ctlAutoCompleteCombo* cboSender;
    ctlAutoCompleteCombo* cboRecipient;
    ctlAutoCompleteCombo* cboCC;
    QCheckBox* chkUseSMTP;
    QLineEdit* txtSMTPHost;
    QPushButton* cmdSendTestMail;
    QLabel* lblNoMailProgram;
    std::unique_ptr<TestMail> m_test; ///< under way
    RecordBindings m_bindings;
    ActivityRecord m_shown;
};
