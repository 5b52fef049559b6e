#include "XmlTree.h"
#include "StoreError.h"
#include "XmlWriter.h"

#include <QVarLengthArray>
#include <algorithm>
#include <libxml/xpathInternals.h>
#include <tuple>

namespace {

// Names.

constexpr qsizetype maxNameUnits = 1000;

bool isAscii(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

// Children.

const xmlNode* nextCounted(const xmlNode* node) {
    while (node != nullptr && node->type == XML_TEXT_NODE && xmlIsBlankNode(node) == 1)
        node = node->next;
    return node;
}

bool hasChildren(const xmlNode& node) {
    return node.type == XML_ELEMENT_NODE || node.type == XML_ATTRIBUTE_NODE || node.type == XML_DOCUMENT_NODE;
}

// Paths.

using XPathContext = std::unique_ptr<xmlXPathContext, XmlRelease<xmlXPathFreeContext>>;
using XPathObject = std::unique_ptr<xmlXPathObject, XmlRelease<xmlXPathFreeObject>>;

bool isElement(const xmlNode& node, std::string_view name) {
    const auto* own = reinterpret_cast<const char*>(node.name);
    return node.type == XML_ELEMENT_NODE && node.ns == nullptr && name.front() == own[0] && name == own;
}

xmlNode* walk(xmlNode* node, std::span<const std::string_view> steps) {
    if (steps.empty())
        return node;
    for (xmlNode* child = node->children; child != nullptr; child = child->next) {
        if (!isElement(*child, steps.front()))
            continue;
        // The rest of the path may exist only below a later element of the same name.
        if (xmlNode* found = walk(child, steps.subspan(1)))
            return found;
    }
    return nullptr;
}

/// True when every step is a plain name.
bool isPlain(QStringView path) {
    if (!path.startsWith(QLatin1Char('/')))
        return false;
    for (qsizetype start = 1; start <= path.size();) {
        const qsizetype slash = path.indexOf(QLatin1Char('/'), start);
        const qsizetype end = slash < 0 ? path.size() : slash;
        if (!XmlText::IsNcName(path.mid(start, end - start)))
            return false;
        start = end + 1;
    }
    return path.size() > 1;
}

auto splitSteps(const QByteArray& utf8) {
    QVarLengthArray<std::string_view, 8> steps;
    const std::string_view path(utf8.constData(), static_cast<size_t>(utf8.size()));
    for (size_t start = 1; start <= path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        steps.append(path.substr(start, end - start));
        start = end + 1;
    }
    return steps;
}

/// "//" outside of a literal. XPath reads it as "any descendant": it would match the first activity instead of none.
bool hasEmptyStep(QStringView path) {
    QChar quote;
    for (qsizetype at = 0; at < path.size(); ++at) {
        const QChar c = path[at];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == QLatin1Char('"') || c == QLatin1Char('\''))
            quote = c;
        else if (c == QLatin1Char('/') && at + 1 < path.size() && path[at + 1] == c)
            return true;
    }
    return false;
}

xmlNode* findByXPath(xmlDoc& document, xmlNode& root, const QByteArray& path) {
    const XmlQuiet quiet;
    const XPathContext context(xmlXPathNewContext(&document));
    if (!context)
        return nullptr;
    context->node = &root;
    context->error = [](void*, auto*) {};
    const XPathObject result(xmlXPathEval(XmlText::ToXml(path), context.get()));
    if (!result || result->type != XPATH_NODESET || xmlXPathNodeSetIsEmpty(result->nodesetval))
        return nullptr;
    xmlXPathNodeSetSort(result->nodesetval);
    xmlNode* first = result->nodesetval->nodeTab[0];
    return first->type == XML_NAMESPACE_DECL ? nullptr : first;
}

} // namespace

xmlNode* XmlTree::Find(const QString& path) {
    if (!HasRoot() || path.contains(QChar(u'\0')))
        return nullptr;
    const QByteArray utf8 = path.toUtf8();
    if (isPlain(path)) {
        const auto steps = splitSteps(utf8);
        return findPlain({steps.constData(), static_cast<size_t>(steps.size())});
    }
    if (hasEmptyStep(path))
        return nullptr;
    unfoldAll();
    return findByXPath(*m_document, *root(), utf8);
}

xmlNode* XmlTree::findPlain(Steps steps) {
    xmlNode* top = root();
    if (!isElement(*top, steps.front()))
        return nullptr;
    if (steps.size() == 1)
        return top;
    for (int at = m_index.First(*top, steps[1]); at != Index::None; at = m_index.NextOfSameName(at))
        if (xmlNode* found = walk(unfolded(m_index.Elements(*top)[static_cast<size_t>(at)]), steps.subspan(2)))
            return found;
    return nullptr;
}

bool XmlTree::atFoldedField(const QString& path,
                            const std::function<XmlFold::Search(xmlNode&, std::string_view)>& work) {
    if (!HasRoot() || !isPlain(path))
        return false;
    const QByteArray utf8 = path.toUtf8();
    const auto steps = splitSteps(utf8);
    xmlNode* top = root();
    if (steps.size() != 3 || !isElement(*top, steps.front()))
        return false;
    for (int at = m_index.First(*top, steps[1]); at != Index::None; at = m_index.NextOfSameName(at)) {
        xmlNode& entry = *m_index.Elements(*top)[static_cast<size_t>(at)];
        if (entry.children == nullptr)
            continue;
        const XmlFold::Search result = XmlFold::IsFolded(entry) ? work(entry, steps[2]) : XmlFold::Search::NotPlain;
        if (result != XmlFold::Search::Missing)
            return result == XmlFold::Search::Done;
    }
    return true; // nothing to read or to write
}

QString XmlTree::Text(const QString& path) {
    QString text;
    if (atFoldedField(
            path, [&](const xmlNode& entry, std::string_view field) { return XmlFold::ReadChild(entry, field, text); }))
        return text;
    const xmlNode* node = Find(path);
    if (node != nullptr && (node == root() || node->type == XML_DOCUMENT_NODE))
        unfoldAll();
    return node == nullptr ? QString() : XmlText::Of(node);
}

void XmlTree::WriteText(const QString& path, const QString& text) {
    const QString storable = XmlText::Storable(text);
    if (atFoldedField(
            path, [&](xmlNode& entry, std::string_view field) { return XmlFold::WriteChild(entry, field, storable); }))
        return;
    if (xmlNode* node = Find(path))
        setText(*node, storable);
}

QStringList XmlTree::ChildTexts(const QString& path, std::span<const std::string_view> names) {
    const QByteArray utf8 = path.toUtf8();
    const auto steps = splitSteps(utf8);
    QStringList texts;
    if (HasRoot() && isPlain(path) && steps.size() == 2 && isElement(*root(), steps.front())) {
        const int at = m_index.First(*root(), steps[1]);
        const bool isOnlyOne = at != Index::None && m_index.NextOfSameName(at) == Index::None;
        const xmlNode* entry = isOnlyOne ? m_index.Elements(*root())[static_cast<size_t>(at)] : nullptr;
        if (entry != nullptr && XmlFold::IsFolded(*entry) && XmlFold::ReadChildren(*entry, names, texts))
            return texts;
    }
    texts.clear();
    for (const std::string_view name : names)
        texts.append(Text(path + u'/' + QUtf8StringView(name.data(), static_cast<qsizetype>(name.size())).toString()));
    return texts;
}

bool XmlTree::HasLaterNamesake(const xmlNode& element) {
    const auto* name = reinterpret_cast<const char*>(element.name);
    for (const xmlNode* next = element.next; next != nullptr; next = next->next)
        if (isElement(*next, name))
            return true;
    return false;
}

xmlNode* XmlTree::unfolded(xmlNode* entry) {
    if (entry == m_unfolded)
        return entry;
    if (m_unfolded != nullptr)
        XmlFold::Fold(*m_unfolded, XmlWriter::EncodingOf(*m_document));
    m_unfolded = entry;
    XmlFold::Unfold(*entry);
    return entry;
}

void XmlTree::unfoldAll() {
    for (xmlNode* entry : m_index.Elements(*root()))
        XmlFold::Unfold(*entry);
}

int XmlTree::CountChildren(const xmlNode& node) {
    if (&node == root())
        return static_cast<int>(m_index.Elements(node).size());
    int count = 0;
    const xmlNode* child = hasChildren(node) ? nextCounted(node.children) : nullptr;
    for (; child != nullptr; child = nextCounted(child->next))
        ++count;
    return count;
}

xmlNode* XmlTree::Child(const xmlNode& node, int position) {
    if (position < 0 || !hasChildren(node))
        return nullptr;
    if (&node == root()) {
        const auto& elements = m_index.Elements(node);
        return static_cast<size_t>(position) < elements.size() ? elements[static_cast<size_t>(position)] : nullptr;
    }
    const xmlNode* child = nextCounted(node.children);
    for (; child != nullptr && position > 0; --position)
        child = nextCounted(child->next);
    return const_cast<xmlNode*>(child);
}

QString XmlTree::NameOf(const xmlNode& node) {
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

bool XmlTree::IsUsableName(const QString& name) const {
    if (!m_document || name.size() > maxNameUnits || !XmlText::IsNcName(name))
        return false;
    if (isAscii(name))
        return true;
    // There are many encodings: a trial document shows whether this one can hold the name.
    const XmlDocument trial(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
    if (!trial)
        return false;
    trial->standalone = m_document->standalone;
    trial->encoding = xmlStrdup(m_document->encoding);
    xmlDocSetRootElement(trial.get(), xmlNewDocNode(trial.get(), nullptr, XmlText::ToXml(name.toUtf8()), nullptr));
    const auto bytes = XmlWriter::Bytes(*trial);
    const XmlDocument again = bytes ? XmlParser::Parse(*bytes) : nullptr;
    return again && XmlText::FromXml(xmlDocGetRootElement(again.get())->name) == name;
}

// The index points at the root's children only: changes further down do not affect it.

void XmlTree::setText(xmlNode& node, const QString& text) {
    if (&node == root())
        m_index.Drop(), m_unfolded = nullptr;
    XmlText::Set(&node, text);
}

void XmlTree::Remove(xmlNode& node) {
    if (node.type == XML_DOCUMENT_NODE)
        return;
    if (node.type == XML_ATTRIBUTE_NODE) {
        xmlRemoveProp(reinterpret_cast<xmlAttr*>(&node));
        return;
    }
    if (&node == root() || node.parent == root())
        m_index.Drop(), m_unfolded = nullptr;
    xmlUnlinkNode(&node);
    xmlFreeNode(&node);
}

void XmlTree::Append(xmlNode& parent, XmlLooseNode element) {
    xmlNode* added = xmlAddChild(&parent, element.get());
    if (added == nullptr)
        throw StoreError(QStringLiteral("An element could not be added to the activity file."));
    std::ignore = element.release();
    if (&parent != root())
        return;
    m_index.Appended(added);
    XmlFold::Fold(*added, XmlWriter::EncodingOf(*m_document));
}

void XmlTree::Replace(xmlNode& old, XmlLooseNode element) {
    m_index.Drop();
    m_unfolded = nullptr;
    xmlReplaceNode(&old, element.release());
    xmlFreeNode(&old);
}

void XmlTree::Index::Drop() {
    m_isBuilt = false;
    m_elements.clear();
    m_next.clear();
    m_chains.clear();
}

void XmlTree::Index::Appended(xmlNode* element) {
    if (m_isBuilt)
        add(element);
}

const std::vector<xmlNode*>& XmlTree::Index::Elements(const xmlNode& root) {
    build(root);
    return m_elements;
}

int XmlTree::Index::First(const xmlNode& root, std::string_view name) {
    build(root);
    const auto found = m_chains.find(name);
    return found == m_chains.end() ? None : found->second.first;
}

void XmlTree::Index::build(const xmlNode& root) {
    if (m_isBuilt)
        return;
    for (xmlNode* child = root.children; child != nullptr; child = child->next)
        if (child->type == XML_ELEMENT_NODE)
            add(child);
    m_isBuilt = true;
}

void XmlTree::Index::add(xmlNode* element) {
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
