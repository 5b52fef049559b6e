// Shows the user why a command failed. No exception may reach the event loop, so whatever an event starts runs under
// Guarded.
#pragma once

#include "Program.h"
#include "Prompter.h"
#include "StoreError.h"

/// A box titled "Error".
inline void TellError(Program& program, const QString& text) {
    program.Prompts().Ask({text, program.Texts()[Text::Error], MessageIcon::Exclamation, MessageButtons::Ok});
}

/// A failed save. If another program has changed the file, offers to load it again; what is typed in an open form stays
/// and can be saved afterwards.
inline void TellError(Program& program, const StoreError& error) {
    if (error.Why() != StoreError::Reason::ChangedOnDisk)
        return TellError(program, error.Text());
    const StringTable& texts = program.Texts();
    const Message question{error.Text() + QStringLiteral("\n\n") + texts[Text::LoadAgainQuestion], texts[Text::Error],
                           MessageIcon::Question, MessageButtons::YesNo};
    if (program.Prompts().Ask(question) == MessageAnswer::Yes)
        program.List().Refill();
}

/// Runs the work. False when it failed, after a box that says why.
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
