// Asks the update site for the newest version, on demand and once a day, without blocking the event loop. Owns the
// download of one check at a time and the values of the last one. Any failure leaves these values empty. A build that
// packages update, or that knows no site, asks nobody.
#pragma once

#include "HttpFetch.h"
#include <QString>
#include <QTemporaryFile>
#include <QUrl>

class Clock;
class SettingsStore;
enum class Text;

struct UpdateConfiguration {
    QString title;           ///< application name in the settings store
    QString currentVersion;  ///< "2.1.0"
    QString site;            ///< base address without a trailing "/"; empty: there is none
    QString versionFile;     ///< name of the version file below the site
    QString executable;      ///< address of the new program
    QString agent;           ///< user agent of each request
    bool byPackages = false; ///< new versions come as packages

    /// Of this build; CMake sets the addresses.
    [[nodiscard]] static UpdateConfiguration OfThisProgram();

    /// The page where users download a new version.
    [[nodiscard]] static QUrl DownloadPage();

    /// What the user is told instead of a check; None where one is possible.
    [[nodiscard]] Text InsteadOfCheck() const;
};

class ctlAutoUpdate final : public QObject {
    Q_OBJECT
  public:
    enum class Check { Manual, Daily };
    Q_ENUM(Check)

    /// Opens an address in the default browser.
    using Browser = std::function<void(const QUrl& address)>;

    /// Everything passed in must outlive this object. `timeout` covers a whole download.
    ctlAutoUpdate(SettingsStore& settings, const Clock& clock, Browser browser,
                  std::chrono::milliseconds timeout = std::chrono::seconds(15));

    /// Must come before any other call.
    void Configure(UpdateConfiguration configuration) { m_configuration = std::move(configuration); }

    [[nodiscard]] Text InsteadOfCheck() const { return m_configuration.InsteadOfCheck(); }

    /// Values of the last check; empty before it, while it runs and when it failed.
    [[nodiscard]] QString GetNewVersion() const { return m_newVersion; }
    [[nodiscard]] QString GetReleaseDate() const { return m_releaseDate; }
    [[nodiscard]] QString GetFileSize() const { return m_fileSize; }
    [[nodiscard]] QString GetFileInfo() const { return m_fileInfo; }

    [[nodiscard]] QString GetCurrentVersion() const { return m_configuration.currentVersion; }
    [[nodiscard]] QString GetUpdateURL() const { return m_configuration.executable; }

    /// Whether the last check found a version other than this one, higher or lower.
    [[nodiscard]] bool IsOtherVersion() const;

    [[nodiscard]] bool GetCheckForUpdatesEveryDay() const;
    void SetCheckForUpdatesEveryDay(bool on);

    /// Begins a check; Checked follows. Drops a pending check without a signal.
    void CheckForNewVersion() { check(Check::Manual); }

    /// Begins a check and returns true if one is possible, the user wants one each day and there was none today.
    bool CheckOncePerDay();

    /// Downloads a file of at most HttpFetch::MaxBytes and calls `done`, never from within this call. Drops a pending
    /// download.
    void Download(const QUrl& url, const QString& file, const std::function<void(bool written)>& done);

    /// A new file in the user's temporary folder, removed with the object; null when it cannot be created.
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
    std::unique_ptr<QTemporaryFile> m_temporary; ///< of the pending check
    QString m_newVersion;
    QString m_releaseDate;
    QString m_fileSize;
    QString m_fileInfo;
    HttpFetch m_fetch;
};
