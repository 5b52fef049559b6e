// "Undo this run" of a log window: brings back what a run has deleted or replaced, after a question, and says in a box
// what came back and what did not.
#pragma once

#include <QString>

class Program;

class UndoCommand final {
  public:
    explicit UndoCommand(Program& program) : m_program(program) {}

    /// `keptFolder`: of the run, in the trash of its destination; "" where the log names none.
    void UndoRun(const QString& keptFolder);

  private:
    void tell(const QString& text);

    Program& m_program;
};
