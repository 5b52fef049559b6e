#include "WorkMark.h"
#include "SystemFiles.h"

WorkMark::WorkMark(std::shared_ptr<Folder> folder, const ProcessMark& maker, TemporaryKind kind)
    : m_folder(std::move(folder)), m_maker(maker), m_kind(kind), m_name(MakeTemporaryName(maker, kind)) {
    if (SystemFiles::MakeMark(*m_folder, m_name))
        m_name.clear();
}

std::error_code WorkMark::Remove() {
    if (!m_name.empty()) {
        if (const std::error_code error = SystemFiles::RemoveMark(*m_folder, m_name))
            return error;
    }
    m_name.clear();
    return {};
}

void WorkMark::Abandon() const {
    ProcessMark nobody = m_maker;
    nobody.process = 0;
    const std::string name = MakeTemporaryName(nobody, m_kind);
    if (!m_name.empty())
        SystemFiles::RenameMark(*m_folder, m_name, name);
}
