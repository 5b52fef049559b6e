// The activity file on disk: which one is current, loading, saving, creating, repairing and clearing it. Owns the
// current path and what the file looked like when it was loaded. Load never fails loudly (a damaged file reads as -1
// children); Save throws StoreError and then nothing was written.
#pragma once

#include "ActivityField.h"
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

    /// Absolute path of the file in use; the default file at first.
    [[nodiscard]] const QString& CurrentPath() const { return m_currentPath; }
    /// Another file is in use from now on. Load follows: until then Save does not touch a file that exists there.
    void SetCurrentPath(const QString& absolutePath);
    [[nodiscard]] bool IsDefault() const;

    /// "Kalvenor.kvd" in the program folder (a variant in letter case that exists is used), or in the user's data
    /// folder when the program folder is not writable.
    [[nodiscard]] QString DefaultPath() const;

    /// Creates the default file when it is missing. Returns false (and tells why through the prompter) on failure.
    bool EnsureDefaultExists();

    /// Loads the current file into the document. False when it is damaged (NodeCount("/items") is -1).
    bool Load();
    /// Whether the document holds what the last Load found; false after a failed one.
    [[nodiscard]] bool IsLoaded() const;

    /// Saves the document to the current file. Refused when the document has no "items" root or the file changed on
    /// disk since it was loaded. A file that has gone is written anew.
    void Save();

    /// Changes the document and saves it; refused when there is none to change. When either throws, the document is as
    /// it was before. The work shows no box: what the engine wrote meanwhile would be taken back with it.
    void ChangeAndSave(const std::function<void()>& change);

    /// Saves the document to another file, whatever is there now, and makes it current. When it throws, the former
    /// file is still current.
    void SaveAs(const QString& absolutePath);

    /// Offers to move a damaged file away and start an empty one. True when the file can be loaded again. A file that
    /// is missing or cannot be read is none to repair: the user is told why.
    bool OfferRepair();

    /// Deletes the current file. False when it cannot be deleted; the user has been told then.
    [[nodiscard]] bool DeleteCurrent();
    /// Makes the default file current, created empty when it is missing. Load follows.
    void SwitchToDefault();

    /// Names of the activities in document order.
    [[nodiscard]] QStringList Names() const;
    [[nodiscard]] bool Has(const QString& name) const;
    [[nodiscard]] QString Read(const QString& name, ActivityField field) const;
    /// The same for an element that is no field of the editor.
    [[nodiscard]] QString ReadElement(const QString& name, const char* element) const;
    void Write(const QString& name, ActivityField field, const QString& value);

  Q_SIGNALS:
    void CurrentPathChanged(const QString& path);
    /// The current file has been written. It is another file for the system now, under the same name.
    void Saved();

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
