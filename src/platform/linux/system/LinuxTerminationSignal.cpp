#include "TerminationSignal.h"

#include "SignalPipe.h"

#include <unistd.h>

namespace {
/// A disk that does not answer blocks every call. Ending the process then loses no more than a power cut: nothing.
constexpr unsigned mostSeconds = 30;
} // namespace

class TerminationSignal::Handlers final {
  public:
    explicit Handlers(TerminationSignal& owner)
        : m_pipe({SIGTERM, SIGINT, SIGHUP}, [&owner](const std::vector<int>&) {
              if (const unsigned left = ::alarm(mostSeconds); left > 0)
                  ::alarm(left); // the first one counts
              Q_EMIT owner.Raised();
          }) {}

  private:
    SignalPipe m_pipe;
};

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent), m_handlers(std::make_unique<Handlers>(*this)) {}

TerminationSignal::~TerminationSignal() = default;
