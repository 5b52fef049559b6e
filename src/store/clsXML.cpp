#include "clsXML.h"
#include "OwnFiles.h"
#include "StoreError.h"
#include "XmlTree.h"
#include "XmlWriter.h"
#include "modForeignText.h"
#include "modNativePath.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <tuple>

namespace {

constexpr int shiftWidth = 13;

[[noreturn]] void noSuchNode(const QString& path) {
    throw StoreError(QStringLiteral("The activity file holds no \"%1\".").arg(path));
}

xmlAttr* attributeOf(xmlNode* node, const QString& name) {
    return node == nullptr || node->type != XML_ELEMENT_NODE ? nullptr
                                                             : xmlHasProp(node, XmlText::ToXml(name.toUtf8()));
}

QString attributeText(xmlNode* node, const QString& name) {
    const xmlAttr* attribute = attributeOf(node, name);
    return attribute == nullptr ? QString() : XmlText::Of(reinterpret_cast<const xmlNode*>(attribute));
}

/// Throws when memory runs out.
XmlLooseNode newElement(xmlDoc* document, const QString& name, const QString& text) {
    XmlLooseNode element(xmlNewDocNode(document, nullptr, XmlText::ToXml(name.toUtf8()), nullptr));
    if (!element || !XmlText::Set(element.get(), text))
        throw StoreError(QStringLiteral("There is not enough memory for \"%1\".").arg(name));
    return element;
}

/// Throws when nothing matches.
xmlNode& require(XmlTree& tree, const QString& path) {
    xmlNode* node = tree.Find(path);
    if (node == nullptr)
        noSuchNode(path);
    return *node;
}

xmlNode& requireElement(XmlTree& tree, const QString& path) {
    xmlNode& node = require(tree, path);
    if (node.type != XML_ELEMENT_NODE)
        noSuchNode(path);
    return node;
}

/// libxml2 stops at what it cannot encode and still reports success, and some encodings read back differently:
/// Shift_JIS makes another character of a backslash. Such bytes must not replace a file.
bool readsBack(const QByteArray& bytes, XmlTree& tree) {
    xmlNode& root = *xmlDocGetRootElement(tree.Document());
    const QByteArray encoding(XmlWriter::EncodingOf(*tree.Document()));
    // These are exact. Counting spares the memory of a second tree.
    if (encoding.isEmpty() || encoding.compare("UTF-8", Qt::CaseInsensitive) == 0 ||
        encoding.compare("ISO-8859-1", Qt::CaseInsensitive) == 0)
        return XmlParser::CountEntries(bytes) == tree.CountChildren(root);
    const XmlDocument again = XmlParser::Parse(bytes);
    return again && XmlWriter::Markup(*xmlDocGetRootElement(again.get())) == XmlWriter::Markup(root);
}

xmlNode* childOf(XmlTree& tree, const QString& path, int position) {
    const xmlNode* node = tree.Find(path);
    return node == nullptr ? nullptr : tree.Child(*node, position);
}

} // namespace

clsXML::clsXML(OwnFiles& files) : m_files(files), m_tree(std::make_unique<XmlTree>(nullptr)) {}

clsXML::~clsXML() = default;

QString clsXML::XMLDocumentInfo(int kind) const {
    const xmlDoc* document = m_tree->Document();
    if (document == nullptr || !XmlWriter::IsDeclared(*document))
        throw StoreError(QStringLiteral("The activity file has no XML declaration."));
    switch (kind) {
    case 0:
        return XmlText::FromXml(document->version);
    case 1:
        return XmlText::FromXml(document->encoding);
    case 2:
        if (document->standalone < 0)
            return {};
        return document->standalone == 1 ? QStringLiteral("yes") : QStringLiteral("no");
    default:
        throw StoreError(QStringLiteral("The XML declaration has no part number %1.").arg(kind));
    }
}

bool clsXML::OpenXML(const QString& source, int mode) {
    ++m_revision;
    m_tree = std::make_unique<XmlTree>(nullptr);
    XmlDocument opened;
    QByteArray bytes;
    if (mode == 0 && !m_files.ReadAll(modNativePath::FromText(source), XmlParser::MaxBytes, bytes))
        opened = XmlParser::Parse(bytes);
    else if (mode == 1)
        opened = XmlParser::ParseText(source);
    if (!opened)
        return false;
    m_tree = std::make_unique<XmlTree>(std::move(opened));
    return true;
}

QString clsXML::ReadNode(const QString& path) const {
    return m_tree->Text(path);
}

QStringList clsXML::ReadChildren(const QString& path, std::span<const std::string_view> names) const {
    return m_tree->ChildTexts(path, names);
}

QString clsXML::ReadNodeXML(const QString& path) const {
    xmlNode& node = require(*m_tree, path);
    return node.type == XML_DOCUMENT_NODE ? XML() : XmlWriter::Markup(node);
}

QString clsXML::XML() const {
    return m_tree->HasRoot() ? XmlWriter::Markup(*m_tree->Document()) : QString();
}

void clsXML::WriteNode(const QString& path, const QString& value) {
    ++m_revision;
    m_tree->WriteText(path, value);
}

QString clsXML::ReadAttribute(const QString& path, const QString& name) const {
    return attributeText(m_tree->Find(path), name);
}

void clsXML::WriteAttribute(const QString& path, const QStringList& names, const QStringList& values) {
    ++m_revision;
    xmlNode* node = m_tree->Find(path);
    if (node == nullptr || node->type != XML_ELEMENT_NODE)
        return;
    for (qsizetype i = 0; i < std::min(names.size(), values.size()); ++i) {
        // "xmlns" would move the element into a namespace; after the next load no plain path would find it.
        if (names[i] == QLatin1String("xmlns") || !IsUsableName(names[i]))
            continue;
        const QByteArray value = XmlText::Storable(values[i]).toUtf8();
        xmlSetNsProp(node, nullptr, XmlText::ToXml(names[i].toUtf8()), XmlText::ToXml(value));
    }
}

int clsXML::NodeCount(const QString& path) const {
    const xmlNode* node = m_tree->Find(path);
    return node == nullptr ? -1 : m_tree->CountChildren(*node);
}

void clsXML::Save(const QString& filePath) {
    if (!m_tree->HasRoot())
        throw StoreError(QStringLiteral("There is no document to save."));
    const auto bytes = XmlWriter::Bytes(*m_tree->Document());
    if (!bytes || !readsBack(*bytes, *m_tree))
        throw StoreError(QStringLiteral("The document cannot be written in its encoding."));
    if (const std::error_code error = m_files.ReplaceAll(modNativePath::FromText(filePath), *bytes))
        throw StoreError(modForeignText::OfError(error));
}

void clsXML::DeleteNode(const QString& path) {
    ++m_revision;
    if (xmlNode* node = m_tree->Find(path))
        m_tree->Remove(*node);
}

void clsXML::DeleteChildren(const QString& parentPath, QStringList names) {
    ++m_revision;
    while (!names.isEmpty()) {
        // Find them all before the first one goes: each removal makes the tree forget where the others are.
        QSet<xmlNode*> found;
        QSet<QString> sought;
        QStringList again;
        for (const QString& name : names) {
            if (sought.contains(name)) {
                again.append(name);
            } else if (xmlNode* node = m_tree->Find(parentPath + u'/' + name)) {
                sought.insert(name);
                found.insert(node);
            }
        }
        for (xmlNode* node : found)
            m_tree->Remove(*node);
        names = again;
    }
}

void clsXML::MakeNode(const QString& parentPath, const QString& name, const std::optional<QString>& value) {
    ++m_revision;
    xmlNode& parent = requireElement(*m_tree, parentPath);
    requireUsableName(name);
    m_tree->Append(parent, newElement(m_tree->Document(), name, value.value_or(QString())));
}

void clsXML::ReplaceElement(const QString& parentPath, const QString& oldName, const QString& newName,
                            const QList<std::pair<QString, QString>>& children) {
    ++m_revision;
    xmlNode& parent = requireElement(*m_tree, parentPath);
    requireUsableName(newName);
    XmlLooseNode element = newElement(m_tree->Document(), newName, {});
    for (const auto& [name, text] : children) {
        requireUsableName(name);
        XmlLooseNode child = newElement(m_tree->Document(), name, text);
        if (xmlAddChild(element.get(), child.get()) == nullptr)
            throw StoreError(QStringLiteral("There is not enough memory for \"%1\".").arg(name));
        std::ignore = child.release();
    }
    xmlNode* old = oldName.isEmpty() ? nullptr : m_tree->Find(parentPath + u'/' + oldName);
    if (old != nullptr && newName == oldName && XmlTree::HasLaterNamesake(*old))
        return m_tree->Replace(*old, std::move(element));
    if (old != nullptr)
        m_tree->Remove(*old);
    m_tree->Append(parent, std::move(element));
}

void clsXML::AllOrNothing(const std::function<void()>& work) {
    XmlDocument copy(m_tree->Document() == nullptr ? nullptr : xmlCopyDoc(m_tree->Document(), 1));
    if (!copy && m_tree->Document() != nullptr)
        throw StoreError(QStringLiteral("There is not enough memory for the change."));
    auto before = std::make_unique<XmlTree>(std::move(copy));
    try {
        work();
    } catch (...) {
        ++m_revision;
        m_tree = std::move(before);
        throw;
    }
}

void clsXML::DeleteAttribute(const QString& path, const QString& name) {
    ++m_revision;
    if (xmlAttr* attribute = attributeOf(&require(*m_tree, path), name))
        xmlRemoveProp(attribute);
}

std::uint32_t clsXML::GetColorValue(const QString& path) const {
    static const QRegularExpression form(
        QStringLiteral(R"(^\s*\(\s*(\d{1,3})\s*,\s*(\d{1,3})\s*,\s*(\d{1,3})\s*\)\s*$)"));
    const QRegularExpressionMatch match = form.match(ReadNode(path));
    std::uint32_t colour = 0;
    for (int part = 3; part >= 1; --part) {
        const std::uint32_t value = match.captured(part).toUInt();
        if (value > 255)
            return 0;
        colour = colour * 256 + value;
    }
    return colour;
}

void clsXML::SetColorValue(const QString& path, int red, int green, int blue) {
    WriteNode(path, QStringLiteral("(%1, %2, %3)").arg(red).arg(green).arg(blue));
}

QString clsXML::GetChildValue(const QString& path, int index) const {
    const xmlNode* child = childOf(*m_tree, path, index);
    return child == nullptr ? QString() : XmlText::Of(child);
}

QString clsXML::GetChildAttribute(const QString& path, int index, const QString& name) const {
    return attributeText(childOf(*m_tree, path, index), name);
}

QString clsXML::GetChildName(const QString& path, int index) const {
    const xmlNode* child = childOf(*m_tree, path, index);
    if (child == nullptr)
        noSuchNode(QStringLiteral("%1[%2]").arg(path).arg(index));
    return XmlTree::NameOf(*child);
}

void clsXML::EncryptNode(const QString& path) {
    shift(path, shiftWidth);
}

void clsXML::DecryptNode(const QString& path) {
    shift(path, -shiftWidth);
}

void clsXML::shift(const QString& path, int by) {
    QList<uint> characters = ReadNode(path).toUcs4();
    for (uint& character : characters) {
        character += static_cast<uint>(by); // a character below 13 wraps to a value that is no XML character
        if (!XmlText::IsXmlCharacter(character))
            return;
    }
    const auto* units = reinterpret_cast<const char32_t*>(characters.constData());
    WriteNode(path, QString::fromUcs4(units, characters.size()));
}

bool clsXML::IsUsableName(const QString& name) const {
    return m_tree->IsUsableName(name);
}

void clsXML::requireUsableName(const QString& name) const {
    if (!IsUsableName(name))
        throw StoreError(QStringLiteral("\"%1\" cannot be the name of an element.").arg(name));
}
