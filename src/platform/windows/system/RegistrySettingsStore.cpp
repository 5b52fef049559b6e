#include "Handle.h"
#include "RegistryKey.h"
#include "WindowsServices.h"

#include <algorithm>
#include <vector>

namespace {

using Former = std::vector<std::pair<std::wstring, std::optional<std::wstring>>>;

bool isName(const QString& text) {
    return !text.isEmpty() && text.trimmed() == text && !text.contains(u'\\') && !text.contains(u'\0') &&
           !text.contains(u'\n') && !text.contains(u'\r');
}

bool isEntry(const std::pair<QString, QString>& entry) {
    const QString& value = entry.second;
    return isName(entry.first) && !value.contains(u'\n') && !value.contains(u'\r') && !value.contains(u'\0') &&
           value.isValidUtf16();
}

/// Keeps the saves of all processes of this session apart, as long as it lives. Another process holds it for one save
/// only; if it was stopped in the middle of it, do not wait for ever.
class SaveLock final {
  public:
    SaveLock() : m_mutex(CreateMutexW(nullptr, FALSE, L"Kalvenor settings")) {
        constexpr DWORD milliseconds = 2000;
        if (!m_mutex.IsOpen()) {
            m_error = LastError();
            return;
        }
        const DWORD result = WaitForSingleObject(m_mutex.Get(), milliseconds);
        // An abandoned one was held by a process that died; each value it wrote is whole.
        m_isHeld = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
        if (!m_isHeld)
            m_error = std::make_error_code(std::errc::resource_unavailable_try_again);
    }
    ~SaveLock() {
        if (m_isHeld)
            ReleaseMutex(m_mutex.Get());
    }
    SaveLock(const SaveLock&) = delete;
    SaveLock& operator=(const SaveLock&) = delete;

    [[nodiscard]] std::error_code Error() const { return m_error; }

  private:
    WinHandle m_mutex;
    bool m_isHeld = false;
    std::error_code m_error;
};

void takeBack(RegistryKey& key, const Former& former) {
    for (const auto& [name, text] : former)
        std::ignore = text ? key.SetText(name, *text) : key.Remove(name);
}

class RegistrySettingsStore final : public SettingsStore {
  public:
    RegistrySettingsStore(std::wstring path, bool isService) : m_path(std::move(path)), m_isService(isService) {}

    std::optional<QString> Read(const QString& application, const QString& section, const QString& key) const override;
    std::error_code WriteAll(const QString& application, const QString& section, const Entries& entries) override;
    std::filesystem::path FileOf(const QString& /*application*/) const override { return {}; }

  private:
    [[nodiscard]] std::wstring pathOf(const QString& application, const QString& section) const {
        return m_path + L'\\' + application.toStdWString() + L'\\' + section.toStdWString();
    }

    std::wstring m_path;
    bool m_isService;
};

std::optional<QString> RegistrySettingsStore::Read(const QString& application, const QString& section,
                                                   const QString& key) const {
    if (!isName(application) || !isName(section) || !isName(key))
        return std::nullopt;
    const std::wstring path = pathOf(application, section);
    auto text = RegistryKey::Open(HKEY_CURRENT_USER, path).Text(key.toStdWString());
    if (!text && m_isService)
        text = RegistryKey::Open(HKEY_LOCAL_MACHINE, path).Text(key.toStdWString());
    return text ? std::optional(QString::fromStdWString(*text).trimmed()) : std::nullopt;
}

/// The registry has no step for several values, so a failure takes back those that were written before it.
std::error_code RegistrySettingsStore::WriteAll(const QString& application, const QString& section,
                                                const Entries& entries) {
    if (!isName(application) || !isName(section) || !std::all_of(entries.begin(), entries.end(), isEntry))
        return std::make_error_code(std::errc::invalid_argument);
    const SaveLock lock;
    if (lock.Error())
        return lock.Error();
    RegistryKey key = RegistryKey::Make(HKEY_CURRENT_USER, pathOf(application, section));
    Former former;
    for (const auto& [name, value] : entries) {
        const std::wstring valueName = name.toStdWString();
        former.emplace_back(valueName, key.Text(valueName));
        if (const std::error_code error = key.SetText(valueName, value.toStdWString())) {
            takeBack(key, former);
            return error;
        }
    }
    return key.Flush();
}

} // namespace

std::unique_ptr<SettingsStore> MakeRegistrySettingsStore(std::wstring path, bool isService) {
    return std::make_unique<RegistrySettingsStore>(std::move(path), isService);
}
