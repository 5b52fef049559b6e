#include "EntryFacts.h"
#include "NtFile.h"

#include <aclapi.h>
#include <array>
#include <limits>
#include <string_view>

namespace {

constexpr std::int64_t oneSecond = 1'000'000'000;

// Not in all versions of the headers. Files of the first two read like any other.
constexpr DWORD deduplicated = 0x80000013;
constexpr DWORD compressedByFile = 0x80000017;
constexpr DWORD symbolicLink = 0xA000000C;
constexpr DWORD leadsElsewhere = 0x20000000; ///< the bit of every tag that stands for another entry
constexpr DWORD recallOnOpen = 0x00040000;
constexpr DWORD recallOnRead = 0x00400000;

bool isFolder(const EntryStatus& status) {
    return (status.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isLinkToFile(const EntryStatus& status) {
    return status.reparseTag == symbolicLink && !isFolder(status);
}

/// The owner of an open entry; `memory` is freed by the caller.
PSID ownerOf(HANDLE entry, PSECURITY_DESCRIPTOR& memory) {
    PSID owner = nullptr;
    const DWORD error =
        GetSecurityInfo(entry, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr, nullptr, &memory);
    return error == ERROR_SUCCESS ? owner : nullptr;
}

bool mayFollow(HANDLE link, HANDLE target) {
    PSECURITY_DESCRIPTOR first = nullptr;
    PSECURITY_DESCRIPTOR second = nullptr;
    const PSID maker = ownerOf(link, first);
    const PSID owner = ownerOf(target, second);
    BOOL isOwn = FALSE;
    const bool mayAsk = maker != nullptr && CheckTokenMembership(nullptr, maker, &isOwn) != 0;
    const bool may =
        (mayAsk && isOwn != FALSE) || (maker != nullptr && owner != nullptr && EqualSid(maker, owner) != 0);
    LocalFree(first);
    LocalFree(second);
    return may;
}

std::error_code readTarget(HANDLE folder, const std::filesystem::path& name, std::int64_t timeStep, FileFacts& facts) {
    std::error_code error;
    const NtFile::Order readsOwner{.access = FILE_READ_ATTRIBUTES | READ_CONTROL};
    NtFile::Order follows = readsOwner;
    follows.links = NtFile::Links::Follow;
    const WinHandle link = NtFile::Open(folder, name, readsOwner, error);
    if (error)
        return error;
    const WinHandle target = NtFile::Open(folder, name, follows, error);
    if (error == std::errc::no_such_file_or_directory || error == std::errc::too_many_symbolic_link_levels)
        return {}; // dangling
    EntryStatus status{};
    if (!error)
        error = NtFile::ReadStatus(target.Get(), status);
    if (error)
        return error;
    if (!mayFollow(link.Get(), target.Get()))
        return FileError(ERROR_ACCESS_DENIED);
    const bool isElsewhere = status.id.device != facts.id.device;
    facts = EntryFacts::Of(status, isElsewhere ? EntryFacts::TimeStepOf(target.Get()) : timeStep);
    facts.kind = facts.kind == EntryKind::Folder ? EntryKind::FolderLink : facts.kind;
    facts.isLink = true;
    return {};
}

} // namespace

std::int64_t EntryFacts::Nanoseconds(std::int64_t time) {
    constexpr std::int64_t from1601To1970 = 116'444'736'000'000'000;
    constexpr std::int64_t step = 100;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / step;
    const std::int64_t since1970 = time - from1601To1970; // a time is never negative
    if (since1970 > most)
        return std::numeric_limits<std::int64_t>::max();
    return since1970 < -most ? std::numeric_limits<std::int64_t>::min() : since1970 * step;
}

/// What lies in a cloud only would be fetched by reading it.
EntryKind EntryFacts::KindOf(const EntryStatus& status) {
    if ((status.attributes & (recallOnOpen | recallOnRead)) != 0)
        return EntryKind::Special;
    const DWORD tag = status.reparseTag;
    const bool isPlain = tag == 0 || tag == deduplicated || tag == compressedByFile;
    if (isPlain)
        return isFolder(status) ? EntryKind::Folder : EntryKind::File;
    return isFolder(status) && (tag & leadsElsewhere) != 0 ? EntryKind::FolderLink : EntryKind::Special;
}

FileFacts EntryFacts::Of(const EntryStatus& status, std::int64_t timeStep) {
    return {.kind = KindOf(status),
            .id = status.id,
            .size = status.size,
            .modified = {Nanoseconds(status.modified), timeStep},
            .changed = Nanoseconds(status.changed)};
}

std::int64_t EntryFacts::TimeStepOf(HANDLE entry) {
    std::array<wchar_t, MAX_PATH + 1> name{};
    const bool isKnown = GetVolumeInformationByHandleW(entry, nullptr, 0, nullptr, nullptr, nullptr, name.data(),
                                                       static_cast<DWORD>(name.size())) != 0;
    const std::wstring_view fileSystem(name.data());
    return isKnown && (fileSystem == L"FAT" || fileSystem == L"FAT32") ? 2 * oneSecond : 1;
}

std::error_code EntryFacts::Read(HANDLE folder, const std::filesystem::path& name, std::int64_t timeStep,
                                 FileFacts& facts) {
    facts = {};
    std::error_code error;
    const WinHandle entry = NtFile::Open(folder, name, {}, error);
    EntryStatus status{};
    if (!error)
        error = NtFile::ReadStatus(entry.Get(), status);
    if (error)
        return error;
    facts = Of(status, timeStep);
    facts.isLink = status.reparseTag == symbolicLink || facts.kind == EntryKind::FolderLink;
    return isLinkToFile(status) ? readTarget(folder, name, timeStep, facts) : std::error_code();
}

bool EntryFacts::IsSameContent(const EntryStatus& before, const EntryStatus& now) {
    return now.id == before.id && now.size == before.size && now.modified == before.modified &&
           now.changed == before.changed;
}
