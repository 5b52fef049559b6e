// One activity as a value: its fields as texts, read and set by kind. Holds the one table of all fields, in the order
// they are written. Owns plain texts; cannot fail (what is missing or no number reads as the table says).
#pragma once

#include "ActivityField.h"
#include <QList>
#include <QString>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

class ActivityFile;

class ActivityRecord final {
  public:
    static constexpr std::size_t FieldCount = 33;

    /// The table, in the order of the file.
    [[nodiscard]] static std::span<const FieldRow, FieldCount> Fields();

    /// Every field of this activity as it stands in the document; a missing one is "".
    [[nodiscard]] static ActivityRecord Read(const ActivityFile& file, const QString& name);

    [[nodiscard]] const QString& Text(ActivityField field) const { return m_texts[static_cast<std::size_t>(field)]; }
    void SetText(ActivityField field, const QString& text) { m_texts[static_cast<std::size_t>(field)] = text; }

    /// 0 for a text that is no number.
    [[nodiscard]] int Number(ActivityField field) const { return Text(field).toInt(); }
    void SetNumber(ActivityField field, int number) { SetText(field, QString::number(number)); }

    /// A switch, in the style of its row; false for texts and numbers.
    [[nodiscard]] bool IsOn(ActivityField field) const;
    void SetOn(ActivityField field, bool on);

    /// (element, text) as they are written: the schedule type stands before the interval for types 0 to 2, behind it
    /// for 3 and 4, and is left out otherwise; what the other fields rule out is empty; exceedtime is the interval.
    [[nodiscard]] QList<std::pair<QString, QString>> Elements() const;

    bool operator==(const ActivityRecord&) const = default;

  private:
    [[nodiscard]] QString writtenText(ActivityField field) const;

    std::array<QString, FieldCount> m_texts;
};
