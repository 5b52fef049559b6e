#include "ctlAutoUpdate.h"

#include "Clock.h"
#include "SettingsStore.h"
#include "StringTable.h"
#include "VersionFile.h"
#include "modForeignText.h"
#include <QDateTime>
#include <QDir>
#include <tuple>

namespace {

const QString section = QStringLiteral("AutoUpdate");
const QString everyDay = QStringLiteral("AutoCheckForUpdates");
const QString lastCheck = QStringLiteral("LastCheck");
const QString timeOfCheck = QStringLiteral("Time");

bool write(const QString& file, const QByteArray& bytes) {
    QFile target(file);
    return target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.flush();
}

} // namespace

UpdateConfiguration UpdateConfiguration::OfThisProgram() {
    const QString site = QStringLiteral(KALVENOR_UPDATE_SITE);
    return {
        SettingsStore::OwnApplication,    QStringLiteral(KALVENOR_VERSION), site,
        QStringLiteral("Version.inf"),    site + u"/Kalvenor.exe",          QStringLiteral("Kalvenor Pro AutoUpdate"),
        KALVENOR_UPDATED_BY_PACKAGES != 0};
}

QUrl UpdateConfiguration::DownloadPage() {
    return QUrl(QStringLiteral(KALVENOR_DOWNLOAD_PAGE));
}

Text UpdateConfiguration::InsteadOfCheck() const {
    if (byPackages)
        return Text::UpdatedByPackages;
    return site.isEmpty() ? Text::NoUpdateSite : Text::None;
}

ctlAutoUpdate::ctlAutoUpdate(SettingsStore& settings, const Clock& clock, Browser browser,
                             std::chrono::milliseconds timeout)
    : m_settings(settings), m_clock(clock), m_browser(std::move(browser)), m_fetch(timeout) {}

bool ctlAutoUpdate::IsOtherVersion() const {
    return !m_newVersion.isEmpty() && m_newVersion != m_configuration.currentVersion;
}

bool ctlAutoUpdate::GetCheckForUpdatesEveryDay() const {
    return m_settings.Read(m_configuration.title, section, everyDay) == QStringLiteral("1");
}

void ctlAutoUpdate::SetCheckForUpdatesEveryDay(bool on) {
    // If the option cannot be stored, the next read shows that it did not change.
    std::ignore =
        m_settings.Write(m_configuration.title, section, everyDay, on ? QStringLiteral("1") : QStringLiteral("0"));
}

bool ctlAutoUpdate::CheckOncePerDay() {
    if (InsteadOfCheck() != Text::None || !GetCheckForUpdatesEveryDay())
        return false;
    const auto sinceEpoch = std::chrono::floor<std::chrono::milliseconds>(m_clock.Now().time_since_epoch());
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count());
    const QString today = now.toString(QStringLiteral("dd.MM.yyyy"));
    if (m_settings.Read(m_configuration.title, section, lastCheck) == today)
        return false;
    // If this cannot be stored, every start checks.
    std::ignore = m_settings.WriteAll(m_configuration.title, section,
                                      {{lastCheck, today}, {timeOfCheck, now.toString(QStringLiteral("HH:mm:ss"))}});
    check(Check::Daily);
    return true;
}

void ctlAutoUpdate::check(Check kind) {
    m_newVersion.clear();
    m_releaseDate.clear();
    m_fileSize.clear();
    m_fileInfo.clear();
    m_temporary = CreateTempFile();
    const QUrl address(m_configuration.site + u'/' + m_configuration.versionFile);
    Download(address, m_temporary ? m_temporary->fileName() : QString(), [this, kind](bool written) {
        if (written)
            readVersionFile();
        m_temporary.reset();
        Q_EMIT Checked(kind);
    });
}

void ctlAutoUpdate::Download(const QUrl& url, const QString& file, const std::function<void(bool written)>& done) {
    m_fetch.Begin(url, m_configuration.agent,
                  [file, done](const std::optional<QByteArray>& body) { done(body && write(file, *body)); });
}

void ctlAutoUpdate::readVersionFile() {
    const VersionFile file(m_temporary->read(HttpFetch::MaxBytes));
    m_newVersion = modForeignText::FromServer(file.Value(QStringLiteral("Version")));
    m_releaseDate = file.Value(QStringLiteral("Release"));
    m_fileSize = file.Value(QStringLiteral("Size"));
    m_fileInfo = file.Value(QStringLiteral("Info"));
}

std::unique_ptr<QTemporaryFile> ctlAutoUpdate::CreateTempFile() {
    auto file = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/Kalvenor-XXXXXX.inf"));
    return file->open() ? std::move(file) : nullptr;
}
