#include "MailPassword.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modMailHost.h"
#include "modNativePath.h"
#include "modNetrc.h"
#include "modPrivateFile.h"
#include "modRegularFile.h"

namespace {

/// systemd alone decides who reads it, by rights that look wider than they are.
std::error_code readCredential(const std::filesystem::path& path, QByteArray& bytes) {
    QFile file;
    if (const std::error_code error = modRegularFile::Open(path, file))
        return error;
    bytes = file.read(modPrivateFile::LargestFile);
    return file.error() == QFileDevice::NoError ? std::error_code() : std::make_error_code(std::errc::io_error);
}

} // namespace

QString MailPassword::KeyOf(const QString& host, const QString& user) {
    return u"kalvenor:smtp:" + modMailHost::Canonical(host) + u':' + user;
}

QString MailPassword::Complaint(const PasswordAnswer& answer, const StringTable& texts) {
    switch (answer.outcome) {
    case PasswordAnswer::Outcome::Done:
    case PasswordAnswer::Outcome::NotStored:
        break;
    case PasswordAnswer::Outcome::NoStore:
        return texts[Text::NoPasswordStore];
    case PasswordAnswer::Outcome::Silent:
        return texts[Text::PasswordStoreSilent];
    case PasswordAnswer::Outcome::Refused:
        return texts[Text::PasswordStoreFailed].arg(modForeignText::FromServer(answer.reason));
    }
    return {};
}

void MailPassword::Cancel() {
    m_search.reset();
}

void MailPassword::Begin(const Wanted& wanted) {
    m_search = std::make_unique<QObject>();
    if (lookIntoFiles(wanted))
        return;
    const auto answered = [this, wanted](const PasswordAnswer& answer) {
        if (!answer.password.isEmpty())
            finish(&MailPassword::Found, QString::fromUtf8(answer.password));
        else
            finish(&MailPassword::Failed, failure(answer, wanted));
    };
    m_store.Read(KeyOf(wanted.host, wanted.user),
                 {.receiver = m_search.get(), .deadline = wanted.deadline, .answered = answered});
}

bool MailPassword::lookIntoFiles(const Wanted& wanted) {
    const auto take = [&](const std::filesystem::path& path, std::error_code error, const QByteArray& bytes) {
        if (error) {
            const bool isOpen = error == std::errc::operation_not_permitted;
            const QString shown = modForeignText::OneLine(modNativePath::ToText(path));
            finish(&MailPassword::Failed,
                   isOpen ? m_texts[Text::MailPasswordFileOpen].arg(shown)
                          : m_texts[Text::MailPasswordFileUnusable].arg(shown, modForeignText::OfError(error)));
            return true;
        }
        const QByteArray password = modNetrc::PasswordOf(bytes, modMailHost::Canonical(wanted.host), wanted.user);
        if (!password.isEmpty())
            finish(&MailPassword::Found, QString::fromUtf8(password));
        return !password.isEmpty();
    };
    QByteArray bytes;
    if (const QString folder = qEnvironmentVariable("CREDENTIALS_DIRECTORY"); !folder.isEmpty()) {
        const std::filesystem::path path = modNativePath::FromText(folder) / "kalvenor.netrc";
        const std::error_code error = readCredential(path, bytes);
        if (error != std::errc::no_such_file_or_directory && take(path, error, bytes))
            return true;
    }
    if (wanted.file.isEmpty())
        return false;
    const std::filesystem::path path = modNativePath::FromText(wanted.file);
    const std::error_code error = modPrivateFile::Read(path, bytes);
    return take(path, error, bytes);
}

QString MailPassword::failure(const PasswordAnswer& answer, const Wanted& wanted) const {
    QString complaint = Complaint(answer, m_texts);
    const bool isUnknown = !complaint.isEmpty() && answer.outcome != PasswordAnswer::Outcome::NoStore;
    if (isUnknown)
        return complaint;
    const QString missing = m_texts[Text::MailNoPassword].arg(
        modForeignText::OneLine(wanted.user), modForeignText::OneLine(modMailHost::Canonical(wanted.host)));
    return complaint.isEmpty() ? missing : QString(missing + u". " + complaint);
}

void MailPassword::finish(void (MailPassword::*outcome)(const QString&), const QString& text) {
    const auto tell = [this, outcome, text] { (this->*outcome)(text); };
    QMetaObject::invokeMethod(m_search.get(), tell, Qt::QueuedConnection);
}
