#include "XmlPath.h"
#include "XmlNames.h"
#include "XmlQuiet.h"
#include "XmlText.h"

#include <QVarLengthArray>
#include <libxml/xpathInternals.h>
#include <span>

namespace {

using Steps = QVarLengthArray<std::string_view, 8>;

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
        // The first NAME may lack the rest of the path while a later one of the same name has it.
        if (xmlNode* found = walk(child, steps.subspan(1)))
            return found;
    }
    return nullptr;
}

xmlNode* findPlain(xmlNode& root, XmlIndex& index, std::span<const std::string_view> steps) {
    if (!isElement(root, steps.front()))
        return nullptr;
    if (steps.size() == 1)
        return &root;
    for (int at = index.First(root, steps[1]); at != XmlIndex::None; at = index.NextOfSameName(at))
        if (xmlNode* found = walk(index.Elements(root)[static_cast<size_t>(at)], steps.subspan(2)))
            return found;
    return nullptr;
}

/// True when every step is a plain name.
bool isPlain(QStringView path) {
    if (!path.startsWith(QLatin1Char('/')))
        return false;
    for (qsizetype start = 1; start <= path.size();) {
        const qsizetype slash = path.indexOf(QLatin1Char('/'), start);
        const qsizetype end = slash < 0 ? path.size() : slash;
        if (!XmlNames::IsNcName(path.mid(start, end - start)))
            return false;
        start = end + 1;
    }
    return path.size() > 1;
}

Steps splitSteps(std::string_view path) {
    Steps steps;
    for (size_t start = 1; start <= path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        steps.append(path.substr(start, end - start));
        start = end + 1;
    }
    return steps;
}

/// "//" outside of a literal: an empty step, which would match the first activity instead of none.
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
    const XmlXPathContext context(xmlXPathNewContext(&document));
    if (!context)
        return nullptr;
    context->node = &root;
    context->error = [](void*, auto*) {};
    const XmlXPathObject result(xmlXPathEval(XmlText::ToXml(path), context.get()));
    if (!result || result->type != XPATH_NODESET || xmlXPathNodeSetIsEmpty(result->nodesetval))
        return nullptr;
    xmlXPathNodeSetSort(result->nodesetval);
    xmlNode* first = result->nodesetval->nodeTab[0];
    return first->type == XML_NAMESPACE_DECL ? nullptr : first;
}

} // namespace

xmlNode* XmlPath::FindFirst(xmlDoc& document, XmlIndex& index, const QString& path) {
    xmlNode* root = xmlDocGetRootElement(&document);
    if (root == nullptr || path.contains(QChar(u'\0')))
        return nullptr;
    const QByteArray utf8 = path.toUtf8();
    if (isPlain(path)) {
        const Steps steps = splitSteps({utf8.constData(), static_cast<size_t>(utf8.size())});
        return findPlain(*root, index, {steps.constData(), static_cast<size_t>(steps.size())});
    }
    return hasEmptyStep(path) ? nullptr : findByXPath(document, *root, utf8);
}
