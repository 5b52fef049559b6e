#include "XmlMarkup.h"

namespace {

/// Position after the end mark, or the end of the markup.
size_t skipPast(std::string_view markup, std::string_view mark, size_t from) {
    const size_t found = markup.find(mark, from);
    return found == std::string_view::npos ? markup.size() : found + mark.size();
}

} // namespace

size_t XmlMarkup::EndOfTag(std::string_view markup, size_t at) {
    for (char quote = '\0'; at < markup.size(); ++at) {
        const char c = markup[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return std::string_view::npos;
}

size_t XmlMarkup::SkipNoTag(std::string_view markup, size_t at) {
    const std::string_view rest = markup.substr(at);
    if (rest.starts_with("<!--"))
        return skipPast(markup, "-->", at + 4);
    if (rest.starts_with("<![CDATA["))
        return skipPast(markup, "]]>", at + 9);
    return rest.starts_with("<?") ? skipPast(markup, "?>", at + 2) : at;
}
