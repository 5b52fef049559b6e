// What the update check needs to know of this program and its maker's site. A plain value.
#pragma once

#include <QString>
#include <QUrl>

struct UpdateConfiguration {
    QString title;          ///< application name in the settings store
    QString currentVersion; ///< "2.1.0"
    QString site;           ///< base address, without a "/" at its end
    QString versionFile;    ///< name of the version file below the site
    QString executable;     ///< address of the new program
    QString agent;          ///< name sent with each request

    /// Of this build; the addresses are set when it is configured.
    [[nodiscard]] static UpdateConfiguration OfThisProgram();

    /// The page to show when the user wants the new version.
    [[nodiscard]] static QUrl DownloadPage();
};
