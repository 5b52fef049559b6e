// A data table: the slot's _data() gives its rows, the slot takes the current one apart. A slot that takes it for other
// columns ends the test.
#pragma once

#include <QTest>
#include <QVariant>
#include <tuple>

/// A C string will do for a text.
struct TableText : QString {
    TableText(const char* text) : QString(QString::fromUtf8(text)) {}
    TableText(const QString& text) : QString(text) {}
};

template <typename... Columns>
class Table final {
    template <typename Column>
    using Given = std::conditional_t<std::is_same_v<Column, QString>, TableText, Column>;

  public:
    using Row = std::tuple<Columns...>;

    Table() { QTest::addColumn<Row>("row"); }
    void operator()(const char* name, const Given<Columns>&... values) const { QTest::newRow(name) << Row(values...); }
    /// Named by its values.
    void Add(const Given<Columns>&... values) const {
        const QStringList name{QVariant::fromValue(Columns(values)).toString()...};
        (*this)(name.join(u' ').toUtf8(), values...);
    }
    [[nodiscard]] static Row Current() {
        QFETCH(Row, row);
        return row;
    }
};
