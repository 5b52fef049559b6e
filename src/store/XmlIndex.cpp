#include "XmlIndex.h"

void XmlIndex::Drop() {
    m_isBuilt = false;
    m_elements.clear();
    m_next.clear();
    m_chains.clear();
}

void XmlIndex::Appended(xmlNode* element) {
    if (m_isBuilt)
        add(element);
}

const std::vector<xmlNode*>& XmlIndex::Elements(const xmlNode& root) {
    build(root);
    return m_elements;
}

int XmlIndex::First(const xmlNode& root, std::string_view name) {
    build(root);
    const auto found = m_chains.find(name);
    return found == m_chains.end() ? None : found->second.first;
}

void XmlIndex::build(const xmlNode& root) {
    if (m_isBuilt)
        return;
    for (xmlNode* child = root.children; child != nullptr; child = child->next)
        if (child->type == XML_ELEMENT_NODE)
            add(child);
    m_isBuilt = true;
}

void XmlIndex::add(xmlNode* element) {
    const int position = static_cast<int>(m_elements.size());
    m_elements.push_back(element);
    m_next.push_back(None);
    if (element->ns != nullptr)
        return; // a plain step means "no namespace"
    const auto [chain, isNew] =
        m_chains.try_emplace(reinterpret_cast<const char*>(element->name), Chain{position, position});
    if (!isNew) {
        m_next[static_cast<size_t>(chain->second.last)] = position;
        chain->second.last = position;
    }
}
