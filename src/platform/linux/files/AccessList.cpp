#include "AccessList.h"

#include <cstring>
#include <endian.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>

namespace {

using Header = struct posix_acl_xattr_header;
using Entry = struct posix_acl_xattr_entry;

/// Where the entry of this kind stands, of which there is at most one; 0 when there is none.
std::size_t find(std::span<const char> list, std::uint16_t tag, Entry& entry) {
    Header header{};
    if (list.size() < sizeof header)
        return 0;
    std::memcpy(&header, list.data(), sizeof header);
    if (le32toh(header.a_version) != POSIX_ACL_XATTR_VERSION)
        return 0;
    for (std::size_t at = sizeof header; at + sizeof entry <= list.size(); at += sizeof entry) {
        std::memcpy(&entry, list.data() + at, sizeof entry);
        if (le16toh(entry.e_tag) == tag)
            return at;
    }
    return 0;
}

} // namespace

mode_t AccessList::GroupBits(std::span<const char> list) {
    Entry group{};
    return find(list, ACL_GROUP_OBJ, group) != 0 ? mode_t{le16toh(group.e_perm)} << 3U & S_IRWXG : 0;
}

void AccessList::GiveGroupNoMoreThanOthers(std::span<char> list) {
    Entry group{};
    Entry others{};
    const std::size_t place = find(list, ACL_GROUP_OBJ, group);
    if (place == 0 || find(list, ACL_OTHER, others) == 0)
        return;
    group.e_perm = group.e_perm & others.e_perm;
    std::memcpy(list.data() + place, &group, sizeof group);
}
