#include "LinuxServices.h"
#include "SessionBus.h"

#include <QTimer>
#include <qt6keychain/keychain.h>

namespace {

const QString service = QStringLiteral("Kalvenor");

PasswordAnswer::Outcome outcomeOf(QKeychain::Error error) {
    switch (error) {
    case QKeychain::NoError:
        return PasswordAnswer::Outcome::Done;
    case QKeychain::EntryNotFound:
        return PasswordAnswer::Outcome::NotStored;
    case QKeychain::NoBackendAvailable:
    case QKeychain::NotImplemented:
        return PasswordAnswer::Outcome::NoStore;
    default:
        return PasswordAnswer::Outcome::Refused;
    }
}

class KeychainPasswordStore final : public PasswordStore {
  public:
    void Read(const QString& key, const Question& question) override {
        ask(std::make_unique<QKeychain::ReadPasswordJob>(service), key, question);
    }
    void Write(const QString& key, const QByteArray& password, const Question& question) override {
        auto job = std::make_unique<QKeychain::WritePasswordJob>(service);
        job->setTextData(QString::fromUtf8(password));
        ask(std::move(job), key, question);
    }
    void Remove(const QString& key, const Question& question) override {
        ask(std::make_unique<QKeychain::DeletePasswordJob>(service), key, question);
    }

  private:
    static void ask(std::unique_ptr<QKeychain::Job> job, const QString& key, const Question& question);
};

/// The library deletes each job when it is over. One whose deadline has passed must live until then: the store's answer
/// may still come, and jobs behind it wait for it.
void KeychainPasswordStore::ask(std::unique_ptr<QKeychain::Job> job, const QString& key, const Question& question) {
    if (!HasSessionBus())
        return answerLater(question, {PasswordAnswer::Outcome::NoStore, {}, {}});
    auto* const deadline = new QTimer(question.receiver);
    deadline->setSingleShot(true);
    const auto answer = [answered = question.answered, deadline](const PasswordAnswer& found) {
        deadline->deleteLater();
        answered(found);
    };
    QKeychain::Job* const asked = job.release();
    QObject::connect(deadline, &QTimer::timeout, deadline, [answer, asked, deadline] {
        asked->disconnect(deadline);
        answer({PasswordAnswer::Outcome::Silent, {}, {}});
    });
    QObject::connect(asked, &QKeychain::Job::finished, deadline, [answer, deadline](QKeychain::Job* over) {
        deadline->stop();
        PasswordAnswer found{outcomeOf(over->error()), {}, over->errorString()};
        if (const auto* read = qobject_cast<QKeychain::ReadPasswordJob*>(over); read != nullptr)
            found.password = read->textData().toUtf8();
        answer(found);
    });
    asked->setKey(key);
    deadline->start(question.deadline);
    asked->start();
}

} // namespace

std::unique_ptr<PasswordStore> MakePasswordStore() {
    return std::make_unique<KeychainPasswordStore>();
}
