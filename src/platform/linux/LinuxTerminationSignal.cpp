#include "TerminationSignal.h"

#include "SignalPipe.h"

class TerminationSignal::Handlers final {
  public:
    explicit Handlers(TerminationSignal& owner)
        : m_pipe({SIGTERM, SIGINT, SIGHUP}, [&owner](const std::vector<int>&) { Q_EMIT owner.Raised(); }) {}

  private:
    SignalPipe m_pipe;
};

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent), m_handlers(std::make_unique<Handlers>(*this)) {}

TerminationSignal::~TerminationSignal() = default;
