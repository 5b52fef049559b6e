#include "WindowsFolder.h"
#include "EntryFacts.h"
#include "FolderListing.h"
#include "NtFile.h"
#include "PathFile.h"
#include "WindowsDrive.h"
#include "WindowsName.h"

#include <tuple>

namespace {

constexpr DWORD folderAccess = FILE_LIST_DIRECTORY | FILE_TRAVERSE | FILE_READ_ATTRIBUTES;
constexpr std::size_t listingBuffer = std::size_t{64} * 1024;

WinHandle openPath(const std::filesystem::path& absolute, DWORD access) {
    return WinHandle(CreateFileW(WindowsName::Extended(absolute).c_str(), access, NtFile::shareAll, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<FileId> idOf(HANDLE entry) {
    EntryStatus status{};
    return NtFile::ReadStatus(entry, status) ? std::nullopt : std::optional(status.id);
}

std::wstring wide(const std::string& ownName) {
    return {ownName.begin(), ownName.end()};
}

} // namespace

std::shared_ptr<WindowsFolder> WindowsFolder::Open(const std::filesystem::path& path, std::error_code& error) {
    const std::filesystem::path absolute = WindowsName::Absolute(path, error);
    if (error)
        return nullptr;
    WinHandle handle = openPath(absolute, folderAccess | SYNCHRONIZE);
    EntryStatus status{};
    error = handle.IsOpen() ? NtFile::ReadStatus(handle.Get(), status) : LastFileError();
    if (!error && (status.attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        error = ErrorOf(ENOTDIR);
    return error
               ? nullptr
               : std::make_shared<WindowsFolder>(std::move(handle), std::make_shared<FolderPlace>(absolute), status.id);
}

WindowsFolder::WindowsFolder(WinHandle handle, std::shared_ptr<const FolderPlace> place, FileId id)
    : m_handle(std::move(handle)), m_place(std::move(place)), m_id(id),
      m_timeStep(EntryFacts::TimeStepOf(m_handle.Get())) {}

std::error_code WindowsFolder::forEachName(const std::function<std::error_code(const std::wstring&)>& visit) const {
    const auto buffer = std::make_unique_for_overwrite<std::uint64_t[]>(listingBuffer / sizeof(std::uint64_t));
    FILE_INFO_BY_HANDLE_CLASS which = FileIdBothDirectoryRestartInfo;
    for (;;) {
        if (!GetFileInformationByHandleEx(Handle(), which, buffer.get(), static_cast<DWORD>(listingBuffer)))
            return GetLastError() == ERROR_NO_MORE_FILES ? std::error_code() : LastFileError();
        which = FileIdBothDirectoryInfo;
        const auto* at = static_cast<const std::byte*>(static_cast<const void*>(buffer.get()));
        for (;;) {
            const auto* const record = static_cast<const FILE_ID_BOTH_DIR_INFO*>(static_cast<const void*>(at));
            const std::wstring name(record->FileName, record->FileNameLength / sizeof(wchar_t));
            const bool isEntry = name != L"." && name != L"..";
            if (const std::error_code error = isEntry ? visit(name) : std::error_code())
                return error;
            if (record->NextEntryOffset == 0)
                break;
            at += record->NextEntryOffset;
        }
    }
}

/// The listing itself tells of sizes and times that may be old. An entry that cannot be looked at is Unknown: whoever
/// would work on it reports it.
std::error_code WindowsFolder::readEntry(const std::wstring& name, FileFacts& facts) const {
    const std::error_code error = EntryFacts::Read(Handle(), name, m_timeStep, facts);
    if (!error || error == std::errc::no_such_file_or_directory || !idOf(Handle()))
        return error;
    facts = {};
    facts.kind = EntryKind::Unknown;
    facts.error = error;
    return {};
}

std::error_code WindowsFolder::List(std::vector<FolderEntry>& entries) const {
    return FolderListing::List<std::wstring>(
        [this](const auto& visit) { return forEachName(visit); }, &WindowsName::Narrow,
        [this](const std::wstring& name, FileFacts& facts) { return readEntry(name, facts); }, m_leftovers, entries);
}

std::optional<FileFacts> WindowsFolder::Stat(const std::filesystem::path& name, std::error_code& error) const {
    FileFacts facts;
    error = WindowsName::IsPlain(name) ? EntryFacts::Read(Handle(), name, m_timeStep, facts) : ErrorOf(EINVAL);
    if (!error)
        return facts;
    if (error == std::errc::no_such_file_or_directory)
        error.clear();
    return std::nullopt;
}

std::shared_ptr<Folder> WindowsFolder::OpenChild(const FolderEntry& entry, std::error_code& error) const {
    if (!WindowsName::IsPlain(entry.name)) {
        error = ErrorOf(EINVAL);
        return nullptr;
    }
    WinHandle handle =
        NtFile::Open(Handle(), entry.name, {.access = folderAccess, .kind = NtFile::Kind::Folder}, error);
    EntryStatus status{};
    if (!error)
        error = NtFile::ReadStatus(handle.Get(), status);
    if (!error && EntryFacts::KindOf(status) != EntryKind::Folder)
        error = ErrorOf(ENOTDIR);
    if (!error && status.id != entry.facts.id)
        error = ErrorOf(EAGAIN);
    return error ? nullptr
                 : std::make_shared<WindowsFolder>(std::move(handle),
                                                   std::make_shared<FolderPlace>(m_place, entry.name), status.id);
}

/// Links to folders are not entered, so the volume alone tells.
std::optional<std::uint64_t> WindowsFolder::Mount() const {
    const std::optional<FileId> id = idOf(Handle());
    return id ? std::optional(id->device) : std::nullopt;
}

DriveFacts WindowsFolder::Drive() const {
    return DriveOf(Handle(), Path());
}

std::error_code WindowsFolder::DeleteFile(const FolderEntry& entry) {
    if (!WindowsName::IsPlain(entry.name))
        return ErrorOf(EINVAL);
    std::error_code error;
    const WinHandle file = NtFile::Open(Handle(), entry.name,
                                        {.access = DELETE | FILE_READ_ATTRIBUTES, .kind = NtFile::Kind::File}, error);
    if (error)
        return error;
    EntryStatus opened{};
    FileFacts present;
    error = NtFile::ReadStatus(file.Get(), opened);
    if (!error)
        error = EntryFacts::Read(Handle(), entry.name, m_timeStep, present);
    if (error)
        return error;
    if (!present.IsSameAs(entry.facts) || (!present.isLink && present.id != opened.id))
        return ErrorOf(EAGAIN);
    return NtFile::Delete(file.Get());
}

std::error_code WindowsFolder::DeleteEmptyFolder(const std::filesystem::path& name) {
    if (!WindowsName::IsPlain(name))
        return ErrorOf(EINVAL);
    std::error_code error;
    const WinHandle folder = NtFile::Open(
        Handle(), name, {.access = DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, .kind = NtFile::Kind::Folder},
        error);
    EntryStatus status{};
    if (!error)
        error = NtFile::ReadStatus(folder.Get(), status);
    if (!error && EntryFacts::KindOf(status) != EntryKind::Folder)
        error = ErrorOf(ENOTDIR);
    return error ? error : NtFile::Delete(folder.Get(), true);
}

std::vector<FileId> WindowsFolder::Ancestors() const {
    std::vector<FileId> ids{m_id};
    std::filesystem::path path = PathFile::FinalPath(Handle());
    if (path.empty())
        path = Path();
    for (; path.has_relative_path() && path != path.parent_path(); path = path.parent_path()) {
        const WinHandle above = openPath(path.parent_path(), FILE_READ_ATTRIBUTES);
        if (const std::optional<FileId> id = above.IsOpen() ? idOf(above.Get()) : std::nullopt)
            ids.push_back(*id);
    }
    return ids;
}

bool WindowsFolder::StillThere() const {
    const WinHandle present = openPath(Path(), FILE_READ_ATTRIBUTES);
    return present.IsOpen() && idOf(present.Get()) == m_id;
}

void WindowsFolder::FindLeftovers() {
    FolderListing::FindLeftovers<std::wstring>([this](const auto& visit) { return forEachName(visit); },
                                               &WindowsName::Narrow, m_leftovers);
}

UnfinishedWork WindowsFolder::RemoveLeftovers() {
    if (!m_leftovers.AreSeen())
        FindLeftovers();
    return m_leftovers.RemoveFiles([this](const std::string& name) { return isLeftover(name); },
                                   [this](const std::string& name) { removeOwn(name); });
}

void WindowsFolder::ForgetUnfinished() {
    m_leftovers.RemoveMarks([this](const std::string& name) { removeOwn(name); });
}

void WindowsFolder::removeOwn(const std::string& name) const {
    std::error_code error;
    const WinHandle file = NtFile::Open(
        Handle(), wide(name),
        {.access = DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, .kind = NtFile::Kind::File}, error);
    if (!error)
        std::ignore = NtFile::Delete(file.Get(), true);
}

bool WindowsFolder::isLeftover(const std::string& name) const {
    const std::optional<ProcessMark> maker = MakerOfTemporary(name);
    std::error_code error;
    const WinHandle file = NtFile::Open(Handle(), wide(name), {}, error);
    EntryStatus status{};
    if (!maker || error || NtFile::ReadStatus(file.Get(), status) || EntryFacts::KindOf(status) != EntryKind::File)
        return false;
    const ProcessState state = StateOf(*maker, ProcessMark::OfThisProcess());
    // A process of another machine cannot be asked, but a living one changes its file more than once a day. The change
    // time counts, because the modification time may already be the source's. FAT has none: what is on it stays.
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    constexpr std::int64_t oneDay = std::int64_t{24} * 60 * 60 * 10'000'000;
    const auto present = static_cast<std::int64_t>((std::uint64_t{now.dwHighDateTime} << 32U) | now.dwLowDateTime);
    const bool isOld = status.changed != 0 && present - status.changed > oneDay;
    return state == ProcessState::Gone || (state == ProcessState::OnAnotherMachine && isOld);
}

HANDLE HandleOf(const Folder& folder) {
    return reinterpret_cast<HANDLE>(folder.SystemHandle()); // NOLINT(performance-no-int-to-ptr)
}
