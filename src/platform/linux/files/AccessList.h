// A POSIX access list as the kernel keeps it in an extended attribute. Free functions over its bytes, which may be
// anything: what is no such list is left alone.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <sys/types.h>

namespace AccessList {

inline constexpr std::string_view Access = "system.posix_acl_access";
inline constexpr std::string_view Default = "system.posix_acl_default";

/// The permission bits of the owning group, at their place in a mode. Where there is a list, the group bits of the mode
/// are its mask instead. 0 when this is no list.
[[nodiscard]] mode_t GroupBits(std::span<const char> list);

/// Takes from the owning group what others do not have.
void GiveGroupNoMoreThanOthers(std::span<char> list);

} // namespace AccessList
