#include "RunEndWaiter.h"

#include "Program.h"

RunEndWaiter::RunEndWaiter(Program& program) : m_program(program) {
    connect(&m_timer, &QTimer::timeout, this, &RunEndWaiter::look);
}

void RunEndWaiter::Begin() {
    if (m_begun)
        return;
    m_begun = true;
    m_program.RequestEnd();
    m_timer.start(20);
}

void RunEndWaiter::look() {
    if (m_program.State().Running())
        return;
    m_timer.stop();
    Q_EMIT Ended();
}
