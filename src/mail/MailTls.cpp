#include "MailTls.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include "modRegularFile.h"

#include <QSslCertificate>
#include <QSslSocket>
#include <QStringList>

namespace {

constexpr qint64 largestCaFile = 4 << 20; // bytes

QString readIssuers(const QString& path, const StringTable& texts, QList<QSslCertificate>& issuers) {
    QFile file;
    if (const std::error_code error = modRegularFile::Open(modNativePath::FromText(path), file))
        return modForeignText::OfError(error);
    issuers = QSslCertificate::fromData(file.read(largestCaFile), QSsl::Pem);
    return issuers.isEmpty() ? texts[Text::MailCaFileEmpty] : QString();
}

} // namespace

MailTls::Rules MailTls::Read(const QString& caFile, const StringTable& texts) {
    if (!QSslSocket::supportsSsl())
        return {{}, texts[Text::MailNoTls]};
    Rules rules{QSslConfiguration::defaultConfiguration(), {}};
    rules.configuration.setProtocol(QSsl::TlsV1_2OrLater);
    rules.configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (caFile.isEmpty())
        return rules;
    QList<QSslCertificate> issuers;
    const QString complaint = readIssuers(caFile, texts, issuers);
    if (complaint.isEmpty())
        rules.configuration.setCaCertificates(issuers);
    else
        rules.failure = texts[Text::MailCaFileUnusable].arg(modForeignText::OneLine(caFile), complaint);
    return rules;
}

QString MailTls::Refusal(const QList<QSslError>& errors, const QString& host, const StringTable& texts) {
    QStringList words;
    for (const QSslError& error : errors)
        words.append(error.errorString());
    words.removeDuplicates();
    return texts[Text::MailCertificateRefused].arg(host, modForeignText::FromServer(words.join(QStringLiteral("; "))));
}
