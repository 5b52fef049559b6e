// The mail addresses that the activities of a file use already, to choose from. Plain values; no failure.
#pragma once

#include <QStringList>

class ActivityFile;

struct KnownAddresses {
    QStringList senders;
    QStringList recipients;
    QStringList copies;

    /// Each list sorted, without doubles and empty ones.
    [[nodiscard]] static KnownAddresses Of(const ActivityFile& file);
};
