#include "FolderPlace.h"

#include <vector>

std::filesystem::path FolderPlace::Whole() const {
    std::vector<const FolderPlace*> up;
    for (const FolderPlace* place = this; place != nullptr; place = place->m_parent.get())
        up.push_back(place);
    constexpr auto separator = std::filesystem::path::preferred_separator;
    std::filesystem::path::string_type whole;
    for (; !up.empty(); up.pop_back()) {
        if (!whole.empty() && whole.back() != separator)
            whole += separator;
        whole += up.back()->m_name.native();
    }
    return whole;
}
