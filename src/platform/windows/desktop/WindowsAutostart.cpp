#include "ProgramFile.h"
#include "RegistryKey.h"
#include "WindowsServices.h"

namespace {

class WindowsAutostart final : public Autostart {
  public:
    explicit WindowsAutostart(std::wstring path) : m_path(std::move(path)) {}

    bool Exists(const QString& name) const override {
        return RegistryKey::Open(HKEY_CURRENT_USER, m_path).Has(name.toStdWString());
    }

    std::error_code Create(const QString& name, const std::filesystem::path& program) override {
        RegistryKey key = RegistryKey::Make(HKEY_CURRENT_USER, m_path);
        const std::error_code error = key.SetText(name.toStdWString(), L'"' + ProgramFile(program).wstring() + L'"');
        return error ? error : key.Flush();
    }

    std::error_code Remove(const QString& name) override {
        RegistryKey key = RegistryKey::Open(HKEY_CURRENT_USER, m_path, KEY_READ | KEY_WRITE);
        const bool isThere = key.Error().value() != ERROR_FILE_NOT_FOUND;
        return isThere ? key.Remove(name.toStdWString()) : std::error_code();
    }

  private:
    std::wstring m_path;
};

} // namespace

std::unique_ptr<Autostart> MakeAutostart(std::wstring path) {
    return std::make_unique<WindowsAutostart>(std::move(path));
}
