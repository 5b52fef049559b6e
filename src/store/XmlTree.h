// The activity file as a tree of libxml2 nodes: finds nodes by path, counts and changes them. Owns the document and an
// index over the root's children, which every change below keeps in step. The root's child elements, the activities,
// are kept folded but for the one last worked on. What is not found is null; Append throws StoreError.
#pragma once

#include "XmlFold.h"
#include "XmlParser.h"
#include <QString>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

class XmlTree final {
  public:
    /// Null makes an empty tree, in which no path finds anything.
    explicit XmlTree(XmlDocument document) : m_document(std::move(document)) {}

    [[nodiscard]] xmlDoc* Document() const { return m_document.get(); }
    [[nodiscard]] bool HasRoot() const { return root() != nullptr; }

    /// First match: element, attribute, text, comment or the document itself, until the next call of anything here.
    /// Plain paths ("/items/NAME/field") use the index, which avoids a walk over the whole document, every other one
    /// XPath. An invalid expression finds nothing.
    [[nodiscard]] xmlNode* Find(const QString& path);

    /// Text of the first match. A field of a folded activity is read and written where it stands.
    [[nodiscard]] QString Text(const QString& path);
    void WriteText(const QString& path, const QString& text);

    /// What Text gives for each of these children of an element.
    [[nodiscard]] QStringList ChildTexts(const QString& path, std::span<const std::string_view> names);

    /// Whether a later sibling has the same name.
    [[nodiscard]] static bool HasLaterNamesake(const xmlNode& element);

    /// Only elements count below the root (an indented file has blanks and comments there), elsewhere everything but
    /// blank text.
    [[nodiscard]] int CountChildren(const xmlNode& node);
    [[nodiscard]] xmlNode* Child(const xmlNode& node, int position);

    /// The name with its prefix; "#text", "#comment" and "#cdata-section" for nodes without one.
    [[nodiscard]] static QString NameOf(const xmlNode& node);
    /// Whether an element of this name can be saved in the document's encoding and found again. At most 1,000 UTF-16
    /// units.
    [[nodiscard]] bool IsUsableName(const QString& name) const;

    /// Deletes the node; the document itself stays.
    void Remove(xmlNode& node);
    void Append(xmlNode& parent, XmlLooseNode element);
    /// Puts the element in the place of the old one and deletes that.
    void Replace(xmlNode& old, XmlLooseNode element);

  private:
    /// The root's child elements by position and name. Built on first use; holds pointers into the document.
    class Index final {
      public:
        static constexpr int None = -1;

        void Drop();
        /// An element was added after the root's last child.
        void Appended(xmlNode* element);
        [[nodiscard]] const std::vector<xmlNode*>& Elements(const xmlNode& root);
        /// Position of the first element of this name without namespace, or None.
        [[nodiscard]] int First(const xmlNode& root, std::string_view name);
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

    [[nodiscard]] xmlNode* root() const { return m_document ? xmlDocGetRootElement(m_document.get()) : nullptr; }
    using Steps = std::span<const std::string_view>;
    [[nodiscard]] xmlNode* findPlain(Steps steps);
    /// For the path of one field of an entry: calls `work` with the folded entries of this name, as long as it answers
    /// that such a field is missing.
    /// True when it has done its work.
    [[nodiscard]] bool atFoldedField(const QString& path,
                                     const std::function<XmlFold::Search(xmlNode&, std::string_view)>& work);
    /// Folds the one before, so that only one is large.
    xmlNode* unfolded(xmlNode* entry);
    void unfoldAll();
    void setText(xmlNode& node, const QString& text);

    XmlDocument m_document;
    Index m_index;
    xmlNode* m_unfolded = nullptr;
};
