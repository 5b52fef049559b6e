// Finds the ends of markup without parsing it. Positions are bytes of UTF-8 or another encoding that holds ASCII as it
// is. Malformed markup gives some position, never one outside.
#pragma once

#include <string_view>

namespace XmlMarkup {

/// Behind the tag that `at` lies in; ">" in quotes does not close it. npos when it is not closed.
[[nodiscard]] size_t EndOfTag(std::string_view markup, size_t at);

/// Behind a comment, a CDATA section or a processing instruction that begins at `at`; the end of the markup when it is
/// not closed, `at` itself when something else begins there.
[[nodiscard]] size_t SkipNoTag(std::string_view markup, size_t at);

} // namespace XmlMarkup
