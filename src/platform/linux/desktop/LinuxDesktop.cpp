#include "AtomicFile.h"
#include "IniFile.h"
#include "LinuxOwnFiles.h"
#include "LinuxServices.h"
#include "SystemCall.h"
#include "Tool.h"
#include "modNativePath.h"
#include <QFile>
#include <QStringList>
#include <algorithm>
#include <tuple>

namespace {

namespace fs = std::filesystem;

constexpr const char* mimeType = "application/x-kalvenor-activities";
constexpr const char* mimePackageFile = "mime/packages/kalvenor-activities.xml";
constexpr mode_t publicFile = 0644;
constexpr std::chrono::seconds patience{3};
constexpr std::int64_t mostBytes = 1 << 20;

/// Escapes a value of a desktop entry.
QByteArray entryValue(QByteArray value) {
    value.replace('\\', "\\\\");
    value.replace('\n', "\\n");
    value.replace('\r', "\\r");
    value.replace('\t', "\\t");
    return value;
}

QString entryName() {
    return QLatin1String(OwnDesktopEntry) + QStringLiteral(".desktop");
}

QByteArray bytesOf(const std::filesystem::path& path) {
    return QByteArray::fromStdString(path.native());
}

/// An entry may outlive the program: the desktop hides it then.
QByteArray tryExec(const std::filesystem::path& program) {
    return "TryExec=" + entryValue(bytesOf(program)) + '\n';
}

/// A path for the key Exec, with all three layers of escapes.
QByteArray execProgram(const std::filesystem::path& program) {
    QByteArray quoted = "\"";
    for (const char c : bytesOf(program)) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    quoted += '"';
    if (!quoted.contains('%'))
        return entryValue(quoted);
    // GLib looks for the program before it undoes the doubling, and rejects the entry.
    quoted.replace('%', "%%");
    return "/usr/bin/env " + entryValue(quoted);
}

QByteArray mimePackage(const FileType& type) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" +
           QByteArray(mimeType) +
           "\">\n"
           "    <comment>" +
           type.description.toHtmlEscaped().toUtf8() +
           "</comment>\n"
           "    <sub-class-of type=\"application/xml\"/>\n"
           "    <glob pattern=\"*" +
           type.extension.toHtmlEscaped().toUtf8() +
           "\"/>\n"
           "  </mime-type>\n"
           "</mime-info>\n";
}

/// Not shown in menus. Without an icon when there is no such file.
QByteArray fileTypeEntry(const FileType& type) {
    std::error_code error;
    const bool hasIcon = std::filesystem::is_regular_file(type.icon, error);
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Kalvenor Pro\n"
           "Comment=" +
           entryValue(type.description.toUtf8()) + "\nExec=" + execProgram(type.program) + " %f\n" +
           tryExec(type.program) + (hasIcon ? "Icon=" + entryValue(bytesOf(type.icon)) + '\n' : QByteArray()) +
           "Terminal=false\n"
           "NoDisplay=true\n"
           "StartupWMClass=Kalvenor\n"
           "MimeType=" +
           mimeType + ";\n";
}

QByteArray autostartEntry(const QString& name, const std::filesystem::path& program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=" +
           name.toUtf8() + "\nExec=" + execProgram(program) + '\n' + tryExec(program) + "Terminal=false\n";
}

/// Ours first, then the others of `before` (separated by ";").
QString defaultApplications(const QString& before) {
    const QString ours = entryName();
    QStringList entries = before.split(u';', Qt::SkipEmptyParts);
    entries.removeAll(ours);
    entries.prepend(ours);
    return entries.join(u';') + u';';
}

void update(const char* tool, const fs::path& folder) {
    // Without the tool the desktop finds the files too, only later.
    std::ignore = Tool::Run(QString::fromLatin1(tool), {QFile::decodeName(folder.c_str())}, patience);
}

class LinuxAutostart final : public Autostart {
  public:
    explicit LinuxAutostart(fs::path configHome) : m_configHome(std::move(configHome)) {}

    bool Exists(const QString& name) const override;
    std::error_code Create(const QString& name, const fs::path& program) override;
    std::error_code Remove(const QString& name) override;

  private:
    /// Empty when the user's folder is unknown.
    [[nodiscard]] fs::path entryOf(const QString& name) const {
        return m_configHome.empty()
                   ? fs::path()
                   : m_configHome / "autostart" / modNativePath::FromText(name + QStringLiteral(".desktop"));
    }

    fs::path m_configHome;
};

bool LinuxAutostart::Exists(const QString& name) const {
    struct stat status {};
    const fs::path entry = entryOf(name);
    return !entry.empty() && ::lstat(entry.c_str(), &status) == 0;
}

std::error_code LinuxAutostart::Create(const QString& name, const fs::path& program) {
    const fs::path entry = entryOf(name);
    if (entry.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    return AtomicFile::Put(entry, autostartEntry(name, program), publicFile);
}

std::error_code LinuxAutostart::Remove(const QString& name) {
    const fs::path entry = entryOf(name);
    if (entry.empty() || ::unlink(entry.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR)
        return {};
    return LastError();
}

class LinuxFileTypes final : public FileTypes {
  public:
    LinuxFileTypes(fs::path dataHome, fs::path configHome, std::vector<fs::path> systemData)
        : m_dataHome(std::move(dataHome)), m_configHome(std::move(configHome)), m_systemData(std::move(systemData)) {}

    std::error_code Register(const FileType& type) override;

  private:
    [[nodiscard]] bool isKnownToTheSystem() const;
    [[nodiscard]] std::error_code makeDefault() const;
    void installIcon(fs::path icon) const;

    fs::path m_dataHome;
    fs::path m_configHome;
    std::vector<fs::path> m_systemData;
};

/// A package brought the type, and keeps it up to date.
bool LinuxFileTypes::isKnownToTheSystem() const {
    return std::any_of(m_systemData.begin(), m_systemData.end(), [](const fs::path& folder) {
        std::error_code error;
        return fs::exists(folder / mimePackageFile, error);
    });
}

std::error_code LinuxFileTypes::Register(const FileType& type) {
    if (isKnownToTheSystem())
        return {};
    if (m_dataHome.empty() || m_configHome.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    std::error_code error = AtomicFile::Put(m_dataHome / mimePackageFile, mimePackage(type), publicFile);
    if (!error)
        error =
            AtomicFile::Put(m_dataHome / "applications" / entryName().toStdString(), fileTypeEntry(type), publicFile);
    if (!error)
        error = makeDefault();
    if (error)
        return error;
    installIcon(type.icon);
    update("update-mime-database", m_dataHome / "mime");
    update("update-desktop-database", m_dataHome / "applications");
    return {};
}

/// Under the name that the icon naming specification gives the icon of a MIME type. A missing icon is no failure.
void LinuxFileTypes::installIcon(fs::path icon) const {
    QByteArray picture;
    if (LinuxOwnFiles().ReadAll(icon.replace_extension(".svg"), mostBytes, picture))
        return;
    const QByteArray name = QByteArray(mimeType).replace('/', '-') + ".svg";
    std::ignore =
        AtomicFile::Put(m_dataHome / "icons/hicolor/scalable/mimetypes" / name.constData(), picture, publicFile);
}

std::error_code LinuxFileTypes::makeDefault() const {
    const fs::path file = m_configHome / "mimeapps.list";
    const QString section = QStringLiteral("Default Applications");
    const QString key = QString::fromLatin1(mimeType);
    QByteArray bytes;
    // Never overwrite a file that cannot be read.
    const std::error_code error = LinuxOwnFiles().ReadAll(file, mostBytes, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return error;
    IniFile list(bytes);
    if (!list.SetValue(section, key, defaultApplications(list.Value(section, key).value_or(QString()).trimmed())))
        return std::make_error_code(std::errc::invalid_argument);
    return list.Bytes() == bytes ? std::error_code() : AtomicFile::Put(file, list.Bytes(), publicFile);
}

} // namespace

std::unique_ptr<Autostart> MakeAutostart(fs::path configHome) {
    return std::make_unique<LinuxAutostart>(std::move(configHome));
}

std::unique_ptr<FileTypes> MakeFileTypes(fs::path dataHome, fs::path configHome, std::vector<fs::path> systemData) {
    return std::make_unique<LinuxFileTypes>(std::move(dataHome), std::move(configHome), std::move(systemData));
}
