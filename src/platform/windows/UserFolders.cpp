#include "UserFolders.h"

#include <memory>
#include <shlobj.h>

namespace {

struct TaskMemory {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

std::filesystem::path knownFolder(const KNOWNFOLDERID& id) {
    wchar_t* path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &path);
    const std::unique_ptr<wchar_t, TaskMemory> owner(path);
    return SUCCEEDED(result) ? std::filesystem::path(path) : std::filesystem::path();
}

} // namespace

std::filesystem::path UserFolders::OfTheUser() {
    return knownFolder(FOLDERID_RoamingAppData);
}

std::filesystem::path UserFolders::OfThisMachine() {
    return knownFolder(FOLDERID_LocalAppData);
}
