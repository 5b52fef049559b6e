#include "WindowsServices.h"

#include <wincred.h>

namespace {

struct CredentialCloser {
    void operator()(CREDENTIALW* credential) const { CredFree(credential); }
};

/// Of the call that has just failed.
PasswordAnswer failure() {
    const DWORD error = GetLastError();
    if (error == ERROR_NOT_FOUND)
        return {PasswordAnswer::Outcome::NotStored, {}, {}};
    if (error == ERROR_NO_SUCH_LOGON_SESSION)
        return {PasswordAnswer::Outcome::NoStore, {}, {}};
    const std::error_code code(static_cast<int>(error), std::system_category());
    return {PasswordAnswer::Outcome::Refused, {}, QString::fromLocal8Bit(code.message())};
}

std::wstring nameOf(const QString& key) {
    return key.toStdWString();
}

/// The calls never wait for anybody.
class CredentialPasswordStore final : public PasswordStore {
  public:
    void Read(const QString& key, const Question& question) override {
        CREDENTIALW* found = nullptr;
        if (!CredReadW(nameOf(key).c_str(), CRED_TYPE_GENERIC, 0, &found))
            return answerLater(question, failure());
        const std::unique_ptr<CREDENTIALW, CredentialCloser> credential(found);
        const auto* const bytes = reinterpret_cast<const char*>(credential->CredentialBlob);
        const QByteArray password(bytes, static_cast<qsizetype>(credential->CredentialBlobSize));
        answerLater(question, {PasswordAnswer::Outcome::Done, password, {}});
    }
    void Write(const QString& key, const QByteArray& password, const Question& question) override {
        std::wstring name = nameOf(key);
        QByteArray bytes = password;
        CREDENTIALW credential{};
        credential.Type = CRED_TYPE_GENERIC;
        credential.TargetName = name.data();
        credential.CredentialBlob = reinterpret_cast<BYTE*>(bytes.data());
        credential.CredentialBlobSize = static_cast<DWORD>(bytes.size());
        credential.Persist = CRED_PERSIST_LOCAL_MACHINE;
        const bool isWritten = CredWriteW(&credential, 0) != FALSE;
        answerLater(question, isWritten ? PasswordAnswer() : failure());
    }
    void Remove(const QString& key, const Question& question) override {
        const bool isRemoved = CredDeleteW(nameOf(key).c_str(), CRED_TYPE_GENERIC, 0) != FALSE;
        answerLater(question, isRemoved ? PasswordAnswer() : failure());
    }
};

} // namespace

std::unique_ptr<PasswordStore> MakePasswordStore() {
    return std::make_unique<CredentialPasswordStore>();
}
