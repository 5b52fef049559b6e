// Where the time comes from. A plain value.
#pragma once

#include <QString>

struct TimeServer {
    /// A public server that answers the Time Protocol (RFC 868) over TCP.
    QString host = QStringLiteral("time.nist.gov");
    quint16 port = 37;
};
