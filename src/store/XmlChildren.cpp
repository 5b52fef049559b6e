#include "XmlChildren.h"
#include "XmlText.h"

namespace {

bool isRoot(const xmlNode& node) {
    return node.type == XML_ELEMENT_NODE && node.doc != nullptr && xmlDocGetRootElement(node.doc) == &node;
}

const xmlNode* nextCounted(const xmlNode* node) {
    while (node != nullptr && node->type == XML_TEXT_NODE && xmlIsBlankNode(node) == 1)
        node = node->next;
    return node;
}

bool hasChildren(const xmlNode& node) {
    return node.type == XML_ELEMENT_NODE || node.type == XML_ATTRIBUTE_NODE || node.type == XML_DOCUMENT_NODE;
}

} // namespace

int XmlChildren::Count(const xmlNode& node, XmlIndex& index) {
    if (isRoot(node))
        return static_cast<int>(index.Elements(node).size());
    int count = 0;
    const xmlNode* child = hasChildren(node) ? nextCounted(node.children) : nullptr;
    for (; child != nullptr; child = nextCounted(child->next))
        ++count;
    return count;
}

xmlNode* XmlChildren::At(const xmlNode& node, XmlIndex& index, int position) {
    if (position < 0 || !hasChildren(node))
        return nullptr;
    if (isRoot(node)) {
        const auto& elements = index.Elements(node);
        return static_cast<size_t>(position) < elements.size() ? elements[static_cast<size_t>(position)] : nullptr;
    }
    const xmlNode* child = nextCounted(node.children);
    for (; child != nullptr && position > 0; --position)
        child = nextCounted(child->next);
    return const_cast<xmlNode*>(child);
}

QString XmlChildren::NameOf(const xmlNode& node) {
    switch (node.type) {
    case XML_TEXT_NODE:
        return QStringLiteral("#text");
    case XML_CDATA_SECTION_NODE:
        return QStringLiteral("#cdata-section");
    case XML_COMMENT_NODE:
        return QStringLiteral("#comment");
    default:
        break;
    }
    const QString name = XmlText::FromXml(node.name);
    const bool isPrefixed = node.type == XML_ELEMENT_NODE && node.ns != nullptr && node.ns->prefix != nullptr;
    return isPrefixed ? XmlText::FromXml(node.ns->prefix) + u':' + name : name;
}
