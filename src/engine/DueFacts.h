// What the schedulers ask of every row at every tick: read from the activity file once, and again after each change of
// it. Owns these copies; a row that does not exist is of no type and never due.
#pragma once

#include <QDate>
#include <QLocale>
#include <QObject>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

class ActivityFile;
class ActivityList;
class DueMarks;

class DueFacts final : public QObject {
    Q_OBJECT
  public:
    struct Row {
        QChar type; ///< of the schedule; null for any other text, and for a namesake of a row above
        bool isActive = false;
        bool isWatched = false;           ///< runs also when something changes; never one that has a single run
        std::optional<std::int32_t> mark; ///< of an interval, nothing when it is no number
        std::optional<std::int32_t> interval;
        QString time; ///< of a moment: "HH:mm"
        QDate date;
    };

    /// `locale`: in whose order dates with "/" are read.
    DueFacts(ActivityFile& file, const ActivityList& list, const DueMarks& marks, const QLocale& locale);

    /// By value: the next event may change them.
    [[nodiscard]] Row Of(int row);

    /// The activities that run also when something changes.
    [[nodiscard]] QStringList Watched();

  private:
    void forgetWritten(const QString& name);
    [[nodiscard]] const Row& known(int row);
    [[nodiscard]] Row read(int row) const;

    const ActivityFile& m_file;
    const ActivityList& m_list;
    const DueMarks& m_marks;
    QLocale m_locale;
    std::vector<std::optional<Row>> m_rows;
    std::uint64_t m_revision = 0;
};
