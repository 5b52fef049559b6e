#include "ActivityFile.h"
#include "ProgramPlaces.h"
#include "Prompter.h"
#include "StoreError.h"
#include "StringTable.h"
#include "XmlParser.h"
#include "XmlText.h"
#include "clsXML.h"
#include "modForeignText.h"
#include "modNativePath.h"

namespace {

const QString items = QStringLiteral("/items");
const QByteArray emptyFile = QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n");
constexpr const char* defaultName = "Kalvenor.kvd";
constexpr int maxOldFiles = 10'000;

/// "" for an invalid name, since such a path could match another activity.
QString pathOf(const QString& name) {
    return XmlText::IsNcName(name) ? QString(items + u'/' + name) : QString();
}

const char* elementOf(ActivityField field) {
    return ActivityRecord::Fields()[static_cast<std::size_t>(field)].element;
}

/// Moves the file to the first free name of BASE+END, BASE1+END, BASE2+END ...
std::error_code moveToFreeName(OwnFiles& files, const std::filesystem::path& file, const std::filesystem::path& base,
                               const std::filesystem::path& end) {
    std::error_code error = files.MoveAway(file, std::filesystem::path(base) += end);
    for (int number = 1; error == std::errc::file_exists && number <= maxOldFiles; ++number)
        error = files.MoveAway(file, (std::filesystem::path(base) += std::to_string(number)) += end);
    return error;
}

/// BASE.OLD, BASE.OLD1, BASE.OLD2 ... in the current directory.
std::error_code moveToOldName(OwnFiles& files, const std::filesystem::path& file) {
    return moveToFreeName(files, file, file.stem() += ".OLD", {});
}

} // namespace

ActivityFile::ActivityFile(clsXML& document, OwnFiles& files, Prompter& prompter, const StringTable& texts,
                           const ProgramPlaces& places)
    : m_document(document), m_files(files), m_prompter(prompter), m_texts(texts), m_places(places),
      m_currentPath(DefaultPath()) {}

void ActivityFile::SetCurrentPath(const QString& absolutePath) {
    if (m_currentPath == absolutePath)
        return;
    m_currentPath = absolutePath;
    Q_EMIT CurrentPathChanged(m_currentPath);
}

bool ActivityFile::IsDefault() const {
    return m_currentPath.compare(DefaultPath(), Qt::CaseInsensitive) == 0;
}

QString ActivityFile::DefaultPath() const {
    const bool isBesideProgram = !m_places.isInstalled && m_files.IsWritableFolder(m_places.programFolder);
    const std::filesystem::path& folder = isBesideProgram ? m_places.programFolder : m_places.userDataFolder;
    return modNativePath::ToText(folder / m_files.FindIgnoringCase(folder, defaultName).value_or(defaultName));
}

void ActivityFile::tell(const QString& text) {
    m_prompter.Ask({text, m_texts[Text::Error], MessageIcon::Critical, MessageButtons::Ok});
}

bool ActivityFile::EnsureDefaultExists() {
    const std::error_code error = m_files.CreateNew(modNativePath::FromText(DefaultPath()), emptyFile);
    if (error && error != std::errc::file_exists)
        tell(m_texts[Text::FileNotCreated] + u' ' + modForeignText::OfError(error));
    return !error || error == std::errc::file_exists;
}

bool ActivityFile::Load() {
    // Take the stamp first, so that the next save detects a change made during the read.
    m_loadedPath = m_currentPath;
    m_loadedStamp = m_files.Stamp(modNativePath::FromText(m_currentPath));
    m_document.OpenXML(m_currentPath, 0);
    return IsLoaded();
}

bool ActivityFile::IsLoaded() const {
    return m_document.NodeCount(items) >= 0;
}

void ActivityFile::Save() {
    const auto present = m_files.Stamp(modNativePath::FromText(m_currentPath));
    const bool isAsLoaded = m_loadedPath == m_currentPath && present == m_loadedStamp;
    if (IsLoaded() && present && !isAsLoaded)
        throw StoreError(m_texts[Text::FileChangedOutside], StoreError::Reason::ChangedOnDisk);
    saveTo(m_currentPath);
    Q_EMIT Saved();
}

void ActivityFile::ChangeAndSave(const std::function<void()>& change) {
    requireLoaded();
    m_document.AllOrNothing([&] {
        change();
        Save();
    });
}

void ActivityFile::requireLoaded() const {
    if (!IsLoaded())
        throw StoreError(m_texts[Text::FileNotLoaded]);
}

void ActivityFile::SaveAs(const QString& absolutePath) {
    saveTo(absolutePath);
    SetCurrentPath(absolutePath);
    Q_EMIT Saved();
}

void ActivityFile::saveTo(const QString& path) {
    requireLoaded();
    try {
        m_document.Save(path);
    } catch (const StoreError& error) {
        throw StoreError(m_texts[Text::FileNotSaved] + u' ' + error.Text());
    }
    m_loadedPath = path;
    m_loadedStamp = m_files.Stamp(modNativePath::FromText(path));
}

bool ActivityFile::OfferRepair() {
    const QString damaged = m_currentPath;
    const std::filesystem::path file = modNativePath::FromText(damaged);
    QByteArray bytes;
    if (const std::error_code error = m_files.ReadAll(file, XmlParser::MaxBytes, bytes)) {
        tell(m_texts[Text::FileUnreadable] + u' ' + damaged + u'\n' + modForeignText::OfError(error));
        return false;
    }
    if (XmlParser::IsTooCostly(bytes)) {
        tell(m_texts[Text::FileTooCostly] + u' ' + damaged);
        return false;
    }
    const MessageAnswer answer = m_prompter.Ask(
        {m_texts[Text::FileCorrupted], m_texts[Text::Error], MessageIcon::Critical, MessageButtons::YesNo});
    if (answer != MessageAnswer::Yes)
        return false;
    // Events ran while the box was open. Move the file only if it is still damaged.
    if (m_currentPath != damaged || Load())
        return true;
    const std::error_code error = moveToOldName(m_files, file);
    const bool isGone = error == std::errc::no_such_file_or_directory && !m_files.Stamp(file);
    if (error && !isGone) {
        tell(m_texts[Text::FileNotMovedAway] + u' ' + modForeignText::OfError(error));
        return false;
    }
    if (const std::error_code failed = m_files.CreateNew(file, emptyFile))
        tell(m_texts[Text::FileNotCreated] + u' ' + modForeignText::OfError(failed));
    return Load();
}

bool ActivityFile::PutAway(const QString& date) {
    const std::filesystem::path file = modNativePath::FromText(m_currentPath);
    const bool isEmpty =
        IsLoaded() && Names().isEmpty() && m_loadedPath == m_currentPath && m_files.Stamp(file) == m_loadedStamp;
    const std::filesystem::path dated = file.parent_path() / (file.stem() += modNativePath::FromText(u' ' + date));
    const std::error_code error =
        isEmpty ? m_files.Delete(file) : moveToFreeName(m_files, file, dated, file.extension());
    if (!error || error == std::errc::no_such_file_or_directory)
        return true;
    tell(modForeignText::OfError(error));
    return false;
}

void ActivityFile::SwitchToDefault() {
    EnsureDefaultExists();
    SetCurrentPath(DefaultPath());
}

QStringList ActivityFile::Names() const {
    QStringList names;
    const int count = m_document.NodeCount(items);
    for (int i = 0; i < count; ++i)
        names.append(m_document.GetChildName(items, i));
    return names;
}

bool ActivityFile::Has(const QString& name) const {
    return m_document.NodeCount(pathOf(name)) >= 0;
}

QString ActivityFile::Read(const QString& name, ActivityField field) const {
    return ReadElement(name, elementOf(field));
}

QString ActivityFile::ReadElement(const QString& name, const char* element) const {
    const QString path = pathOf(name);
    return path.isEmpty() ? QString() : m_document.ReadNode(path + u'/' + QLatin1String(element));
}

QStringList ActivityFile::ReadElements(const QString& name, std::span<const std::string_view> elements) const {
    const QString path = pathOf(name);
    return path.isEmpty() ? QStringList(static_cast<qsizetype>(elements.size()), QString())
                          : m_document.ReadChildren(path, elements);
}

void ActivityFile::Write(const QString& name, ActivityField field, const QString& value) {
    const QString path = pathOf(name);
    if (path.isEmpty())
        return;
    m_document.WriteNode(path + u'/' + QLatin1String(elementOf(field)), value);
    Q_EMIT FieldWritten(name);
}

std::uint64_t ActivityFile::Revision() const {
    return m_document.Revision();
}
