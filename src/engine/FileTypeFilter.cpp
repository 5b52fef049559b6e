#include "FileTypeFilter.h"

#include <algorithm>

namespace {
// Character by character, because the usual upper-casing turns one letter into two in some words and the test counts
// characters.
QString upper(QString text) {
    for (QChar& letter : text)
        letter = letter.toUpper();
    return text;
}
} // namespace

FileTypeFilter::FileTypeFilter(const QString& extensions) : m_active(!extensions.isEmpty()) {
    if (!m_active)
        return;
    for (const QString& entry : extensions.split(u';'))
        m_entries.append({entry.size(), upper(entry.trimmed())});
}

bool FileTypeFilter::Passes(const QString& fullPath) const {
    return !m_active || std::any_of(m_entries.begin(), m_entries.end(), [&fullPath](const Entry& entry) {
        return upper(fullPath.right(entry.length)) == entry.suffix;
    });
}
