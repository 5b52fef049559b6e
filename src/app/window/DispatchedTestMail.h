// A test mail of the editor, on the way that the mails of activities take.
#pragma once

#include "TestMail.h"

class Program;

/// What the program has must outlive each mail.
[[nodiscard]] SendTestMail TestMailsOf(Program& program);
