#include "WorkMark.h"
#include "SystemCall.h"

#include <fcntl.h>

WorkMark::WorkMark(std::shared_ptr<Folder> folder, const ProcessMark& maker, TemporaryKind kind)
    : m_folder(std::move(folder)), m_maker(maker), m_kind(kind), m_name(MakeTemporaryName(maker, kind)) {
    constexpr mode_t ownerMayWrite = 0600;
    const FileDescriptor file(::openat(m_folder->Descriptor(), m_name.c_str(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownerMayWrite));
    if (!file.IsOpen())
        m_name.clear();
}

std::error_code WorkMark::Remove() {
    if (!m_name.empty() && ::unlinkat(m_folder->Descriptor(), m_name.c_str(), 0) != 0 && errno != ENOENT)
        return LastError();
    m_name.clear();
    return {};
}

void WorkMark::Abandon() const {
    ProcessMark nobody = m_maker;
    nobody.process = 0;
    const std::string name = MakeTemporaryName(nobody, m_kind);
    if (!m_name.empty())
        ::renameat(m_folder->Descriptor(), m_name.c_str(), m_folder->Descriptor(), name.c_str());
}
