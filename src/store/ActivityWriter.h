// Writes an edited activity to the activity file: refuses a name that is taken, asks about a rename, replaces the
// record. Throws StoreError when the record cannot be written or saved, and then leaves the document unchanged.
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

    /// `openedName` is the name the editor was opened with ("" for a new activity). The activity moves to the end of
    /// the list, or takes the old one's place if another has the same name. False, after a message, when the name is
    /// taken; nothing has changed then.
    [[nodiscard]] bool Write(const QString& openedName, const QString& name, const ActivityRecord& record);

  private:
    [[nodiscard]] bool isTaken(const QString& openedName, const QString& name) const;

    clsXML& m_document;
    ActivityFile& m_file;
    Prompter& m_prompter;
    const StringTable& m_texts;
};
