// Asks the maker's site for the newest version, on demand and once a day, without holding up the event loop. Owns the
// download of one check at a time and the values of the last one. Whatever fails leaves these values empty.
#pragma once

#include "HttpFetch.h"
#include "UpdateConfiguration.h"
#include <QTemporaryFile>

class Clock;
class SettingsStore;

class ctlAutoUpdate final : public QObject {
    Q_OBJECT
  public:
    enum class Check { Manual, Daily };
    Q_ENUM(Check)

    /// Opens an address in the default browser.
    using Browser = std::function<void(const QUrl& address)>;

    /// Everything handed in must outlive this object. `timeout` is for one download as a whole.
    ctlAutoUpdate(SettingsStore& settings, const Clock& clock, Browser browser,
                  std::chrono::milliseconds timeout = std::chrono::seconds(15));

    /// Before anything else.
    void Configure(UpdateConfiguration configuration) { m_configuration = std::move(configuration); }

    /// Values of the last successful check; empty before, during and after one that failed.
    [[nodiscard]] QString GetNewVersion() const { return m_newVersion; }
    [[nodiscard]] QString GetReleaseDate() const { return m_releaseDate; }
    [[nodiscard]] QString GetFileSize() const { return m_fileSize; }
    [[nodiscard]] QString GetFileInfo() const { return m_fileInfo; }

    [[nodiscard]] QString GetCurrentVersion() const { return m_configuration.currentVersion; }
    [[nodiscard]] QString GetUpdateURL() const { return m_configuration.executable; }

    /// True when the last check found a version of another name than this one, be it higher or lower.
    [[nodiscard]] bool IsOtherVersion() const;

    [[nodiscard]] bool GetCheckForUpdatesEveryDay() const;
    void SetCheckForUpdatesEveryDay(bool on);

    /// Begins a check; Checked follows. One under way is dropped and stays silent.
    void CheckForNewVersion() { check(Check::Manual); }

    /// Begins a check if the user wants one each day and there was none today; true when it did.
    bool CheckOncePerDay();

    /// Fetches a file of at most HttpFetch::MostBytes; `done` is told, never from inside of this call, whether it was
    /// written. A download under way is dropped.
    void Download(const QUrl& url, const QString& file, const std::function<void(bool written)>& done);

    /// A new file in the user's temporary folder that goes with its object; null when there is no room for it.
    [[nodiscard]] static std::unique_ptr<QTemporaryFile> CreateTempFile();

    void OpenURL(const QUrl& url) const { m_browser(url); }

  Q_SIGNALS:
    void Checked(ctlAutoUpdate::Check check);

  private:
    void check(Check kind);
    void readVersionFile();

    SettingsStore& m_settings;
    const Clock& m_clock;
    Browser m_browser;
    UpdateConfiguration m_configuration;
    std::unique_ptr<QTemporaryFile> m_temporary; ///< of the check under way
    QString m_newVersion;
    QString m_releaseDate;
    QString m_fileSize;
    QString m_fileInfo;
    HttpFetch m_fetch;
};
