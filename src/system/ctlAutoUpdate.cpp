#include "ctlAutoUpdate.h"

#include "Clock.h"
#include "SettingsStore.h"
#include "modForeignText.h"
#include <QDateTime>
#include <QDir>
#include <QStringDecoder>
#include <tuple>

namespace {

const QString section = QStringLiteral("AutoUpdate");
const QString versionSection = QStringLiteral("~UP");
const QString everyDay = QStringLiteral("AutoCheckForUpdates");
const QString lastCheck = QStringLiteral("LastCheck");
const QString timeOfCheck = QStringLiteral("Time");

bool write(const QString& file, const QByteArray& bytes) {
    QFile target(file);
    return target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.flush();
}

/// UTF-8, or ISO-8859-1 when it is not valid UTF-8. The lines end with "\n".
QString decoded(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    QString lines = utf8.hasError() ? QString::fromLatin1(bytes) : text;
    return lines.replace(u'\r', u'\n');
}

bool isSame(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QStringView withoutQuotes(QStringView value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == QLatin1Char('"') || value.front() == QLatin1Char('\''));
    return quoted ? value.mid(1, value.size() - 2) : value;
}

/// The first such key of the first "[~UP]" in an INI file, without regard to case; "" when there is none. Drops blanks
/// and one pair of quotes around the value, and what exceeds 1023 characters.
QString valueIn(const QByteArray& file, const QString& key) {
    constexpr qsizetype maxCharacters = 1023;
    const QString text = decoded(file);
    bool inSection = false;
    for (const QStringView whole : QStringView(text).split(QLatin1Char('\n'))) {
        const QStringView line = whole.trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            if (inSection)
                break;
            const qsizetype end = line.indexOf(QLatin1Char(']'));
            inSection = end > 0 && isSame(line.mid(1, end - 1).trimmed(), versionSection);
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (inSection && equals > 0 && isSame(line.left(equals).trimmed(), key))
            return withoutQuotes(line.mid(equals + 1).trimmed()).left(maxCharacters).toString();
    }
    return {};
}

} // namespace

UpdateConfiguration UpdateConfiguration::OfThisProgram() {
    const QString site = QStringLiteral(KALVENOR_UPDATE_SITE);
    return {SettingsStore::OwnApplication, QStringLiteral(KALVENOR_VERSION), site,
            QStringLiteral("Version.inf"), site + u"/Kalvenor.exe",          QStringLiteral("Kalvenor Pro AutoUpdate")};
}

QUrl UpdateConfiguration::DownloadPage() {
    return QUrl(QStringLiteral(KALVENOR_DOWNLOAD_PAGE));
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
    if (!GetCheckForUpdatesEveryDay())
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
    const QByteArray file = m_temporary->read(HttpFetch::MaxBytes);
    const auto value = [&](const QString& key) { return valueIn(file, key); };
    m_newVersion = modForeignText::FromServer(value(QStringLiteral("Version")));
    m_releaseDate = value(QStringLiteral("Release"));
    m_fileSize = value(QStringLiteral("Size"));
    m_fileInfo = value(QStringLiteral("Info"));
}

std::unique_ptr<QTemporaryFile> ctlAutoUpdate::CreateTempFile() {
    auto file = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/Kalvenor-XXXXXX.inf"));
    return file->open() ? std::move(file) : nullptr;
}
