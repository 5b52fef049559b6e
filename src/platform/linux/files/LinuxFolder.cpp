#include "LinuxFolder.h"
#include "EntryFacts.h"
#include "SystemError.h"
#include "TemporaryName.h"

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/xattr.h>

namespace {

constexpr std::size_t kListingBuffer = std::size_t{64} * 1024;
constexpr std::time_t kOneDay = std::time_t{24} * 60 * 60;
constexpr int kMaximumAncestors = 4096;

} // namespace

std::shared_ptr<LinuxFolder> LinuxFolder::Open(int at, const char* name, std::filesystem::path path, bool followLink,
                                               std::error_code& error) {
    error.clear();
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
    FileDescriptor descriptor(::openat(at, name, flags));
    struct stat status {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0) {
        error = LastError();
        return nullptr;
    }
    return std::make_shared<LinuxFolder>(std::move(descriptor), std::move(path), IdOf(status));
}

LinuxFolder::LinuxFolder(FileDescriptor descriptor, std::filesystem::path path, FileId id)
    : m_descriptor(std::move(descriptor)), m_path(std::move(path)), m_id(id),
      m_timeStep(TimeStepOf(m_descriptor.Get())) {}

bool LinuxFolder::IsPlainName(const std::filesystem::path& name) {
    const std::string& bytes = name.native();
    return !bytes.empty() && bytes != "." && bytes != ".." &&
           bytes.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

std::error_code LinuxFolder::forEachName(const std::function<std::error_code(const char*)>& visit) const {
    if (::lseek(Descriptor(), 0, SEEK_SET) < 0)
        return LastError();
    const auto buffer = std::make_unique_for_overwrite<char[]>(kListingBuffer);
    for (;;) {
        const ssize_t length = ::getdents64(Descriptor(), buffer.get(), kListingBuffer);
        if (length <= 0)
            return length < 0 ? LastError() : std::error_code();
        for (ssize_t at = 0; at < length;) {
            const char* record = buffer.get() + at;
            const char* name = record + offsetof(struct dirent64, d_name);
            at += reinterpret_cast<const struct dirent64*>(record)->d_reclen;
            const std::string_view text(name);
            if (text == "." || text == "..")
                continue;
            if (const std::error_code error = visit(name))
                return error;
        }
    }
}

/// An entry that cannot be looked at (a dead mount, say) is Unknown: it is reported where it would have been worked on.
/// A folder that may not be searched at all is an error of its own.
std::error_code LinuxFolder::readEntry(const char* name, FileFacts& facts) const {
    const std::error_code error = ReadEntryFacts(Descriptor(), name, m_id.device, m_timeStep, facts);
    struct stat self {};
    if (!error || error == std::errc::no_such_file_or_directory || ::fstatat(Descriptor(), ".", &self, 0) != 0)
        return error;
    facts = {.kind = EntryKind::Unknown, .error = error};
    return {};
}

std::error_code LinuxFolder::List(std::vector<FolderEntry>& entries) const {
    entries.clear();
    std::vector<std::string> temporaries;
    const std::error_code error = forEachName([&](const char* name) -> std::error_code {
        if (MakerOfTemporary(name)) {
            temporaries.emplace_back(name);
            return {};
        }
        FileFacts facts;
        const std::error_code failure = readEntry(name, facts);
        if (!failure)
            entries.push_back({name, facts});
        // Gone since its name was read: then it simply is not there any more.
        return failure == std::errc::no_such_file_or_directory ? std::error_code() : failure;
    });
    if (error) {
        entries.clear();
        return error;
    }
    m_temporaries = std::move(temporaries);
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name.native() < b.name.native(); });
    return {};
}

std::optional<FileFacts> LinuxFolder::Stat(const std::filesystem::path& name, std::error_code& error) const {
    FileFacts facts;
    error = IsPlainName(name) ? ReadEntryFacts(Descriptor(), name.c_str(), m_id.device, m_timeStep, facts)
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
    auto child = Open(Descriptor(), entry.name.c_str(), m_path / entry.name, false, error);
    if (child && child->Id() != entry.facts.id) {
        error = ErrorOf(EAGAIN);
        child.reset();
    }
    return child;
}

std::uint64_t LinuxFolder::Mount() const {
    struct statx status {};
    const bool isKnown = ::statx(Descriptor(), "", AT_EMPTY_PATH, STATX_MNT_ID, &status) == 0 &&
                         (status.stx_mask & STATX_MNT_ID) != 0; // since Linux 5.8
    return isKnown ? status.stx_mnt_id : m_id.device;
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
    for (int level = 0; level < kMaximumAncestors; ++level) {
        if (!parent.IsOpen() || ::fstat(parent.Get(), &status) != 0 || IdOf(status) == ids.back())
            break; // the root is its own parent
        ids.push_back(IdOf(status));
        parent = FileDescriptor(::openat(parent.Get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    return ids;
}

bool LinuxFolder::StillThere() const {
    struct stat status {};
    return ::stat(m_path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && IdOf(status) == m_id;
}

bool LinuxFolder::HasDefaultAccessList() const {
    if (!m_hasDefaultAccessList)
        m_hasDefaultAccessList = ::fgetxattr(Descriptor(), "system.posix_acl_default", nullptr, 0) >= 0;
    return *m_hasDefaultAccessList;
}

void LinuxFolder::RemoveLeftovers() {
    if (!m_temporaries) {
        std::vector<std::string> found;
        // A listing that breaks off is no harm here: what it has found is ours all the same.
        static_cast<void>(forEachName([&](const char* name) -> std::error_code {
            if (MakerOfTemporary(name))
                found.emplace_back(name);
            return {};
        }));
        m_temporaries = std::move(found);
    }
    const std::vector<std::string> temporaries = std::move(*m_temporaries);
    m_temporaries.reset();
    for (const std::string& name : temporaries)
        removeIfLeftover(name);
}

void LinuxFolder::removeIfLeftover(const std::string& name) const {
    const std::optional<ProcessMark> maker = MakerOfTemporary(name);
    struct stat status {};
    if (!maker || ::fstatat(Descriptor(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode))
        return;
    const ProcessState state = StateOf(*maker, ProcessMark::OfThisProcess());
    // Nobody here can tell whether a process of another machine lives, but a living one changes its file more often
    // than once a day. The change time is asked, for the modification time may already be the source's.
    const bool isOld = std::time(nullptr) - status.st_ctim.tv_sec > kOneDay;
    if (state == ProcessState::Gone || (state == ProcessState::OnAnotherMachine && isOld))
        ::unlinkat(Descriptor(), name.c_str(), 0);
}
