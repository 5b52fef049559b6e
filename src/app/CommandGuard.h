// Ends a command handler whose work failed and tells the user why: no exception may reach the event loop.
#pragma once

#include "Program.h"
#include "Prompter.h"
#include "StoreError.h"

/// The system's text in a box titled "Error".
inline void TellError(Program& program, const QString& text) {
    program.Prompts().Ask({text, program.Texts()[Text::Error], MessageIcon::Exclamation, MessageButtons::Ok});
}

/// What could not be saved. A file that another program has changed is loaded again when the user says so; what is
/// typed in an open form is still there and can be saved then.
inline void TellError(Program& program, const StoreError& error) {
    if (error.Why() != StoreError::Reason::ChangedOnDisk)
        return TellError(program, error.Text());
    const StringTable& texts = program.Texts();
    const Message question{error.Text() + QStringLiteral("\n\n") + texts[Text::LoadAgainQuestion], texts[Text::Error],
                           MessageIcon::Question, MessageButtons::YesNo};
    if (program.Prompts().Ask(question) == MessageAnswer::Yes)
        program.List().Refill();
}

/// Runs the work. False when it failed; the user has been told then.
template <typename Work>
bool Guarded(Program& program, Work&& work) {
    try {
        work();
        return true;
    } catch (const StoreError& error) {
        TellError(program, error);
    } catch (const std::exception& error) {
        TellError(program, QString::fromLocal8Bit(error.what()));
    }
    return false;
}
