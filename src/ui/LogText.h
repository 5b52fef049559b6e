// The lines of a log that the box "rtfText" holds, one block each, and where they stand in the file. Owns no text: the
// box does. Changes keep the selection and the line at the top of the view as long as their lines stay.
#pragma once

#include "LogPart.h"
#include "LogSearch.h"
#include <deque>

class QPlainTextEdit;
class QTextCursor;

class LogText final {
  public:
    /// `marksFailures`: bold and in a colour that the box's palette allows.
    LogText(QPlainTextEdit& box, bool marksFailures) : m_box(box), m_marksFailures(marksFailures) {}

    /// Nothing else than this part.
    void Show(const LogPart& part);
    /// The part that ends where this begins, and the one that begins at Next. What is too much goes at the other end.
    void Prepend(const LogPart& part);
    void Append(const LogPart& part);
    /// After a change of the palette.
    void Recolour();

    [[nodiscard]] qint64 Begin() const { return m_begin; }
    [[nodiscard]] qint64 End() const { return m_end; }
    /// Where to read on: the last line once more when it was not whole.
    [[nodiscard]] qint64 Next() const;
    [[nodiscard]] bool IsEmpty() const { return m_lines.empty(); }
    /// Whether as much as one part can be appended and all stays.
    [[nodiscard]] bool HasRoom() const { return m_bytes <= LogPart::MostBytes / 2; }

    /// The line at the top of the view, the caret and the other end of its selection.
    struct View {
        qint64 top = 0;
        int left = 0; ///< scrolled to the side
        LogPlace anchor;
        LogPlace caret;
    };
    [[nodiscard]] View Now() const;
    /// As far as the lines are there.
    void Restore(const View& view);

    [[nodiscard]] LogPlace PlaceOf(const QTextCursor& cursor, int position) const;
    /// Selects so many characters from there on and brings them into view. False when the line is not there.
    bool Select(LogPlace place, qsizetype length);
    /// Marks the line that holds this byte and puts the caret there. False when it is not there.
    bool Mark(qint64 position);

  private:
    struct Line {
        qint64 begin;
        qint64 end;
        bool isFailed;
        bool isOpen;
    };
    [[nodiscard]] static std::vector<Line> linesOf(const LogPart& part);
    [[nodiscard]] std::optional<int> rowOf(qint64 position) const;
    [[nodiscard]] std::optional<QTextCursor> cursorAt(LogPlace place) const;
    void insert(QTextCursor cursor, const LogPart& part);
    void remove(int firstRow, int rows);
    void dropFront();
    void dropBack();
    void scrollTo(qint64 top);
    [[nodiscard]] qint64 top() const;

    QPlainTextEdit& m_box;
    const bool m_marksFailures;
    std::deque<Line> m_lines;
    qint64 m_begin = 0;
    qint64 m_end = 0;
    qint64 m_bytes = 0; ///< of the lines
};
