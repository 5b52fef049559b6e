// While it lives, libxml2 prints no error and loads no external entity. Restores what was set before: the library's
// settings belong to the whole process. Cannot fail.
#pragma once

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

class XmlQuiet final {
  public:
    XmlQuiet()
        : m_handler(xmlStructuredError), m_context(xmlStructuredErrorContext), m_loader(xmlGetExternalEntityLoader()) {
        xmlSetStructuredErrorFunc(nullptr, [](void*, auto*) {});
        xmlSetExternalEntityLoader(
            [](const char*, const char*, xmlParserCtxtPtr) -> xmlParserInputPtr { return nullptr; });
    }
    ~XmlQuiet() {
        xmlSetExternalEntityLoader(m_loader);
        xmlSetStructuredErrorFunc(m_context, m_handler);
    }
    XmlQuiet(const XmlQuiet&) = delete;
    XmlQuiet& operator=(const XmlQuiet&) = delete;

  private:
    xmlStructuredErrorFunc m_handler;
    void* m_context;
    xmlExternalEntityLoader m_loader;
};
