// The table of a mail session: what each state sends, what it waits for and what follows. Private to MailSession.
#pragma once

#include "MailSession.h"

struct MailSession::Row {
    const char* begun;          ///< status when the state is entered, or ""
    const char* command;        ///< sent when the state is entered, or ""
    void (MailSession::*act)(); ///< done when the state is entered, or null
    Awaited awaited;
    Patience patience;
    const char* done; ///< status when the awaited reply has arrived, or ""
    State next;
};
