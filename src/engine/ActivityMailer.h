// Sends the notification after a run. Implementations never throw and never hold up the run for long.
#pragma once

#include <QString>

class ActivityMailer {
  public:
    virtual ~ActivityMailer() = default;

    /// `firstPath` is the source folder, `secondPath` the destination. 1 when the procedure ran to its end.
    virtual int SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath) = 0;
};
