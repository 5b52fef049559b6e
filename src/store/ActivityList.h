// The list of activities as rows and columns: what the window shows and the engine walks. Owns the rows, their check
// marks and the names the engine has taken out of monitoring. Rows are found by name; an unknown name changes nothing.
#pragma once

#include "StoreError.h"
#include <QAbstractTableModel>
#include <QHash>
#include <QLocale>
#include <QSet>
#include <QStringList>
#include <optional>
#include <vector>

class ActivityFile;
class StringTable;

class ActivityList final : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { Name, Source, Destination, Schedule, Status, Count, LogFile, Executable, Extensions, LastRun };
    static constexpr int ColumnCount = 10;

    /// The locale is that of the dates in column Schedule.
    ActivityList(ActivityFile& file, const StringTable& texts, const QLocale& locale);

    /// Loads the current file (offering to repair a damaged one) and rebuilds every row. Columns Count and LastRun
    /// start anew. `ListBusy` is set meanwhile.
    void Refill();
    /// Rebuilds every row from the document as it was loaded last.
    void ShowLoaded();
    [[nodiscard]] bool ListBusy() const { return m_listBusy; }

    [[nodiscard]] int Rows() const { return static_cast<int>(m_rows.size()); }
    /// "" for a row that does not exist (any more).
    [[nodiscard]] QString NameAt(int row) const;
    [[nodiscard]] bool IsChecked(int row) const;
    /// Whether a row above has the same name; such a row can be seen, but neither ticked nor run.
    [[nodiscard]] bool IsNamesake(int row) const;
    [[nodiscard]] std::optional<int> RowOf(const QString& name) const;
    [[nodiscard]] QString Text(const QString& name, Column column) const;
    /// The comment as it was entered (the tooltip shows it escaped).
    [[nodiscard]] QString CommentAt(int row) const;

    /// Changes by the program; none of them counts as a user's toggle.
    void SetText(const QString& name, Column column, const QString& text);
    void SetChecked(const QString& name, bool checked);

    /// Clears the box of an activity that the engine took out of monitoring; a refill keeps it cleared.
    void TakeOut(const QString& name);
    [[nodiscard]] bool IsTakenOut(const QString& name) const { return m_takenOut.contains(name); }
    /// Takes part again: forgets that it was taken out and, in the same step, ticks it where `activ` is "1".
    void Readmit(const QString& name);
    /// The same for whatever was taken out, without the signal.
    void ReadmitAll();
    /// Lets go of every row and of what was taken out: they belong to a file that is no longer the current one.
    void Clear();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The user's toggle: writes `activ`, saves and loads the file again.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    void Refilled();
    /// The user ticked, unticked or edited this activity, or its run came to nothing.
    void Readmitted(const QString& name);
    /// A user's toggle could not be saved; the text says why.
    void ToggleFailed(const QString& text, StoreError::Reason reason);

  private:
    struct Row {
        QString texts[ColumnCount];
        QString comment;
        bool checked = false;
    };
    [[nodiscard]] Row makeRow(const QString& name) const;
    void fill(const QStringList& names);
    [[nodiscard]] const Row* rowAt(int row) const;
    [[nodiscard]] bool toggle(const QString& name, bool checked);
    void emitChanged(int row, int column, int role);

    ActivityFile& m_file;
    const StringTable& m_texts;
    QLocale m_locale;
    std::vector<Row> m_rows;
    QHash<QString, int> m_rowOfName;
    QSet<QString> m_takenOut;
    bool m_listBusy = false;
};
