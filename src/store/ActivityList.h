// The list of activities as a table: the window shows it, the engine walks it. Owns the rows, their check marks and the
// set of activities that the engine took out of monitoring. Rows are found by name; an unknown name changes nothing.
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
    /// NextRun has no text here: it changes by itself, and whoever shows it finds it out.
    enum Column {
        Name,
        Source,
        Destination,
        Schedule,
        Status,
        Count,
        LogFile,
        Executable,
        Extensions,
        LastRun,
        NextRun
    };
    static constexpr int ColumnCount = 11;

    /// The locale formats the dates in column Schedule.
    ActivityList(ActivityFile& file, const StringTable& texts, const QLocale& locale);

    /// Loads the current file (offers to repair a damaged one) and rebuilds every row, which resets columns Count and
    /// LastRun. `ListBusy` is set meanwhile.
    void Refill();
    /// Rebuilds every row from the document without loading it again.
    void ShowLoaded();
    [[nodiscard]] bool ListBusy() const { return m_listBusy; }

    [[nodiscard]] int Rows() const { return static_cast<int>(m_rows.size()); }
    /// "" for a row that does not exist.
    [[nodiscard]] QString NameAt(int row) const;
    [[nodiscard]] bool IsChecked(int row) const;
    /// Whether a row above has the same name. Such a row is shown, but can be neither checked nor run.
    [[nodiscard]] bool IsNamesake(int row) const;
    [[nodiscard]] std::optional<int> RowOf(const QString& name) const;
    [[nodiscard]] QString Text(const QString& name, Column column) const;
    /// The comment as entered; data() escapes it for the tooltip.
    [[nodiscard]] QString CommentAt(int row) const;

    /// Changes by the program, never reported as a toggle by the user.
    void SetText(const QString& name, Column column, const QString& text);
    /// Column Status of every row but namesakes, by its check mark; a checked activity of `instead` shows its text
    /// there. True when any row is checked.
    bool SetStatuses(const QString& ifChecked, const QString& otherwise, const QHash<QString, QString>& instead = {});
    void SetChecked(const QString& name, bool checked);

    /// Takes an activity out of monitoring: unchecks it, and refills keep it unchecked.
    void TakeOut(const QString& name);
    [[nodiscard]] bool IsTakenOut(const QString& name) const { return m_takenOut.contains(name); }
    /// Reverts TakeOut: checks the activity if its `activ` is "1".
    void Readmit(const QString& name);
    /// Reverts every TakeOut, without the signal.
    void ReadmitAll();
    /// Removes all rows and forgets what was taken out, because another file becomes current.
    void Clear();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// A toggle by the user: writes `activ`, saves and reloads the file.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    void Refilled();
    /// The user checked, unchecked or edited this activity, or its scheduled run was interrupted.
    void Readmitted(const QString& name);
    /// A toggle by the user could not be saved, for the reason in `text`.
    void ToggleFailed(const QString& text, StoreError::Reason reason);

  private:
    struct Row {
        QString texts[ColumnCount];
        QString comment;
        bool checked = false;
        bool isNamesake = false;
    };
    [[nodiscard]] Row makeRow(const QString& name) const;
    void fill(const QStringList& names);
    static void shareTexts(const Row& from, Row& to);
    [[nodiscard]] const Row* rowAt(int row) const;
    [[nodiscard]] bool toggle(const QString& name, bool checked);
    void setText(int row, Column column, const QString& text);
    void emitChanged(int row, int column, int role);

    ActivityFile& m_file;
    const StringTable& m_texts;
    QLocale m_locale;
    std::vector<Row> m_rows;
    QHash<QString, int> m_rowOfName;
    QSet<QString> m_takenOut;
    bool m_listBusy = false;
};
