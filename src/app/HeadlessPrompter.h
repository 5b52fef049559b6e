// Answers the program's questions where nobody can: each box becomes one log line, each answer is the safe one.
#pragma once

#include "Prompter.h"

class HeadlessLog;

class HeadlessPrompter final : public Prompter {
  public:
    explicit HeadlessPrompter(HeadlessLog& log) : m_log(log) {}

    MessageAnswer Ask(const Message& message) override;

  private:
    HeadlessLog& m_log;
};
