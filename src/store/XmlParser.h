// Parses bytes or text into a document. Refuses (null) what is not well-formed, declares a DOCTYPE, exceeds 64 MiB or
// contains an overlong tag or would take too much memory. Nothing is repaired, no entity is loaded, nothing is printed.
#pragma once

#include "XmlText.h"
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <optional>

using XmlDocument = std::unique_ptr<xmlDoc, XmlRelease<xmlFreeDoc>>;

/// While it lives, libxml2 prints no errors and loads no external entities. These settings are global to the process:
/// the destructor restores them.
class XmlQuiet final {
  public:
    XmlQuiet();
    ~XmlQuiet();
    XmlQuiet(const XmlQuiet&) = delete;
    XmlQuiet& operator=(const XmlQuiet&) = delete;

  private:
    xmlStructuredErrorFunc m_handler;
    void* m_context;
    xmlExternalEntityLoader m_loader;
};

namespace XmlParser {

constexpr qsizetype MaxBytes = 64 << 20;

/// Whether these bytes are refused unread, for the memory or the time they would take.
[[nodiscard]] bool IsTooCostly(const QByteArray& bytes);

/// Parses bytes in the encoding they declare. The root's child elements are folded.
[[nodiscard]] XmlDocument Parse(const QByteArray& bytes);

/// The number of the root's child elements in bytes that Parse would take, found without building a tree.
[[nodiscard]] std::optional<int> CountEntries(const QByteArray& bytes);

/// Parses text. The encoding it declares is ignored for parsing and kept for saving.
[[nodiscard]] XmlDocument ParseText(const QString& text);

} // namespace XmlParser
