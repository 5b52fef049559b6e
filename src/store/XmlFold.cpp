#include "XmlFold.h"
#include "XmlMarkup.h"
#include "XmlParser.h"

#include <algorithm>
#include <cstring>
#include <libxml/parserInternals.h>
#include <libxml/xmlsave.h>
#include <string>
#include <vector>

namespace {

using Buffer = std::unique_ptr<xmlBuffer, XmlRelease<xmlBufferFree>>;

/// A child element in the markup, from its "<" to behind its last ">".
struct Child {
    std::string_view name;
    std::string_view inner;
    size_t end = 0;
    bool isPlain = true; ///< no attributes, nothing but text inside
    bool hasEndTag = true;
};

Child childAt(std::string_view markup, size_t at) {
    Child child;
    const size_t nameEnd = std::min(markup.find_first_of(" \t\n\r/>", at + 1), markup.size());
    child.name = markup.substr(at + 1, nameEnd - at - 1);
    size_t position = std::min(XmlMarkup::EndOfTag(markup, nameEnd), markup.size());
    child.hasEndTag = markup[position - 2] != '/';
    child.isPlain = position - nameEnd == (child.hasEndTag ? 1 : 2);
    const size_t begin = position;
    child.end = position;
    for (int depth = child.hasEndTag ? 1 : 0; depth > 0;) {
        const size_t tag = markup.find('<', position);
        position = XmlMarkup::SkipNoTag(markup, tag);
        if (position == tag) {
            position = std::min(XmlMarkup::EndOfTag(markup, tag), markup.size());
            const bool closes = markup[tag + 1] == '/';
            depth += closes ? -1 : static_cast<int>(markup[position - 2] != '/');
            child.isPlain = child.isPlain && closes;
        } else {
            child.isPlain = false;
        }
        child.inner = markup.substr(begin, tag - begin);
        child.end = position;
    }
    return child;
}

std::string_view markupOf(const xmlNode& element) {
    const auto* content = reinterpret_cast<const char*>(element.children->content);
    return content == nullptr ? std::string_view() : std::string_view(content);
}

/// Calls `visit` with the child elements until it answers true.
void walk(std::string_view markup, const auto& visit) {
    for (size_t at = markup.find('<'); at < markup.size(); at = markup.find('<', at)) {
        if (const size_t behind = XmlMarkup::SkipNoTag(markup, at); behind != at) {
            at = behind;
            continue;
        }
        const Child child = childAt(markup, at);
        if (visit(child))
            return;
        at = child.end;
    }
}

/// The first child element of this name; without a name when there is none.
Child find(std::string_view markup, std::string_view name) {
    Child found;
    walk(markup, [&](const Child& child) {
        if (child.name == name)
            found = child;
        return child.name == name;
    });
    return found;
}

/// Only the references that libxml2 writes itself: "&lt;", "&gt;", "&amp;", "&quot;" and numbers.
QString decoded(std::string_view text) {
    if (text.find('&') == std::string_view::npos)
        return XmlText::FromUtf8({text.data(), static_cast<qsizetype>(text.size())});
    std::string plain;
    for (size_t at = 0; at < text.size();) {
        const size_t reference = std::min(text.find('&', at), text.size());
        plain += text.substr(at, reference - at);
        if (reference == text.size())
            break;
        const size_t end = std::min(text.find(';', reference), text.size() - 1);
        const std::string_view name = text.substr(reference + 1, end - reference - 1);
        if (name.starts_with('#')) {
            const bool isHex = name.starts_with("#x");
            const char32_t character =
                static_cast<char32_t>(std::stoul(std::string(name.substr(isHex ? 2 : 1)), nullptr, isHex ? 16 : 10));
            // QString::fromUcs4 would take U+FEFF for a byte order mark.
            plain += QStringView(QChar::fromUcs4(character)).toUtf8().toStdString();
        } else {
            plain += name == "lt" ? '<' : name == "gt" ? '>' : name == "amp" ? '&' : '"';
        }
        at = end + 1;
    }
    return XmlText::FromUtf8({plain.data(), static_cast<qsizetype>(plain.size())});
}

bool isWrittenAsItIs(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= u' ' && c <= u'~' && c != u'&' && c != u'<' && c != u'>'; });
}

/// Puts one text node with this markup in the place of all children. False when memory runs out.
bool setMarkup(xmlNode& element, std::string_view markup) {
    XmlLooseNode text(xmlNewDocTextLen(element.doc, reinterpret_cast<const xmlChar*>(markup.data()),
                                       static_cast<int>(markup.size())));
    if (!text || text->content == nullptr)
        return false;
    text->name = xmlStringTextNoenc;
    xmlNode* old = element.children;
    text->parent = &element;
    element.children = text.get();
    element.last = text.release();
    xmlFreeNodeList(old);
    return true;
}

} // namespace

bool XmlFold::IsFolded(const xmlNode& element) {
    return element.type == XML_ELEMENT_NODE && element.children != nullptr && element.children->type == XML_TEXT_NODE &&
           element.children->name == xmlStringTextNoenc;
}

void XmlFold::Fold(xmlNode& element, const char* encoding) {
    if (element.children == nullptr || IsFolded(element))
        return;
    const Buffer buffer(xmlBufferCreate());
    xmlSaveCtxt* context =
        buffer ? xmlSaveToBuffer(buffer.get(), encoding == nullptr ? nullptr : "UTF-8", XML_SAVE_NO_DECL) : nullptr;
    if (context == nullptr)
        return;
    bool isWhole = true;
    for (xmlNode* child = element.children; child != nullptr; child = child->next)
        isWhole = xmlSaveTree(context, child) >= 0 && isWhole;
    if (xmlSaveClose(context) < 0 || !isWhole)
        return;
    setMarkup(element, {reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                        static_cast<size_t>(xmlBufferLength(buffer.get()))});
}

void XmlFold::Unfold(xmlNode& element) {
    if (!IsFolded(element))
        return;
    const XmlQuiet quiet;
    const XmlLooseNode folded(element.children);
    element.children = element.last = nullptr;
    folded->parent = nullptr;
    const auto* markup = reinterpret_cast<const char*>(folded->content);
    // The markup is UTF-8, whatever encoding the document is saved in.
    const xmlChar* encoding = std::exchange(element.doc->encoding, nullptr);
    xmlNode* children = nullptr;
    const xmlParserErrors result =
        xmlParseInNodeContext(&element, markup, static_cast<int>(std::strlen(markup)), XML_PARSE_NONET, &children);
    element.doc->encoding = encoding;
    if (result == XML_ERR_OK) {
        xmlAddChildList(&element, children);
        return;
    }
    xmlFreeNodeList(children);
    setMarkup(element, markup);
}

XmlFold::Search XmlFold::ReadChild(const xmlNode& element, std::string_view name, QString& text) {
    const Child child = find(markupOf(element), name);
    if (child.name.empty())
        return Search::Missing;
    if (!child.isPlain)
        return Search::NotPlain;
    text = decoded(child.inner);
    return Search::Done;
}

bool XmlFold::ReadChildren(const xmlNode& element, std::span<const std::string_view> names, QStringList& texts) {
    texts = QStringList(static_cast<qsizetype>(names.size()), QString());
    std::vector<bool> isRead(names.size());
    bool isPlain = true;
    size_t next = 0; // a file mostly holds the fields in the order of the names
    walk(markupOf(element), [&](const Child& child) {
        for (size_t tried = 0; tried < names.size(); ++tried) {
            const size_t at = (next + tried) % names.size();
            if (names[at] != child.name)
                continue;
            isPlain = isPlain && (child.isPlain || isRead[at]);
            if (!isRead[at])
                texts[static_cast<qsizetype>(at)] = decoded(child.inner);
            isRead[at] = true;
            next = at + 1;
            break;
        }
        return !isPlain;
    });
    return isPlain;
}

XmlFold::Search XmlFold::WriteChild(xmlNode& element, std::string_view name, const QString& text) {
    const std::string_view markup = markupOf(element);
    const Child child = find(markup, name);
    if (child.name.empty())
        return Search::Missing;
    if (!child.isPlain || !isWrittenAsItIs(text))
        return Search::NotPlain;
    const size_t begin = static_cast<size_t>(child.name.data() - markup.data()) - 1;
    std::string changed(markup.substr(0, begin));
    const std::string tag(name);
    changed += text.isEmpty() ? "<" + tag + "/>" : "<" + tag + ">" + text.toStdString() + "</" + tag + ">";
    changed += markup.substr(child.end);
    return setMarkup(element, changed) ? Search::Done : Search::NotPlain;
}
