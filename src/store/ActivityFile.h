// The activity file on disk: loads, saves, creates, repairs and clears it. Owns the current path and the stamp the file
// had when it was loaded. Load returns false for a damaged file; Save throws StoreError and then wrote nothing.
#pragma once

#include "ActivityRecord.h"
#include "OwnFiles.h"
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

class clsXML;
class Prompter;
class StringTable;
struct ProgramPlaces;

class ActivityFile final : public QObject {
    Q_OBJECT
  public:
    ActivityFile(clsXML& document, OwnFiles& files, Prompter& prompter, const StringTable& texts,
                 const ProgramPlaces& places);

    /// Absolute path of the file in use, initially the default file.
    [[nodiscard]] const QString& CurrentPath() const { return m_currentPath; }
    /// The caller loads the file next. Until then Save refuses to overwrite an existing file at this path.
    void SetCurrentPath(const QString& absolutePath);
    [[nodiscard]] bool IsDefault() const;

    /// "Kalvenor.kvd" in the program folder, or in the user's data folder when the program folder is not writable. An
    /// existing file whose name differs only in case wins.
    [[nodiscard]] QString DefaultPath() const;

    /// Creates the default file when it is missing. On failure shows the reason and returns false.
    bool EnsureDefaultExists();

    /// Loads the current file into the document. False when it is damaged.
    bool Load();
    /// False after a failed Load: the document is empty then.
    [[nodiscard]] bool IsLoaded() const;

    /// Saves the document to the current file. Throws when the document has no "items" root, and when the file changed
    /// on disk since it was loaded. Writes a file that has disappeared again.
    void Save();

    /// Changes the document and saves it. When either throws, restores the document. `change` must not show a box:
    /// restoring would also undo what the engine wrote while it was open.
    void ChangeAndSave(const std::function<void()>& change);

    /// Saves the document to another file, overwriting it, and makes that current. When it throws, the former file
    /// stays current.
    void SaveAs(const QString& absolutePath);

    /// Offers to move a damaged file away and to create an empty one. True when the file can be loaded again. A file
    /// that is missing, unreadable or too large is not damaged: shows the reason instead.
    bool OfferRepair();

    /// Gives the current file a name that tells the date, beside the old one: "Kalvenor 2026-11-22 17-30-45.kvd". A
    /// file that holds no activity is deleted instead. On failure shows the reason and returns false.
    [[nodiscard]] bool PutAway(const QString& date);
    /// Makes the default file current and creates it when it is missing. The caller loads it next.
    void SwitchToDefault();

    /// Names of the activities in document order.
    [[nodiscard]] QStringList Names() const;
    [[nodiscard]] bool Has(const QString& name) const;
    [[nodiscard]] QString Read(const QString& name, ActivityField field) const;
    /// Reads an element that the editor has no field for.
    [[nodiscard]] QString ReadElement(const QString& name, const char* element) const;
    /// The same for several elements, in one walk.
    [[nodiscard]] QStringList ReadElements(const QString& name, std::span<const std::string_view> elements) const;
    void Write(const QString& name, ActivityField field, const QString& value);

    /// Grows with every operation that may change the document, by whatever way.
    [[nodiscard]] std::uint64_t Revision() const;

  Q_SIGNALS:
    void CurrentPathChanged(const QString& path);
    /// The current file was written. It is a new inode under the same name.
    void Saved();
    /// Write has changed at most one field of this activity, and the revision by one.
    void FieldWritten(const QString& name);

  private:
    void requireLoaded() const;
    void saveTo(const QString& path);
    void tell(const QString& text);

    clsXML& m_document;
    OwnFiles& m_files;
    Prompter& m_prompter;
    const StringTable& m_texts;
    const ProgramPlaces& m_places;
    QString m_currentPath;
    QString m_loadedPath;
    std::optional<FileStamp> m_loadedStamp;
};
