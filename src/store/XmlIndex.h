// The child elements of a document's root, by position and by name. Owns only pointers into the document: whoever
// changes those children tells it. Built at its first use, in one walk.
#pragma once

#include "XmlHandles.h"
#include <string_view>
#include <unordered_map>
#include <vector>

class XmlIndex final {
  public:
    static constexpr int None = -1;

    /// Forget everything: the document or its root's children have changed.
    void Drop();
    /// An element was added behind the last child of the root.
    void Appended(xmlNode* element);

    [[nodiscard]] const std::vector<xmlNode*>& Elements(const xmlNode& root);
    /// Position of the first element of this name without namespace, or None.
    [[nodiscard]] int First(const xmlNode& root, std::string_view name);
    /// Position of the next element of the same name, or None.
    [[nodiscard]] int NextOfSameName(int position) const { return m_next[static_cast<size_t>(position)]; }

  private:
    struct Chain {
        int first;
        int last;
    };
    void build(const xmlNode& root);
    void add(xmlNode* element);

    bool m_isBuilt = false;
    std::vector<xmlNode*> m_elements;
    std::vector<int> m_next;
    std::unordered_map<std::string_view, Chain> m_chains;
};
