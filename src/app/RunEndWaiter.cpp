#include "RunEndWaiter.h"

#include "Program.h"
#include <QEventLoop>

namespace {
constexpr std::chrono::milliseconds lookInterval{20};
} // namespace

RunEndWaiter::RunEndWaiter(Program& program, QObject* parent) : QObject(parent), m_program(program) {
    connect(&m_timer, &QTimer::timeout, this, &RunEndWaiter::look);
}

void RunEndWaiter::Begin() {
    if (m_begun)
        return;
    m_begun = true;
    m_program.RequestEnd();
    m_timer.start(lookInterval);
}

void RunEndWaiter::WaitOut() {
    if (!m_program.State().Running())
        return;
    QEventLoop loop;
    connect(this, &RunEndWaiter::Ended, &loop, &QEventLoop::quit);
    m_timer.start(lookInterval);
    loop.exec();
}

void RunEndWaiter::look() {
    if (m_program.State().Running())
        return;
    m_timer.stop();
    Q_EMIT Ended();
}
