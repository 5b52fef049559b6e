// The XML document with all activities, addressed by paths such as "/items/NAME/sourcedir". Owns the document. Reads
// never fail: what is missing reads as "" (NodeCount: -1). MakeNode, ReplaceElement, Save, ReadNodeXML, GetChildName,
// DeleteAttribute and XMLDocumentInfo throw StoreError.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

class OwnFiles;
class XmlTree;

class clsXML final {
  public:
    explicit clsXML(OwnFiles& files);
    ~clsXML();

    /// The XML declaration's version (0), encoding (1) or standalone (2). Throws when there is no declaration.
    [[nodiscard]] QString XMLDocumentInfo(int kind) const;

    /// Replaces the document: mode 0 loads a file (64 MiB at most), mode 1 parses text; any other mode loads nothing.
    /// On failure (false) the document is empty, never the previous one. DOCTYPE declarations are refused.
    bool OpenXML(const QString& source, int mode);

    /// Text of the first match. "/items/NAME/field" takes about a microsecond, however large the file.
    [[nodiscard]] QString ReadNode(const QString& path) const;
    /// What ReadNode gives for each of these children of an element, in one walk.
    [[nodiscard]] QStringList ReadChildren(const QString& path, std::span<const std::string_view> names) const;
    [[nodiscard]] QString ReadNodeXML(const QString& path) const;
    [[nodiscard]] QString XML() const;

    /// Sets the text of the first matching node; never creates one. Characters XML cannot hold are removed.
    void WriteNode(const QString& path, const QString& value);
    [[nodiscard]] QString ReadAttribute(const QString& path, const QString& name) const;
    void WriteAttribute(const QString& path, const QStringList& names, const QStringList& values);

    /// Children of the first match: only elements below the root element, elsewhere every node but blank text.
    [[nodiscard]] int NodeCount(const QString& path) const;

    /// Writes the document atomically, in its declared encoding. Throws and leaves the file alone when the bytes would
    /// not parse again.
    void Save(const QString& filePath);
    void DeleteNode(const QString& path);
    /// The first child of each name; of a name that stands here twice, the first two. Thousands take no longer than a
    /// moment.
    void DeleteChildren(const QString& parentPath, QStringList names);

    /// Appends an element to the first match. Throws, with the document unchanged, when the parent is missing or the
    /// document's encoding has no such XML name (without colon).
    void MakeNode(const QString& parentPath, const QString& name, const std::optional<QString>& value = std::nullopt);
    void DeleteAttribute(const QString& path, const QString& name);

    /// "(r, g, b)" as red + 256 * green + 65536 * blue; 0 when the text has another form.
    [[nodiscard]] std::uint32_t GetColorValue(const QString& path) const;
    void SetColorValue(const QString& path, int red, int green, int blue);
    [[nodiscard]] QString GetChildValue(const QString& path, int index) const;
    [[nodiscard]] QString GetChildAttribute(const QString& path, int index, const QString& name) const;
    [[nodiscard]] QString GetChildName(const QString& path, int index) const;

    /// Shifts every character's code by 13. Leaves a text alone when XML could not hold the result.
    void EncryptNode(const QString& path);
    void DecryptNode(const QString& path);

    /// Whether MakeNode would take this as an element name.
    [[nodiscard]] bool IsUsableName(const QString& name) const;

    /// Builds an element with one child for each (name, text). Only when that is complete, removes the first `oldName`
    /// below the parent (unless empty) and appends the new element. If the name stays the same and another element has
    /// it too, the new one takes the old one's place: after its namesake no path would find it. Throws with the
    /// document unchanged.
    void ReplaceElement(const QString& parentPath, const QString& oldName, const QString& newName,
                        const QList<std::pair<QString, QString>>& children);

    /// Runs `work`. If it throws, restores the document and rethrows.
    void AllOrNothing(const std::function<void()>& work);

    /// Grows with every operation that may change the document.
    [[nodiscard]] std::uint64_t Revision() const { return m_revision; }

  private:
    void requireUsableName(const QString& name) const;
    void shift(const QString& path, int by);
    OwnFiles& m_files;
    std::unique_ptr<XmlTree> m_tree;
    std::uint64_t m_revision = 0;
};
