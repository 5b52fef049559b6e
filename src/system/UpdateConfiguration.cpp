#include "UpdateConfiguration.h"

#include "SettingsStore.h"

UpdateConfiguration UpdateConfiguration::OfThisProgram() {
    const QString site = QStringLiteral(KALVENOR_UPDATE_SITE);
    return {SettingsStore::OwnApplication, QStringLiteral(KALVENOR_VERSION), site,
            QStringLiteral("Version.inf"), site + u"/Kalvenor.exe",          QStringLiteral("Kalvenor Pro AutoUpdate")};
}

QUrl UpdateConfiguration::DownloadPage() {
    return QUrl(QStringLiteral(KALVENOR_DOWNLOAD_PAGE));
}
