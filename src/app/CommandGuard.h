// Ends a command handler whose work failed and tells the user why: no exception may reach the event loop.
#pragma once

#include "Program.h"
#include "Prompter.h"
#include "StoreError.h"

/// The system's text in a box titled "Error".
inline void TellError(Program& program, const QString& text) {
    program.Prompts().Ask({text, program.Texts().Text(107), MessageIcon::Exclamation, MessageButtons::Ok});
}

/// Runs the work. False when it failed; the user has been told then.
template <typename Work>
bool Guarded(Program& program, Work&& work) {
    try {
        work();
        return true;
    } catch (const StoreError& error) {
        TellError(program, error.Text());
    } catch (const std::exception& error) {
        TellError(program, QString::fromLocal8Bit(error.what()));
    }
    return false;
}
