// Finds the password of one user at one mail server: in the credential "kalvenor.netrc" that systemd hands a service,
// in the password file, in the desktop's store, in this order. The first that has it wins; one that cannot be read ends
// the search. It never gives the password of another user or host.
#pragma once

#include "PasswordStore.h"

class StringTable;

class MailPassword final : public QObject {
    Q_OBJECT
  public:
    struct Wanted {
        QString host;
        QString user;
        QString file; ///< the password file; empty: none
        std::chrono::milliseconds deadline;
    };

    MailPassword(PasswordStore& store, const StringTable& texts) : m_store(store), m_texts(texts) {}

    /// One of the signals follows, never during the call. A search still under way is dropped without a signal.
    void Begin(const Wanted& wanted);
    void Cancel();

    /// The key of a password in the desktop's store.
    [[nodiscard]] static QString KeyOf(const QString& host, const QString& user);

    /// Why the store did not do what it was asked; "" when it did, or has nothing under the key.
    [[nodiscard]] static QString Complaint(const PasswordAnswer& answer, const StringTable& texts);

  Q_SIGNALS:
    void Found(const QString& password);
    void Failed(const QString& reason);

  private:
    /// False when neither file has it; otherwise the signal is on its way.
    [[nodiscard]] bool lookIntoFiles(const Wanted& wanted);
    [[nodiscard]] QString failure(const PasswordAnswer& answer, const Wanted& wanted) const;
    void finish(void (MailPassword::*outcome)(const QString&), const QString& text);

    PasswordStore& m_store;
    const StringTable& m_texts;
    std::unique_ptr<QObject> m_search; ///< the present one; what arrives for an earlier one has no receiver
};
