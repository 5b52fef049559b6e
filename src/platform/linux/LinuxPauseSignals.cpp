#include "PauseSignals.h"

#include "SignalPipe.h"

class PauseSignals::Handlers final {
  public:
    explicit Handlers(PauseSignals& owner)
        : m_pipe({SIGUSR1, SIGUSR2}, [&owner](const std::vector<int>& numbers) {
              for (const int number : numbers)
                  Q_EMIT number == SIGUSR1 ? owner.Paused() : owner.Continued();
          }) {}

  private:
    SignalPipe m_pipe;
};

PauseSignals::PauseSignals(QObject* parent) : QObject(parent), m_handlers(std::make_unique<Handlers>(*this)) {}

PauseSignals::~PauseSignals() = default;
