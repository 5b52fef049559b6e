#include "LinuxFileTypes.h"

#include "AtomicFile.h"
#include "DesktopTexts.h"
#include "IniFile.h"
#include "LinuxOwnFiles.h"
#include "Tool.h"
#include <QFile>

namespace {

namespace fs = std::filesystem;

constexpr mode_t publicFile = 0644;
constexpr std::chrono::seconds patience{3};
constexpr std::int64_t mostBytes = 1 << 20;

void update(const char* tool, const fs::path& folder) {
    // Its failure changes nothing for us: see the header.
    static_cast<void>(Tool::Run(QString::fromLatin1(tool), {QFile::decodeName(folder.c_str())}, patience));
}

} // namespace

std::error_code LinuxFileTypes::Register(const FileType& type) {
    if (m_dataHome.empty() || m_configHome.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    std::error_code error = AtomicFile::Put(m_dataHome / "mime/packages/kalvenor-activities.xml",
                                            DesktopTexts::MimePackage(type), publicFile);
    if (!error)
        error = AtomicFile::Put(m_dataHome / "applications" / DesktopTexts::EntryName, DesktopTexts::Entry(type),
                                publicFile);
    if (!error)
        error = makeDefault();
    if (error)
        return error;
    installIcon(type.icon);
    update("update-mime-database", m_dataHome / "mime");
    update("update-desktop-database", m_dataHome / "applications");
    return {};
}

/// Under the name that the icon naming specification gives to the icon of a MIME type. A missing one is no failure.
void LinuxFileTypes::installIcon(fs::path icon) const {
    QByteArray picture;
    if (LinuxOwnFiles().ReadAll(icon.replace_extension(".svg"), mostBytes, picture))
        return;
    const QByteArray name = QByteArray(DesktopTexts::MimeType).replace('/', '-') + ".svg";
    static_cast<void>(
        AtomicFile::Put(m_dataHome / "icons/hicolor/scalable/mimetypes" / name.constData(), picture, publicFile));
}

std::error_code LinuxFileTypes::makeDefault() const {
    const fs::path file = m_configHome / "mimeapps.list";
    const QString section = QStringLiteral("Default Applications");
    const QString key = QString::fromLatin1(DesktopTexts::MimeType);
    QByteArray bytes;
    // What cannot be read must not be written over.
    const std::error_code error = LinuxOwnFiles().ReadAll(file, mostBytes, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return error;
    IniFile list(bytes);
    if (!list.SetValue(section, key, DesktopTexts::Defaults(list.Value(section, key).value_or(QString()).trimmed())))
        return std::make_error_code(std::errc::invalid_argument);
    return list.Bytes() == bytes ? std::error_code() : AtomicFile::Put(file, list.Bytes(), publicFile);
}
