// The listing of a folder, of the names that a system gives one by one.
#pragma once

#include "Folder.h"
#include "Leftovers.h"
#include "TemporaryName.h"
#include <algorithm>
#include <tuple>

namespace FolderListing {

/// Fills `entries`, sorted, with what `read(name, facts)` says of each name. Our own temporary files go to the
/// leftovers instead. `forEach` calls what it is given for each name and returns the first error; `narrow` makes a
/// std::string of a name. After an error there are no entries.
template <typename Name, typename ForEach, typename Narrow, typename Read>
std::error_code List(const ForEach& forEach, const Narrow& narrow, const Read& read, Leftovers& leftovers,
                     std::vector<FolderEntry>& entries) {
    entries.clear();
    std::vector<std::string> temporaries;
    const std::error_code error = forEach([&](const Name& name) -> std::error_code {
        if (const auto own = narrow(name); MakerOfTemporary(own)) {
            temporaries.emplace_back(own);
            return {};
        }
        if (narrow(name) == TrashName)
            return {};
        FileFacts facts;
        const std::error_code failure = read(name, facts);
        if (!failure)
            entries.push_back({name, facts});
        // Deleted since its name was read: not an error.
        return failure == std::errc::no_such_file_or_directory ? std::error_code() : failure;
    });
    if (error) {
        entries.clear();
        return error;
    }
    leftovers.SetSeen(std::move(temporaries));
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name.native() < b.name.native(); });
    return {};
}

/// The leftovers alone. A listing that breaks off does no harm here: the names found so far are valid.
template <typename Name, typename ForEach, typename Narrow>
void FindLeftovers(const ForEach& forEach, const Narrow& narrow, Leftovers& leftovers) {
    std::vector<std::string> found;
    std::ignore = forEach([&](const Name& name) -> std::error_code {
        if (const auto own = narrow(name); MakerOfTemporary(own))
            found.emplace_back(own);
        return {};
    });
    leftovers.SetSeen(std::move(found));
}

} // namespace FolderListing
