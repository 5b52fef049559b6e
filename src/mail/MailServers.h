// Which servers one mail session talks to, how it logs in and how long it waits. A plain value; nothing of it is
// checked.
#pragma once

#include <QString>

struct MailServers {
    QString smtpHost;
    int smtpPort = 25;
    QString popHost;
    int popPort = 110;
    QString username;
    QString password;
    bool useAuthentication = false;
    bool usePopAuthentication = false;
    int connectRetry = 4;    ///< attempts
    int connectTimeout = 30; ///< seconds for each wait of the connect phase; below 1 every wait fails at once
    int messageTimeout = 60; ///< seconds for each wait of the send phase
};
