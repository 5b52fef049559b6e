// The one way to ask or tell the user something. Never fails: without a user it gives the safe answer (No, or OK where
// there is nothing to decide).
#pragma once

#include <QString>
#include <chrono>

enum class MessageIcon { Information, Question, Exclamation, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// One message box, text and title as plain text (never HTML).
struct Message {
    QString text;
    QString title;
    MessageIcon icon = MessageIcon::Information;
    MessageButtons buttons = MessageButtons::Ok;
    /// More than 0: the box counts the seconds down and then answers OK; at once when there is no user to cancel it.
    std::chrono::seconds countdown{0};
};

class Prompter {
  public:
    virtual ~Prompter() = default;

    /// Shows the box and waits for its answer. Events run meanwhile: hold no node, row or document pointer across it.
    virtual MessageAnswer Ask(const Message& message) = 0;
};
