// Owners for libxml2's handles: each is released exactly once, whatever happens. Cannot fail.
#pragma once

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>
#include <memory>

struct XmlRelease {
    void operator()(xmlDoc* handle) const { xmlFreeDoc(handle); }
    void operator()(xmlNode* handle) const { xmlFreeNode(handle); }
    void operator()(xmlBuffer* handle) const { xmlBufferFree(handle); }
    void operator()(xmlXPathContext* handle) const { xmlXPathFreeContext(handle); }
    void operator()(xmlXPathObject* handle) const { xmlXPathFreeObject(handle); }
    void operator()(xmlParserCtxt* handle) const {
        if (handle != nullptr && handle->myDoc != nullptr)
            xmlFreeDoc(handle->myDoc);
        xmlFreeParserCtxt(handle);
    }
};

using XmlDocument = std::unique_ptr<xmlDoc, XmlRelease>;
/// A node that hangs in no tree yet.
using XmlLooseNode = std::unique_ptr<xmlNode, XmlRelease>;
using XmlBuffer = std::unique_ptr<xmlBuffer, XmlRelease>;
using XmlXPathContext = std::unique_ptr<xmlXPathContext, XmlRelease>;
using XmlXPathObject = std::unique_ptr<xmlXPathObject, XmlRelease>;
/// Owns the document it is building too, until that is taken out of it.
using XmlParserContext = std::unique_ptr<xmlParserCtxt, XmlRelease>;
