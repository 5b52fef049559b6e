// A mail that the editor sends to try out what was entered. The editor knows no network: whoever opens it brings the
// way.
#pragma once

#include <QString>
#include <functional>
#include <memory>

class ActivityRecord;

/// One under way; with its end the mail is given up.
class TestMail {
  public:
    virtual ~TestMail() = default;
};

/// Sends what the record says, nothing attached. `ended` is called once, from the event loop, with the reason when the
/// mail was not accepted.
using SendTestMail = std::function<std::unique_ptr<TestMail>(const ActivityRecord& record,
                                                             std::function<void(const QString& failure)> ended)>;
