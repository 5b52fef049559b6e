#include "MailOptionsPage.h"

#include "FilePicker.h"
#include "FormParts.h"
#include "MailPassword.h"
#include "PathRow.h"
#include "Prompter.h"
#include "StringTable.h"
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <array>

namespace {

constexpr std::chrono::seconds patience{30}; // somebody may have to unlock the store

struct Choice {
    MailSecurity security;
    Text caption;
    int port; ///< that belongs to it (RFC 5321, RFC 6409, RFC 8314)
};
constexpr std::array<Choice, 3> choices{{{MailSecurity::None, Text::MailEncryptionNone, 25},
                                         {MailSecurity::StartTls, Text::MailEncryptionStartTls, 587},
                                         {MailSecurity::Tls, Text::MailEncryptionTls, 465}}};

const Choice* choiceOf(int row) {
    return row >= 0 && row < static_cast<int>(choices.size()) ? &choices.at(static_cast<std::size_t>(row)) : nullptr;
}

} // namespace

MailOptionsPage::MailOptionsPage(const FormServices& services, PasswordStore& passwords, const MailOptions& options)
    : m_services(services), m_passwords(passwords), m_stored(options), cboMailSecurity(new QComboBox),
      spnMailPort(new QSpinBox), txtMailUser(new QLineEdit(options.user)), txtMailHost(new QLineEdit(options.host)),
      txtMailPassword(new QLineEdit), cmdForgetPassword(new QPushButton(services.texts[Text::MailForgetPassword])),
      lblPasswordStore(FormParts::PlainText("lblPasswordStore", {})) {
    auto* all = new QVBoxLayout(this);
    all->setSpacing(12);
    all->addWidget(buildServer(options));
    all->addWidget(buildLogin(options));
    all->addStretch();
}

QGroupBox* MailOptionsPage::buildServer(const MailOptions& options) {
    const StringTable& texts = m_services.texts;
    QGroupBox* group = FormParts::Group(texts[Text::MailServerGroup]);
    cboMailSecurity->setObjectName(QStringLiteral("cboMailSecurity"));
    spnMailPort->setObjectName(QStringLiteral("spnMailPort"));
    for (const Choice& choice : choices)
        cboMailSecurity->addItem(texts[choice.caption]);
    // What is stored and no such number chooses none of them.
    cboMailSecurity->setCurrentIndex(options.security == MailSecurity::Unknown ? -1
                                                                               : static_cast<int>(options.security));
    spnMailPort->setRange(1, 65535);
    spnMailPort->setValue(options.port);
    const Choice* const chosen = choiceOf(cboMailSecurity->currentIndex());
    m_portFollows = chosen != nullptr && chosen->port == options.port;
    connect(cboMailSecurity, &QComboBox::currentIndexChanged, this, &MailOptionsPage::followEncryption);
    connect(spnMailPort, &QSpinBox::valueChanged, this, [this] {
        m_portFollows = false;
        m_portIsEdited = true;
    });
    PathRow* caFile = fileRow("txtCaFile", "cmdCaFile", Text::SelectCaFile, options.caFile);
    m_caFile = &caFile->Line();
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    grid->addWidget(FormParts::Label(texts[Text::MailEncryption], *cboMailSecurity), 0, 0);
    grid->addWidget(cboMailSecurity, 0, 1);
    grid->addWidget(FormParts::Label(texts[Text::MailPort], *spnMailPort), 0, 2);
    grid->addWidget(spnMailPort, 0, 3);
    grid->addWidget(FormParts::Label(texts[Text::MailCaFile], *m_caFile), 1, 0);
    grid->addWidget(caFile, 1, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    return group;
}

QGroupBox* MailOptionsPage::buildLogin(const MailOptions& options) {
    const StringTable& texts = m_services.texts;
    QGroupBox* group = FormParts::Group(texts[Text::MailLoginGroup]);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    int row = 0;
    const auto add = [&](QLineEdit& line, const char* name, Text caption) {
        line.setObjectName(QLatin1String(name));
        grid->addWidget(FormParts::Label(texts[caption], line), row, 0);
        grid->addWidget(&line, row++, 1);
    };
    add(*txtMailUser, "txtMailUser", Text::MailUser);
    add(*txtMailHost, "txtMailHost", Text::MailLoginHost);
    add(*txtMailPassword, "txtMailPassword", Text::MailPassword);
    txtMailUser->setPlaceholderText(texts[Text::MailUserNone]);
    txtMailPassword->setEchoMode(QLineEdit::Password);
    FormParts::Name(*cmdForgetPassword, "cmdForgetPassword", texts[Text::MailForgetPassword]);
    cmdForgetPassword->setAutoDefault(false);
    cmdForgetPassword->setEnabled(false);
    grid->addWidget(cmdForgetPassword, row - 1, 2);
    PathRow* file = fileRow("txtPasswordFile", "cmdPasswordFile", Text::SelectPasswordFile, options.passwordFile);
    m_passwordFile = &file->Line();
    grid->addWidget(FormParts::Label(texts[Text::MailPasswordFile], *m_passwordFile), row, 0);
    grid->addWidget(file, row++, 1, 1, 2);
    lblPasswordStore->setWordWrap(true);
    lblPasswordStore->setMinimumHeight(3 * lblPasswordStore->fontMetrics().lineSpacing()); // so that nothing jumps
    lblPasswordStore->setAlignment(Qt::AlignTop);
    lblPasswordStore->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(lblPasswordStore, row, 0, 1, 3);
    connect(txtMailUser, &QLineEdit::editingFinished, this, &MailOptionsPage::askStore);
    connect(txtMailHost, &QLineEdit::editingFinished, this, &MailOptionsPage::askStore);
    connect(cmdForgetPassword, &QPushButton::clicked, this, &MailOptionsPage::forget);
    return group;
}

PathRow* MailOptionsPage::fileRow(const char* name, const char* button, Text title, const QString& path) {
    auto* line = new QLineEdit(path);
    line->setObjectName(QLatin1String(name));
    return new PathRow(line, {button, m_services.texts[title]}, [this, title](const QString& present) {
        const StringTable& texts = m_services.texts;
        return m_services.picker.OpenFile({texts[title], {texts[Text::AllFiles] + u" (*)"}, {}, present});
    });
}

void MailOptionsPage::followEncryption() {
    const Choice* const chosen = choiceOf(cboMailSecurity->currentIndex());
    if (!m_portFollows || chosen == nullptr)
        return;
    spnMailPort->setValue(chosen->port);
    m_portFollows = true;
}

MailOptions MailOptionsPage::Values() const {
    const Choice* const chosen = choiceOf(cboMailSecurity->currentIndex());
    // What the controls cannot show stays as it is until somebody chooses.
    return {.security = chosen != nullptr ? chosen->security : m_stored.security,
            .port = m_portIsEdited ? spnMailPort->value() : m_stored.port,
            .user = txtMailUser->text().trimmed(),
            .host = txtMailHost->text().trimmed(),
            .passwordFile = m_passwordFile->text().trimmed(),
            .caFile = m_caFile->text().trimmed()};
}

QString MailOptionsPage::NewPassword() const {
    return txtMailPassword->text();
}

bool MailOptionsPage::IsComplete() const {
    const MailOptions values = Values();
    return NewPassword().isEmpty() || (!values.user.isEmpty() && !values.host.isEmpty());
}

void MailOptionsPage::LeadToMissing() {
    (Values().user.isEmpty() ? txtMailUser : txtMailHost)->setFocus();
}

void MailOptionsPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_question)
        askStore();
}

void MailOptionsPage::askStore() {
    const MailOptions values = Values();
    m_question = std::make_unique<QObject>();
    showAnswer({}, {});
    if (values.user.isEmpty() || values.host.isEmpty())
        return;
    const auto answered = [this](const PasswordAnswer& answer) {
        const StringTable& texts = m_services.texts;
        const bool isStored = answer.outcome == PasswordAnswer::Outcome::Done;
        const QString complaint = MailPassword::Complaint(answer, texts);
        showAnswer(texts[isStored ? Text::MailPasswordStored : Text::MailPasswordMissing],
                   complaint.isEmpty() ? complaint : texts[Text::MailUsePasswordFile].arg(complaint));
        cmdForgetPassword->setEnabled(isStored);
    };
    m_passwords.Read(MailPassword::KeyOf(values.host, values.user),
                     {.receiver = m_question.get(), .deadline = patience, .answered = answered});
}

void MailOptionsPage::showAnswer(const QString& placeholder, const QString& complaint) {
    cmdForgetPassword->setEnabled(false);
    txtMailPassword->setPlaceholderText(complaint.isEmpty() ? placeholder : QString());
    lblPasswordStore->setText(complaint);
}

void MailOptionsPage::forget() {
    const MailOptions values = Values();
    cmdForgetPassword->setEnabled(false);
    m_question = std::make_unique<QObject>();
    const auto answered = [this](const PasswordAnswer& answer) {
        const StringTable& texts = m_services.texts;
        const QString complaint = MailPassword::Complaint(answer, texts);
        QMetaObject::invokeMethod(this, &MailOptionsPage::askStore, Qt::QueuedConnection);
        if (!complaint.isEmpty())
            m_services.prompter.Ask({texts[Text::MailPasswordNotStored] + u'\n' + complaint, texts[Text::Error],
                                     MessageIcon::Exclamation, MessageButtons::Ok});
    };
    m_passwords.Remove(MailPassword::KeyOf(values.host, values.user),
                       {.receiver = m_question.get(), .deadline = patience, .answered = answered});
}
