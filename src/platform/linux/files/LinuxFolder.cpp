#include "LinuxFolder.h"
#include "FolderListing.h"
#include "SystemCall.h"

#include <cstddef>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <linux/magic.h>
#include <memory>
#include <string_view>
#include <sys/vfs.h>
#include <sys/xattr.h>

namespace {

constexpr std::size_t listingBuffer = std::size_t{64} * 1024;
constexpr std::time_t oneDay = std::time_t{24} * 60 * 60;
constexpr int mostAncestors = 4096;
constexpr std::int64_t billion = 1'000'000'000;

/// Clamped to the range (years 1678 to 2262).
std::int64_t toNanoseconds(const struct timespec& time) {
    if (time.tv_sec >= std::numeric_limits<std::int64_t>::max() / billion)
        return std::numeric_limits<std::int64_t>::max();
    if (time.tv_sec <= std::numeric_limits<std::int64_t>::min() / billion)
        return std::numeric_limits<std::int64_t>::min();
    return time.tv_sec * billion + time.tv_nsec;
}

/// The step in which the file system stores times, in nanoseconds: 2 s on FAT, else 1.
std::int64_t timeStepOf(int descriptor) {
    struct statfs fileSystem {};
    const bool isFat = ::fstatfs(descriptor, &fileSystem) == 0 && fileSystem.f_type == MSDOS_SUPER_MAGIC;
    return isFat ? 2 * billion : 1;
}

EntryKind kindOf(const struct stat& status, bool isLink) {
    if (S_ISREG(status.st_mode))
        return EntryKind::File;
    if (S_ISDIR(status.st_mode))
        return isLink ? EntryKind::FolderLink : EntryKind::Folder;
    return EntryKind::Special;
}

FileFacts factsOf(const struct stat& status, bool isLink, std::int64_t timeStep) {
    return {.kind = kindOf(status, isLink),
            .isLink = isLink,
            .id = IdOf(status),
            .size = static_cast<std::uint64_t>(status.st_size),
            .modified = {toNanoseconds(status.st_mtim), timeStep},
            .mode = status.st_mode & 07777U,
            .changed = toNanoseconds(status.st_ctim)};
}

/// A link may lead to another file system with another step.
std::int64_t timeStepOfTarget(int folder, const char* name) {
    const FileDescriptor target(::openat(folder, name, O_PATH | O_CLOEXEC));
    return target.IsOpen() ? timeStepOf(target.Get()) : 1;
}

bool isDangling(const std::error_code& error) {
    return error == ErrorOf(ENOENT) || error == ErrorOf(ENOTDIR) || error == ErrorOf(ELOOP) ||
           error == ErrorOf(ENAMETOOLONG);
}

bool mayFollow(const struct stat& link, const struct stat& target) {
    return !S_ISREG(target.st_mode) || link.st_uid == ::geteuid() || link.st_uid == target.st_uid;
}

/// Facts of the entry `name` of an open folder, links followed. `device` and `timeStep` are the folder's own. A link to
/// a file is followed only if its owner is this process's user or the file's owner (EACCES otherwise): a privileged run
/// would publish files that the maker of the link may not read. A dangling link is Special.
std::error_code readEntryFacts(int folder, const char* name, std::uint64_t device, std::int64_t timeStep,
                               FileFacts& facts) {
    struct stat status {};
    facts = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return LastError();
    if (!S_ISLNK(status.st_mode)) {
        facts = factsOf(status, false, timeStep);
        return {};
    }
    facts.isLink = true;
    struct stat target {};
    if (::fstatat(folder, name, &target, 0) != 0) {
        const std::error_code error = LastError();
        return isDangling(error) ? std::error_code() : error;
    }
    if (!mayFollow(status, target))
        return ErrorOf(EACCES);
    facts = factsOf(target, true, target.st_dev == device ? timeStep : timeStepOfTarget(folder, name));
    return {};
}

std::string_view sameName(const char* name) {
    return name;
}

} // namespace

std::shared_ptr<LinuxFolder> LinuxFolder::Open(int at, const char* name, std::shared_ptr<const FolderPlace> place,
                                               bool followLink, std::error_code& error) {
    error.clear();
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
    FileDescriptor descriptor(::openat(at, name, flags));
    struct stat status {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0) {
        error = LastError();
        return nullptr;
    }
    return std::make_shared<LinuxFolder>(std::move(descriptor), std::move(place), IdOf(status));
}

LinuxFolder::LinuxFolder(FileDescriptor descriptor, std::shared_ptr<const FolderPlace> place, FileId id)
    : m_descriptor(std::move(descriptor)), m_place(std::move(place)), m_id(id),
      m_timeStep(timeStepOf(m_descriptor.Get())) {}

bool LinuxFolder::IsPlainName(const std::filesystem::path& name) {
    const std::string& bytes = name.native();
    return !bytes.empty() && bytes != "." && bytes != ".." &&
           bytes.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

std::error_code LinuxFolder::forEachName(const std::function<std::error_code(const char*)>& visit) const {
    return ForEachEntry(Descriptor(), [&visit](const struct dirent64& entry) { return visit(entry.d_name); });
}

/// An entry that stat() fails on (a dead mount, say) is Unknown: whoever would work on it reports it. A folder without
/// search permission fails as a whole.
std::error_code LinuxFolder::readEntry(const char* name, FileFacts& facts) const {
    const std::error_code error = readEntryFacts(Descriptor(), name, m_id.device, m_timeStep, facts);
    struct stat self {};
    if (!error || error == std::errc::no_such_file_or_directory || ::fstatat(Descriptor(), ".", &self, 0) != 0)
        return error;
    facts = {.kind = EntryKind::Unknown, .error = error};
    return {};
}

std::error_code LinuxFolder::List(std::vector<FolderEntry>& entries) const {
    return FolderListing::List<const char*>(
        [this](const auto& visit) { return forEachName(visit); }, sameName,
        [this](const char* name, FileFacts& facts) { return readEntry(name, facts); }, m_leftovers, entries);
}

std::optional<FileFacts> LinuxFolder::Stat(const std::filesystem::path& name, std::error_code& error) const {
    FileFacts facts;
    error = IsPlainName(name) ? readEntryFacts(Descriptor(), name.c_str(), m_id.device, m_timeStep, facts)
                              : ErrorOf(EINVAL);
    if (!error)
        return facts;
    if (error == std::errc::no_such_file_or_directory)
        error.clear();
    return std::nullopt;
}

std::shared_ptr<Folder> LinuxFolder::OpenChild(const FolderEntry& entry, std::error_code& error) const {
    if (!IsPlainName(entry.name)) {
        error = ErrorOf(EINVAL);
        return nullptr;
    }
    auto child =
        Open(Descriptor(), entry.name.c_str(), std::make_shared<FolderPlace>(m_place, entry.name), false, error);
    if (child && child->Id() != entry.facts.id) {
        error = ErrorOf(EAGAIN);
        child.reset();
    }
    return child;
}

std::optional<std::uint64_t> LinuxFolder::Mount() const {
    struct statx status {};
    if (::statx(Descriptor(), "", AT_EMPTY_PATH, STATX_MNT_ID, &status) != 0)
        return errno == ENOSYS ? std::optional(m_id.device) : std::nullopt;
    return (status.stx_mask & STATX_MNT_ID) != 0 ? status.stx_mnt_id : m_id.device; // since Linux 5.8
}

std::error_code LinuxFolder::DeleteFile(const FolderEntry& entry) {
    std::error_code error;
    const std::optional<FileFacts> present = Stat(entry.name, error);
    if (error)
        return error;
    if (!present || !present->IsSameAs(entry.facts))
        return ErrorOf(present ? EAGAIN : ENOENT);
    return ::unlinkat(Descriptor(), entry.name.c_str(), 0) == 0 ? std::error_code() : LastError();
}

std::error_code LinuxFolder::DeleteEmptyFolder(const std::filesystem::path& name) {
    if (!IsPlainName(name))
        return ErrorOf(EINVAL);
    return ::unlinkat(Descriptor(), name.c_str(), AT_REMOVEDIR) == 0 ? std::error_code() : LastError();
}

std::vector<FileId> LinuxFolder::Ancestors() const {
    std::vector<FileId> ids{m_id};
    FileDescriptor parent(::openat(Descriptor(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status {};
    for (int level = 0; level < mostAncestors; ++level) {
        if (!parent.IsOpen() || ::fstat(parent.Get(), &status) != 0 || IdOf(status) == ids.back())
            break; // the root is its own parent
        ids.push_back(IdOf(status));
        parent = FileDescriptor(::openat(parent.Get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    return ids;
}

bool LinuxFolder::StillThere() const {
    struct stat status {};
    return ::stat(Path().c_str(), &status) == 0 && S_ISDIR(status.st_mode) && IdOf(status) == m_id;
}

bool LinuxFolder::PassesOnRights() const {
    if (!m_passesOnRights)
        m_passesOnRights = ::fgetxattr(Descriptor(), "system.posix_acl_default", nullptr, 0) >= 0;
    return *m_passesOnRights;
}

void LinuxFolder::FindLeftovers() {
    FolderListing::FindLeftovers<const char*>([this](const auto& visit) { return forEachName(visit); }, sameName,
                                              m_leftovers);
}

UnfinishedWork LinuxFolder::RemoveLeftovers() {
    if (!m_leftovers.AreSeen())
        FindLeftovers();
    return m_leftovers.RemoveFiles([this](const std::string& name) { return isLeftover(name); },
                                   [this](const std::string& name) { removeOwn(name); });
}

void LinuxFolder::ForgetUnfinished() {
    m_leftovers.RemoveMarks([this](const std::string& name) { removeOwn(name); });
}

void LinuxFolder::removeOwn(const std::string& name) const {
    ::unlinkat(Descriptor(), name.c_str(), 0);
}

bool LinuxFolder::isLeftover(const std::string& name) const {
    const std::optional<ProcessMark> maker = MakerOfTemporary(name);
    struct stat status {};
    if (!maker || ::fstatat(Descriptor(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode))
        return false;
    const ProcessState state = StateOf(*maker, ProcessMark::OfThisProcess());
    // A process of another machine cannot be asked, but a living one changes its file more than once a day. The change
    // time counts, because the modification time may already be the source's.
    const bool isOld = std::time(nullptr) - status.st_ctim.tv_sec > oneDay;
    return state == ProcessState::Gone || (state == ProcessState::OnAnotherMachine && isOld);
}

bool IsUnchanged(const FileFacts& facts, const struct stat& status) {
    return S_ISREG(status.st_mode) && IdOf(status) == facts.id &&
           static_cast<std::uint64_t>(status.st_size) == facts.size &&
           toNanoseconds(status.st_mtim) == facts.modified.nanoseconds;
}

bool IsSameContent(const struct stat& before, const struct stat& now) {
    const auto isSame = [](const struct timespec& a, const struct timespec& b) {
        return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
    };
    return IdOf(now) == IdOf(before) && now.st_size == before.st_size && isSame(now.st_mtim, before.st_mtim) &&
           isSame(now.st_ctim, before.st_ctim);
}

FileId IdOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

std::error_code ForEachEntry(int folder, const std::function<std::error_code(const struct dirent64&)>& visit) {
    if (::lseek(folder, 0, SEEK_SET) < 0)
        return LastError();
    const auto buffer = std::make_unique_for_overwrite<char[]>(listingBuffer);
    for (;;) {
        const ssize_t length = ::getdents64(folder, buffer.get(), listingBuffer);
        if (length <= 0)
            return length < 0 ? LastError() : std::error_code();
        for (ssize_t at = 0; at < length;) {
            const auto& entry = *reinterpret_cast<const struct dirent64*>(buffer.get() + at);
            at += entry.d_reclen;
            const std::string_view name(static_cast<const char*>(entry.d_name));
            if (name == "." || name == "..")
                continue;
            if (const std::error_code error = visit(entry))
                return error;
        }
    }
}
