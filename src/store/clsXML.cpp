#include "clsXML.h"
#include "OwnFiles.h"
#include "StoreError.h"
#include "XmlChildren.h"
#include "XmlNames.h"
#include "XmlParser.h"
#include "XmlPath.h"
#include "XmlText.h"
#include "XmlWriter.h"
#include "modForeignText.h"
#include "modNativePath.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr int undeclared = -1;
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

/// A loose element that holds this text. Throws when there is no memory for it.
XmlLooseNode newElement(xmlDoc* document, const QString& name, const QString& text) {
    XmlLooseNode element(xmlNewDocNode(document, nullptr, XmlText::ToXml(name.toUtf8()), nullptr));
    if (!element || !XmlText::Set(element.get(), text))
        throw StoreError(QStringLiteral("There is not enough memory for \"%1\".").arg(name));
    return element;
}

} // namespace

/// The document with its index. Both live and die together.
class clsXML::Document final {
  public:
    explicit Document(XmlDocument document) : m_document(std::move(document)) {}

    [[nodiscard]] xmlDoc* Get() const { return m_document.get(); }
    [[nodiscard]] XmlIndex& Index() { return m_index; }
    [[nodiscard]] bool HasRoot() const { return m_document && xmlDocGetRootElement(Get()) != nullptr; }
    [[nodiscard]] xmlNode* Find(const QString& path) {
        return m_document ? XmlPath::FindFirst(*m_document, m_index, path) : nullptr;
    }
    /// Throws when nothing matches.
    [[nodiscard]] xmlNode* Require(const QString& path) {
        xmlNode* node = Find(path);
        if (node == nullptr)
            noSuchNode(path);
        return node;
    }
    [[nodiscard]] xmlNode* Child(const QString& path, int position) {
        const xmlNode* node = Find(path);
        return node == nullptr ? nullptr : XmlChildren::At(*node, m_index, position);
    }

    // The index points at the root's children only: changes further down leave it right.
    void SetText(xmlNode* node, const QString& text) {
        if (node == xmlDocGetRootElement(Get()))
            m_index.Drop();
        XmlText::Set(node, text);
    }
    void Remove(xmlNode* node) {
        if (node->type == XML_DOCUMENT_NODE)
            return;
        if (node->type == XML_ATTRIBUTE_NODE) {
            xmlRemoveProp(reinterpret_cast<xmlAttr*>(node));
            return;
        }
        const xmlNode* root = xmlDocGetRootElement(Get());
        if (node == root || node->parent == root)
            m_index.Drop();
        xmlUnlinkNode(node);
        xmlFreeNode(node);
    }
    void Append(xmlNode* parent, XmlLooseNode element) {
        xmlNode* added = xmlAddChild(parent, element.get());
        if (added == nullptr)
            throw StoreError(QStringLiteral("An element could not be added to the activity file."));
        static_cast<void>(element.release());
        if (parent == xmlDocGetRootElement(Get()))
            m_index.Appended(added);
    }
    /// Puts the element where the old one stands, which goes.
    void Replace(xmlNode* old, XmlLooseNode element) {
        m_index.Drop();
        xmlReplaceNode(old, element.release());
        xmlFreeNode(old);
    }

  private:
    XmlDocument m_document;
    XmlIndex m_index;
};

clsXML::clsXML(OwnFiles& files) : m_files(files), m_document(std::make_unique<Document>(nullptr)) {}

clsXML::~clsXML() = default;

QString clsXML::XMLDocumentInfo(int kind) const {
    const xmlDoc* document = m_document->Get();
    if (document == nullptr || document->standalone == undeclared)
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
    m_document = std::make_unique<Document>(nullptr);
    XmlDocument opened;
    QByteArray bytes;
    if (mode == 0 && !m_files.ReadAll(modNativePath::FromText(source), XmlParser::MaxBytes, bytes))
        opened = XmlParser::Parse(bytes);
    else if (mode == 1)
        opened = XmlParser::ParseText(source);
    if (!opened)
        return false;
    m_document = std::make_unique<Document>(std::move(opened));
    return true;
}

QString clsXML::ReadNode(const QString& path) const {
    const xmlNode* node = m_document->Find(path);
    return node == nullptr ? QString() : XmlText::Of(node);
}

QString clsXML::ReadNodeXML(const QString& path) const {
    xmlNode* node = m_document->Require(path);
    return node->type == XML_DOCUMENT_NODE ? XML() : XmlWriter::Markup(*node);
}

QString clsXML::XML() const {
    return m_document->HasRoot() ? XmlWriter::Markup(*m_document->Get()) : QString();
}

void clsXML::WriteNode(const QString& path, const QString& value) {
    if (xmlNode* node = m_document->Find(path))
        m_document->SetText(node, value);
}

QString clsXML::ReadAttribute(const QString& path, const QString& name) const {
    return attributeText(m_document->Find(path), name);
}

void clsXML::WriteAttribute(const QString& path, const QStringList& names, const QStringList& values) {
    xmlNode* node = m_document->Find(path);
    if (node == nullptr || node->type != XML_ELEMENT_NODE)
        return;
    for (qsizetype i = 0; i < std::min(names.size(), values.size()); ++i) {
        // "xmlns" would move the element into a namespace, where no path finds it after the next load.
        if (names[i] == QLatin1String("xmlns") || !IsUsableName(names[i]))
            continue;
        const QByteArray value = XmlText::Storable(values[i]).toUtf8();
        xmlSetNsProp(node, nullptr, XmlText::ToXml(names[i].toUtf8()), XmlText::ToXml(value));
    }
}

int clsXML::NodeCount(const QString& path) const {
    const xmlNode* node = m_document->Find(path);
    return node == nullptr ? -1 : XmlChildren::Count(*node, m_document->Index());
}

void clsXML::Save(const QString& filePath) {
    if (!m_document->HasRoot())
        throw StoreError(QStringLiteral("There is no document to save."));
    const auto bytes = XmlWriter::Bytes(*m_document->Get());
    // The library stops at what it cannot encode and still reports success: only bytes that give the document back
    // may replace a file.
    Document again(bytes ? XmlParser::Parse(*bytes) : nullptr);
    if (!again.HasRoot() || XmlChildren::Count(*again.Find(QStringLiteral("/*")), again.Index()) !=
                                XmlChildren::Count(*m_document->Find(QStringLiteral("/*")), m_document->Index()))
        throw StoreError(QStringLiteral("The document cannot be written in its encoding."));
    if (const std::error_code error = m_files.ReplaceAll(modNativePath::FromText(filePath), *bytes))
        throw StoreError(modForeignText::OfError(error));
}

void clsXML::DeleteNode(const QString& path) {
    if (xmlNode* node = m_document->Find(path))
        m_document->Remove(node);
}

void clsXML::MakeNode(const QString& parentPath, const QString& name, const std::optional<QString>& value) {
    xmlNode* parent = m_document->Require(parentPath);
    if (parent->type != XML_ELEMENT_NODE)
        noSuchNode(parentPath);
    requireUsableName(name);
    m_document->Append(parent, newElement(m_document->Get(), name, value.value_or(QString())));
}

void clsXML::ReplaceElement(const QString& parentPath, const QString& oldName, const QString& newName,
                            const QList<std::pair<QString, QString>>& children) {
    xmlNode* parent = m_document->Require(parentPath);
    if (parent->type != XML_ELEMENT_NODE)
        noSuchNode(parentPath);
    requireUsableName(newName);
    XmlLooseNode element = newElement(m_document->Get(), newName, {});
    for (const auto& [name, text] : children) {
        requireUsableName(name);
        XmlLooseNode child = newElement(m_document->Get(), name, text);
        if (xmlAddChild(element.get(), child.get()) == nullptr)
            throw StoreError(QStringLiteral("There is not enough memory for \"%1\".").arg(name));
        static_cast<void>(child.release());
    }
    xmlNode* old = oldName.isEmpty() ? nullptr : m_document->Find(parentPath + u'/' + oldName);
    if (old != nullptr && newName == oldName && m_document->Find(parentPath + u'/' + oldName + u"[2]") != nullptr)
        return m_document->Replace(old, std::move(element));
    if (old != nullptr)
        m_document->Remove(old);
    m_document->Append(parent, std::move(element));
}

void clsXML::AllOrNothing(const std::function<void()>& work) {
    XmlDocument copy(m_document->Get() == nullptr ? nullptr : xmlCopyDoc(m_document->Get(), 1));
    if (!copy && m_document->Get() != nullptr)
        throw StoreError(QStringLiteral("There is not enough memory for the change."));
    auto before = std::make_unique<Document>(std::move(copy));
    try {
        work();
    } catch (...) {
        m_document = std::move(before);
        throw;
    }
}

void clsXML::DeleteAttribute(const QString& path, const QString& name) {
    xmlNode* node = m_document->Require(path);
    if (xmlAttr* attribute = attributeOf(node, name))
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
    const xmlNode* child = m_document->Child(path, index);
    return child == nullptr ? QString() : XmlText::Of(child);
}

QString clsXML::GetChildAttribute(const QString& path, int index, const QString& name) const {
    return attributeText(m_document->Child(path, index), name);
}

QString clsXML::GetChildName(const QString& path, int index) const {
    const xmlNode* child = m_document->Child(path, index);
    if (child == nullptr)
        noSuchNode(QStringLiteral("%1[%2]").arg(path).arg(index));
    return XmlChildren::NameOf(*child);
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
        character += static_cast<uint>(by); // a character below 13 wraps round to a value XML has no character for
        if (!XmlText::IsXmlCharacter(character))
            return;
    }
    const auto* units = reinterpret_cast<const char32_t*>(characters.constData());
    WriteNode(path, QString::fromUcs4(units, characters.size()));
}

bool clsXML::IsUsableName(const QString& name) const {
    return m_document->Get() != nullptr && XmlNames::IsUsable(name, *m_document->Get());
}

void clsXML::requireUsableName(const QString& name) const {
    if (!IsUsableName(name))
        throw StoreError(QStringLiteral("\"%1\" cannot be the name of an element.").arg(name));
}
