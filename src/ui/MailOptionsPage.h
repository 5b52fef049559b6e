// The page "E-mail" of the general options: encryption and login of the mail client. Takes the options as a value and
// gives them back. Never shows a password; asks the desktop's store whether it has one, and at the user's wish has it
// forget it.
#pragma once

#include "FormServices.h"
#include "MailOptions.h"
#include "Text.h"
#include <QWidget>

class PasswordStore;
class PathRow;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

class MailOptionsPage final : public QWidget {
    Q_OBJECT
  public:
    MailOptionsPage(const FormServices& services, PasswordStore& passwords, const MailOptions& options);

    /// What the controls show.
    [[nodiscard]] MailOptions Values() const;

    /// A password that was typed, for the user and the host of Values(); "" leaves the one that is stored.
    [[nodiscard]] QString NewPassword() const;

    /// Whether NewPassword has a user and a host.
    [[nodiscard]] bool IsComplete() const;
    /// To the field that IsComplete misses.
    void LeadToMissing();

  protected:
    /// The store is asked when somebody looks: it may be locked, and ask in its turn.
    void showEvent(QShowEvent* event) override;

  private:
    QGroupBox* buildServer(const MailOptions& options);
    QGroupBox* buildLogin(const MailOptions& options);
    PathRow* fileRow(const char* name, const char* button, Text title, const QString& path);
    void followEncryption();
    void askStore();
    void forget();
    void showAnswer(const QString& placeholder, const QString& complaint);

    FormServices m_services;
    PasswordStore& m_passwords;
    MailOptions m_stored;
    bool m_portFollows = false; ///< nobody has chosen the port
    bool m_portIsEdited = false;
    QComboBox* cboMailSecurity;
    QSpinBox* spnMailPort;
    QLineEdit* txtMailUser;
    QLineEdit* txtMailHost;
    QLineEdit* txtMailPassword;
    QPushButton* cmdForgetPassword;
    QLabel* lblPasswordStore;
    QLineEdit* m_passwordFile = nullptr;
    QLineEdit* m_caFile = nullptr;
    std::unique_ptr<QObject> m_question; ///< what is asked of the store; an earlier answer has no receiver
};
