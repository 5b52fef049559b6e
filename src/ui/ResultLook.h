// What the user sees of an activity's last result: a picture and a sentence. Owns the pictures; never fails.
#pragma once

#include <QIcon>
#include <QString>

class ActivityFile;
class QLocale;
class RunResults;
class StringTable;
struct RunCounts;

class ResultLook final {
  public:
    ResultLook(RunResults& results, const ActivityFile& file, const StringTable& texts);

    /// Tells the results apart by shape as well as by colour.
    [[nodiscard]] const QIcon& Icon(const QString& name) const;

    /// One sentence, without the activity's name: what happened, when, and why it failed.
    [[nodiscard]] QString Sentence(const QString& name) const;

  private:
    [[nodiscard]] QString doneText(const RunCounts& done, const QLocale& locale) const;

    RunResults& m_results;
    const ActivityFile& m_file;
    const StringTable& m_texts;
    QIcon m_none;
    QIcon m_running;
    QIcon m_fine;
    QIcon m_failed;
    QIcon m_early;
};
