#include "DispatchedTestMail.h"

#include "MailDispatch.h"
#include "Program.h"

namespace {

class DispatchedTestMail final : public TestMail {
  public:
    DispatchedTestMail(MailOrder order, const MailServices& services, std::function<void(const QString&)> ended)
        : m_dispatch(std::make_unique<MailDispatch>(std::move(order), services)) {
        QObject::connect(m_dispatch.get(), &MailDispatch::Ended, m_dispatch.get(), std::move(ended));
        m_dispatch->Begin([](const QString& /*host*/) { return true; });
    }
    ~DispatchedTestMail() override {
        m_dispatch->disconnect();
        m_dispatch->Shutdown();
        m_dispatch.release()->deleteLater(); // its signal may be on the stack
    }
    DispatchedTestMail(const DispatchedTestMail&) = delete;
    DispatchedTestMail& operator=(const DispatchedTestMail&) = delete;

  private:
    std::unique_ptr<MailDispatch> m_dispatch;
};

} // namespace

SendTestMail TestMailsOf(Program& program) {
    return [&program](const ActivityRecord& record, std::function<void(const QString& failure)> ended) {
        return std::make_unique<DispatchedTestMail>(MailOrder::OfRecord(record, program.Texts()), program.Mail(),
                                                    std::move(ended));
    };
}
