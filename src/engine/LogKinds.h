// Tells what a line of a log is about, from the texts that the engine writes. A log may hold lines of both languages,
// so both are known. Pure and for any thread once made; a line that says nothing of the kind is Other.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFlags>
#include <QList>
#include <vector>

enum class LogKind : unsigned { Other = 0, Copied = 1, Moved = 2, Deleted = 4, Failed = 8 };
Q_DECLARE_FLAGS(LogKindSet, LogKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(LogKindSet)

class LogKinds final {
  public:
    LogKinds();

    /// `line`: as in the file, without its line end.
    [[nodiscard]] LogKind Of(QByteArrayView line) const;

  private:
    /// A text begins, goes on somewhere and ends like this; an empty part fits everywhere.
    struct Pattern {
        LogKind kind;
        QByteArray head;
        QByteArray inner;
        QByteArray tail;
    };
    std::vector<Pattern> m_patterns;
    QList<QByteArray> m_activities; ///< what stands before the activity's name
};
