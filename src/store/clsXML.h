// The one XML document that holds all activities, addressed by paths such as "/items/NAME/sourcedir". Owns the document
// and an index over the activities. Reads never fail: what is missing reads as "" (NodeCount: -1). MakeNode, Save,
// ReadNodeXML, GetChildName, DeleteAttribute and XMLDocumentInfo throw StoreError.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class OwnFiles;

class clsXML final {
  public:
    explicit clsXML(OwnFiles& files);
    ~clsXML();

    /// The XML declaration's version (0), encoding (1) or standalone (2). Throws when there is no declaration.
    [[nodiscard]] QString XMLDocumentInfo(int kind) const;

    /// Replaces the document: mode 0 loads a file (64 MiB at most), mode 1 parses text; any other mode loads nothing.
    /// False leaves an empty document behind, never the previous one. DOCTYPE declarations are refused.
    bool OpenXML(const QString& source, int mode);

    /// Text of the first node that matches; about a microsecond for "/items/NAME/field" whatever the file's size.
    [[nodiscard]] QString ReadNode(const QString& path) const;
    [[nodiscard]] QString ReadNodeXML(const QString& path) const;
    [[nodiscard]] QString XML() const;

    /// Sets the text of the first matching node; never creates one. Characters XML cannot hold are removed.
    void WriteNode(const QString& path, const QString& value);
    [[nodiscard]] QString ReadAttribute(const QString& path, const QString& name) const;
    void WriteAttribute(const QString& path, const QStringList& names, const QStringList& values);

    /// Children of the first matching node: elements only below the root element, else every node but blank text.
    [[nodiscard]] int NodeCount(const QString& path) const;

    /// Writes the document, in its declared encoding, atomically. The bytes must parse again before they replace
    /// anything.
    void Save(const QString& filePath);
    void DeleteNode(const QString& path);

    /// Appends an element to the first node that matches. Throws, with the document unchanged, when the parent is
    /// missing or the name is no XML name (no colon) in the document's encoding.
    void MakeNode(const QString& parentPath, const QString& name, const std::optional<QString>& value = std::nullopt);
    void DeleteAttribute(const QString& path, const QString& name);

    /// "(r, g, b)" as red + 256 * green + 65536 * blue; 0 when the text has another form.
    [[nodiscard]] std::uint32_t GetColorValue(const QString& path) const;
    void SetColorValue(const QString& path, int red, int green, int blue);
    [[nodiscard]] QString GetChildValue(const QString& path, int index) const;
    [[nodiscard]] QString GetChildAttribute(const QString& path, int index, const QString& name) const;
    [[nodiscard]] QString GetChildName(const QString& path, int index) const;

    /// Shifts every character's code by 13. A text that XML could not hold after the shift is left as it is.
    void EncryptNode(const QString& path);
    void DecryptNode(const QString& path);

    /// Whether MakeNode would take this as an element name.
    [[nodiscard]] bool IsUsableName(const QString& name) const;

    /// Builds an element with one child for each (name, text), and only when that is complete removes the first
    /// `oldName` below the parent (unless empty) and appends the new one. Under the same name, where another
    /// of it is left, it takes the old one's place instead: behind its namesake no path would find it. Throws with the
    /// document unchanged.
    void ReplaceElement(const QString& parentPath, const QString& oldName, const QString& newName,
                        const QList<std::pair<QString, QString>>& children);

    /// Does the work. When that throws, the document is again what it was before, and the exception passes.
    void AllOrNothing(const std::function<void()>& work);

  private:
    class Document;
    void requireUsableName(const QString& name) const;
    void shift(const QString& path, int by);
    OwnFiles& m_files;
    std::unique_ptr<Document> m_document;
};
