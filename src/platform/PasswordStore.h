// The desktop's store for passwords. Every operation is answered later, from the event loop, once and by its deadline
// at the latest, whatever the store does meanwhile; a locked store may never answer by itself.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

struct PasswordAnswer {
    enum class Outcome {
        Done,
        NotStored, ///< of this key there is none
        NoStore,   ///< nothing on this machine, or in this session, keeps passwords
        Silent,    ///< no answer by the deadline
        Refused
    };
    Outcome outcome = Outcome::Done;
    QByteArray password; ///< UTF-8, what Read found
    QString reason;      ///< of a refusal, in the store's words
};

class PasswordStore {
  public:
    /// Who asks, how long the answer may take, and what becomes of it. Nothing is called once `receiver` has gone.
    struct Question {
        QObject* receiver;
        std::chrono::milliseconds deadline;
        std::function<void(const PasswordAnswer&)> answered;
    };
    virtual ~PasswordStore() = default;

    virtual void Read(const QString& key, const Question& question) = 0;
    /// Takes the place of what is stored under the key.
    virtual void Write(const QString& key, const QByteArray& password, const Question& question) = 0;
    virtual void Remove(const QString& key, const Question& question) = 0;

  protected:
    /// Answers what is known at once, but not during the call.
    static void answerLater(const Question& question, const PasswordAnswer& answer) {
        QMetaObject::invokeMethod(
            question.receiver, [answered = question.answered, answer] { answered(answer); }, Qt::QueuedConnection);
    }
};

class NoPasswordStore final : public PasswordStore {
  public:
    void Read(const QString& /*key*/, const Question& question) override { none(question); }
    void Write(const QString& /*key*/, const QByteArray& /*password*/, const Question& question) override {
        none(question);
    }
    void Remove(const QString& /*key*/, const Question& question) override { none(question); }

  private:
    static void none(const Question& question) { answerLater(question, {PasswordAnswer::Outcome::NoStore, {}, {}}); }
};
