// Keeps an activity small: its children as one piece of markup, in a text node that libxml2 writes unescaped, instead
// of three nodes for each field. A folded element saves and copies like any other. Nothing here throws; what cannot be
// folded or unfolded stays as it is.
#pragma once

#include <QStringList>
#include <libxml/tree.h>
#include <span>
#include <string_view>

namespace XmlFold {

[[nodiscard]] bool IsFolded(const xmlNode& element);

/// `encoding`: the one the document will be saved in; null when it names none, for then only ASCII is written.
void Fold(xmlNode& element, const char* encoding);

void Unfold(xmlNode& element);

enum class Search {
    Missing, ///< no such child
    Done,    ///< the first child of this name, without attributes, holds nothing but text
    NotPlain ///< the element must be unfolded to answer
};

/// The text of a child of a folded element.
[[nodiscard]] Search ReadChild(const xmlNode& element, std::string_view name, QString& text);

/// The text of each of these children, "" for what is missing, in one walk. False when the element must be unfolded.
[[nodiscard]] bool ReadChildren(const xmlNode& element, std::span<const std::string_view> names, QStringList& texts);

/// Replaces the text of a child of a folded element.
[[nodiscard]] Search WriteChild(xmlNode& element, std::string_view name, const QString& text);

} // namespace XmlFold
