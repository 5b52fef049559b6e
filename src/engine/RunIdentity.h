// What a run began with, and belongs to: an activity file, a record, and where the record sends what. A value. A record
// of the same name that says anything else is another one, whose rules are none for this run.
#pragma once

#include <QString>

class ActivityFile;

struct RunIdentity {
    QString activityFile; ///< path
    QString name;
    QString source;      ///< `sourcedir`
    QString destination; ///< `targetdir`
    QString action;

    [[nodiscard]] static RunIdentity Of(const ActivityFile& file, const QString& name);
    bool operator==(const RunIdentity&) const = default;
};
