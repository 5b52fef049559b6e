// Writes an edited activity into the activity file: refuses a name that is taken, asks about a rename, replaces the
// record. Owns nothing; a record that cannot be written or saved throws StoreError with the document as it was before.
#pragma once

#include <QString>

class ActivityFile;
class ActivityRecord;
class Prompter;
class StringTable;
class clsXML;

class ActivityWriter final {
  public:
    ActivityWriter(clsXML& document, ActivityFile& file, Prompter& prompter, const StringTable& texts)
        : m_document(document), m_file(file), m_prompter(prompter), m_texts(texts) {}

    /// `openedName` is the name the editor was opened with ("" for a new activity). The written activity stands at the
    /// end of the list, or in the old one's place where its name is given twice. False when the name is taken: the user
    /// has been told and nothing has changed.
    [[nodiscard]] bool Write(const QString& openedName, const QString& name, const ActivityRecord& record);

  private:
    [[nodiscard]] bool isTaken(const QString& openedName, const QString& name) const;

    clsXML& m_document;
    ActivityFile& m_file;
    Prompter& m_prompter;
    const StringTable& m_texts;
};
