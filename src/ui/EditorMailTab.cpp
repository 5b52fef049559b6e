#include "EditorMailTab.h"

#include "ActivityFile.h"
#include "DesktopMailClient.h"
#include "EditorFields.h"
#include "FormParts.h"
#include "FormServices.h"
#include "Prompter.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace {

constexpr std::array contents{SwitchRow{ActivityField::AttachAction, "chkAttachAction", Text::AttachAction},
                              SwitchRow{ActivityField::SendLastFile, "chkSendLastFile", Text::SendLastFile},
                              SwitchRow{ActivityField::ComputerName, "chkComputerName", Text::AttachComputerName},
                              SwitchRow{ActivityField::AttachLogFile, "chkAttachLogFile", Text::AttachLog}};

enum Row { Sender, Recipient, Copies, Subject, MessageText, Contents, Host, Note };

} // namespace

KnownTexts KnownTexts::Of(const ActivityFile& file) {
    KnownTexts known;
    known.names = file.Names();
    for (const QString& name : known.names) {
        known.senders.append(file.Read(name, ActivityField::Sender));
        known.recipients.append(file.Read(name, ActivityField::Recipient));
        known.copies.append(file.Read(name, ActivityField::Cc));
    }
    for (QStringList* list : {&known.senders, &known.recipients, &known.copies}) {
        list->removeAll(QString());
        list->removeDuplicates();
        list->sort(Qt::CaseInsensitive);
    }
    return known;
}

EditorMailTab::EditorMailTab(const EditorServices& services, const KnownTexts& known)
    : m_services(services), m_hasMailProgram(services.desktopMail.IsMailHandler()),
      chkMail(FormParts::CheckBox("chkMail", services.texts[Text::NotifyByMail])),
      cmdLoadMailFromOutlook(new QPushButton(services.texts[Text::LoadContacts])), m_mail(new QWidget),
      m_grid(new QGridLayout(m_mail)), cboSender(new ctlAutoCompleteCombo), cboRecipient(new ctlAutoCompleteCombo),
      cboCC(new ctlAutoCompleteCombo), chkUseSMTP(FormParts::CheckBox("chkUseSMTP", services.texts[Text::UseSmtpHost])),
      txtSMTPHost(new QLineEdit), cmdSendTestMail(new QPushButton(services.texts[Text::TestMailSend])),
      lblNoMailProgram(new QLabel(services.texts[Text::NoMailProgram])) {
    FormParts::Name(*cmdLoadMailFromOutlook, "cmdLoadMailFromOutlook", services.texts[Text::LoadContacts]);
    if (!m_hasMailProgram)
        cmdLoadMailFromOutlook->setToolTip(services.texts[Text::NoContacts]);
    auto* top = new QHBoxLayout;
    top->addWidget(chkMail, 1);
    top->addWidget(cmdLoadMailFromOutlook);
    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(m_mail, 1);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(12);
    m_bindings.Switch(*chkMail, ActivityField::SendMail);
    buildAddresses(known);
    buildText();
    buildContents();
    buildHost();
    connect(chkMail, &QCheckBox::toggled, this, &EditorMailTab::followSwitches);
    connect(cmdSendTestMail, &QPushButton::clicked, this, &EditorMailTab::sendTest);
    connect(chkUseSMTP, &QCheckBox::toggled, this, &EditorMailTab::followSwitches);
    connect(cmdLoadMailFromOutlook, &QPushButton::clicked, this, &EditorMailTab::loadContacts);
    followSwitches();
}

void EditorMailTab::buildAddresses(const KnownTexts& known) {
    const auto add = [this](ctlAutoCompleteCombo& combo, const char* name, Text text, Row row, ActivityField field,
                            const QStringList& offers) {
        combo.setObjectName(QLatin1String(name));
        combo.Offer(offers);
        m_grid->addWidget(FormParts::Label(m_services.texts[text], combo), row, 0);
        m_grid->addWidget(&combo, row, 1);
        m_bindings.Text(combo, field);
    };
    add(*cboSender, "cboSender", Text::Sender, Sender, ActivityField::Sender, known.senders);
    add(*cboRecipient, "cboRecipient", Text::Recipient, Recipient, ActivityField::Recipient, known.recipients);
    add(*cboCC, "cboCC", Text::CopyTo, Copies, ActivityField::Cc, known.copies);
}

void EditorMailTab::buildText() {
    auto* txtSubject = new QLineEdit;
    auto* txtMessage = new QPlainTextEdit;
    txtSubject->setObjectName(QStringLiteral("txtSubject"));
    txtMessage->setObjectName(QStringLiteral("txtMessage"));
    txtMessage->setTabChangesFocus(true);
    txtMessage->setMinimumHeight(4 * txtMessage->fontMetrics().lineSpacing());
    m_grid->addWidget(FormParts::Label(m_services.texts[Text::Subject], *txtSubject), Subject, 0);
    m_grid->addWidget(txtSubject, Subject, 1);
    m_grid->addWidget(FormParts::Label(m_services.texts[Text::MessageText], *txtMessage), MessageText, 0, Qt::AlignTop);
    m_grid->addWidget(txtMessage, MessageText, 1);
    m_grid->setRowStretch(MessageText, 1);
    m_bindings.Text(*txtSubject, ActivityField::Subject);
    m_bindings.Text(*txtMessage, ActivityField::Message);
}

void EditorMailTab::buildContents() {
    auto* boxes = new QGridLayout;
    boxes->setHorizontalSpacing(24);
    int at = 0;
    for (const SwitchRow& row : contents) {
        boxes->addWidget(m_bindings.NewSwitch(row, m_services.texts), at / 2, at % 2);
        ++at;
    }
    boxes->setColumnStretch(1, 1);
    m_grid->addLayout(boxes, Contents, 1);
}

void EditorMailTab::buildHost() {
    FormParts::Name(*txtSMTPHost, "txtSMTPHost", m_services.texts[Text::UseSmtpHost]);
    txtSMTPHost->setPlaceholderText(m_services.texts[Text::MailHostOfRecipient]);
    lblNoMailProgram->setObjectName(QStringLiteral("lblNoMailProgram"));
    lblNoMailProgram->setTextFormat(Qt::PlainText);
    lblNoMailProgram->setWordWrap(true);
    // Keeps its space while it is hidden, so that nothing jumps.
    QSizePolicy policy = lblNoMailProgram->sizePolicy();
    policy.setRetainSizeWhenHidden(!m_hasMailProgram);
    lblNoMailProgram->setSizePolicy(policy);
    auto* host = new QHBoxLayout;
    host->setSpacing(12);
    host->addWidget(chkUseSMTP);
    host->addWidget(txtSMTPHost, 1);
    FormParts::Name(*cmdSendTestMail, "cmdSendTestMail", m_services.texts[Text::TestMailSend]);
    host->addWidget(cmdSendTestMail);
    m_grid->addLayout(host, Host, 0, 1, 2);
    m_grid->addWidget(lblNoMailProgram, Note, 0, 1, 2);
    m_bindings.Switch(*chkUseSMTP, ActivityField::UseSmtp);
    m_bindings.Text(*txtSMTPHost, ActivityField::SmtpHost);
}

void EditorMailTab::Show(const ActivityRecord& record) {
    m_shown = record;
    m_bindings.Show(record);
    followSwitches();
}

void EditorMailTab::loadContacts() {
    const std::optional<QStringList> contacts = m_services.desktopMail.Contacts();
    if (!contacts) {
        const StringTable& texts = m_services.texts;
        m_services.prompter.Ask({texts[Text::ContactsUnreadable] + QStringLiteral("\n\n") + texts[Text::EnterRecipient],
                                 texts[Text::ContactsTitle], MessageIcon::Critical, MessageButtons::Ok});
        return;
    }
    for (ctlAutoCompleteCombo* combo : {cboRecipient, cboCC}) {
        combo->Forget();
        combo->Offer({QString()});
    }
    for (ctlAutoCompleteCombo* combo : {cboSender, cboRecipient, cboCC})
        combo->Offer(*contacts);
}

void EditorMailTab::sendTest() {
    ActivityRecord record = m_shown; // texts that were not edited are not stored
    Store(record);
    const QString recipient = record.Text(ActivityField::Recipient);
    // Queued: a box lets events run, and the mail is still in the middle of its end.
    m_test = m_services.sendTestMail(record, [this, recipient](const QString& failure) {
        QMetaObject::invokeMethod(
            this, [this, recipient, failure] { tellOutcome(recipient, failure); }, Qt::QueuedConnection);
    });
    followSwitches();
}

void EditorMailTab::tellOutcome(const QString& recipient, const QString& failure) {
    if (!m_test) // given up meanwhile
        return;
    m_test.reset();
    followSwitches();
    const StringTable& texts = m_services.texts;
    const bool isTaken = failure.isEmpty();
    m_services.prompter.Ask({isTaken ? texts[Text::TestMailTaken].arg(modForeignText::OneLine(recipient))
                                     : QString(texts[Text::TestMailNotSent] + QStringLiteral("\n\n") + failure),
                             FormParts::Spoken(texts[Text::TestMailSend]),
                             isTaken ? MessageIcon::Information : MessageIcon::Exclamation, MessageButtons::Ok});
}

void EditorMailTab::followSwitches() {
    const bool mails = chkMail->isChecked();
    m_mail->setEnabled(mails);
    cmdLoadMailFromOutlook->setEnabled(mails && m_hasMailProgram);
    txtSMTPHost->setEnabled(chkUseSMTP->isChecked());
    cmdSendTestMail->setEnabled(!m_test && chkUseSMTP->isChecked());
    cmdSendTestMail->setText(m_services.texts[m_test ? Text::SendingTestMail : Text::TestMailSend]);
    lblNoMailProgram->setVisible(mails && !chkUseSMTP->isChecked() && !m_hasMailProgram);
}
