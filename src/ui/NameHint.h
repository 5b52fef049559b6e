// Watches the line for an activity's name while one types, and objects to a name that cannot be stored or is taken;
// offers one that can be had. An empty line is not objected to: it is where everybody begins. Refers to the line.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class FieldHint;
class QLineEdit;
class StringTable;

class NameHint final : public QObject {
    Q_OBJECT
  public:
    /// Whether an activity of this name can be stored.
    using IsUsable = std::function<bool(const QString& name)>;

    /// `taken`: the names of the other activities.
    NameHint(QLineEdit& line, const StringTable& texts, IsUsable isUsable, QStringList taken);

    /// For the caller's layout, which takes it over.
    [[nodiscard]] FieldHint* Hint() const { return m_hint; }

  private:
    void check();
    [[nodiscard]] QString usable(const QString& name) const;
    [[nodiscard]] QString untaken(const QString& name) const;

    QLineEdit& m_line;
    const StringTable& m_texts;
    IsUsable m_isUsable;
    QStringList m_taken;
    FieldHint* m_hint;
};
