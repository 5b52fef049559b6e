#include "LogText.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>

namespace {

constexpr QRgb failureOnLight = 0xFF9B1C1C;
constexpr QRgb failureOnDark = 0xFFFF9A94;
constexpr int markAlpha = 70;

QTextCharFormat formatOf(bool isFailed, const QPalette& palette) {
    QTextCharFormat format;
    if (isFailed) {
        const bool isDark = palette.color(QPalette::Base).lightness() < 128;
        format.setForeground(QColor(isDark ? failureOnDark : failureOnLight));
        format.setFontWeight(QFont::Bold);
    }
    return format;
}

qint64 bytesOf(const LogPart& part) {
    qint64 bytes = 0;
    for (const LogLine& line : part.lines)
        bytes += line.end - line.begin;
    return bytes;
}

} // namespace

std::vector<LogText::Line> LogText::linesOf(const LogPart& part) {
    std::vector<Line> lines;
    lines.reserve(part.lines.size());
    for (const LogLine& line : part.lines)
        lines.push_back({line.begin, line.end, line.kind == LogKind::Failed, line.isOpen});
    return lines;
}

void LogText::Show(const LogPart& part) {
    m_lines.clear();
    m_box.clear();
    m_box.setExtraSelections({});
    m_begin = part.begin;
    m_end = part.end;
    m_bytes = bytesOf(part);
    const std::vector<Line> lines = linesOf(part);
    m_lines.insert(m_lines.end(), lines.begin(), lines.end());
    insert(QTextCursor(m_box.document()), part);
}

void LogText::Prepend(const LogPart& part) {
    const View before = Now();
    const std::vector<Line> lines = linesOf(part);
    m_lines.insert(m_lines.begin(), lines.begin(), lines.end());
    m_begin = part.begin;
    m_bytes += bytesOf(part);
    // The caret, when it stands at the very beginning, must not stay in front of what is inserted there.
    insert(QTextCursor(m_box.document()), part);
    dropBack();
    Restore(before);
}

void LogText::Append(const LogPart& part) {
    const View before = Now();
    if (!m_lines.empty() && m_lines.back().isOpen && part.begin <= m_lines.back().begin) {
        m_bytes -= m_lines.back().end - m_lines.back().begin;
        remove(static_cast<int>(m_lines.size()) - 1, 1);
        m_lines.pop_back();
    }
    const std::vector<Line> lines = linesOf(part);
    m_lines.insert(m_lines.end(), lines.begin(), lines.end());
    m_end = part.end;
    m_bytes += bytesOf(part);
    QTextCursor end(m_box.document());
    end.movePosition(QTextCursor::End);
    insert(end, part);
    dropFront();
    Restore(before);
}

/// Lines of one look in one piece: each insertion costs as much as the text behind it.
void LogText::insert(QTextCursor cursor, const LogPart& part) {
    cursor.beginEditBlock();
    QString text;
    for (std::size_t row = 0; row < part.lines.size(); ++row) {
        const LogLine& line = part.lines[row];
        text += line.text;
        if (!line.isOpen)
            text += u'\n';
        const bool isFailed = m_marksFailures && line.kind == LogKind::Failed;
        const bool isLast = row + 1 == part.lines.size();
        if (isLast || isFailed != (m_marksFailures && part.lines[row + 1].kind == LogKind::Failed)) {
            cursor.insertText(text, formatOf(isFailed, m_box.palette()));
            text.clear();
        }
    }
    cursor.endEditBlock();
}

void LogText::Recolour() {
    if (!m_marksFailures)
        return;
    QTextCursor cursor(m_box.document());
    cursor.beginEditBlock();
    for (std::size_t row = 0; row < m_lines.size(); ++row) {
        if (!m_lines[row].isFailed)
            continue;
        cursor.setPosition(m_box.document()->findBlockByNumber(static_cast<int>(row)).position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.setCharFormat(formatOf(true, m_box.palette()));
    }
    cursor.endEditBlock();
}

void LogText::remove(int firstRow, int rows) {
    const QTextDocument& document = *m_box.document();
    const QTextBlock first = document.findBlockByNumber(firstRow);
    const QTextBlock behind = document.findBlockByNumber(firstRow + rows);
    QTextCursor cursor(first);
    if (behind.isValid())
        cursor.setPosition(behind.position(), QTextCursor::KeepAnchor);
    else
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void LogText::dropFront() {
    int rows = 0;
    for (; m_bytes > LogPart::MostBytes && m_lines.size() > 1; ++rows) {
        m_bytes -= m_lines.front().end - m_lines.front().begin;
        m_lines.pop_front();
    }
    if (rows == 0)
        return;
    remove(0, rows);
    m_begin = m_lines.front().begin;
}

void LogText::dropBack() {
    int rows = 0;
    for (; m_bytes > LogPart::MostBytes && m_lines.size() > 1; ++rows) {
        m_end = m_lines.back().begin;
        m_bytes -= m_lines.back().end - m_lines.back().begin;
        m_lines.pop_back();
    }
    if (rows > 0)
        remove(static_cast<int>(m_lines.size()), rows + 1);
}

qint64 LogText::Next() const {
    return !m_lines.empty() && m_lines.back().isOpen ? m_lines.back().begin : m_end;
}

std::optional<int> LogText::rowOf(qint64 position) const {
    const auto line = std::partition_point(m_lines.begin(), m_lines.end(),
                                           [position](const Line& one) { return one.end <= position; });
    if (line == m_lines.end())
        return std::nullopt;
    return static_cast<int>(line - m_lines.begin());
}

qint64 LogText::top() const {
    const auto row = static_cast<std::size_t>(m_box.verticalScrollBar()->value());
    return row < m_lines.size() ? m_lines[row].begin : m_end;
}

void LogText::scrollTo(qint64 top) {
    m_box.verticalScrollBar()->setValue(rowOf(top).value_or(static_cast<int>(m_lines.size())));
}

LogPlace LogText::PlaceOf(const QTextCursor& cursor, int position) const {
    const QTextBlock block = cursor.document()->findBlock(position);
    const auto row = static_cast<std::size_t>(block.blockNumber());
    return row < m_lines.size() ? LogPlace{m_lines[row].begin, position - block.position()} : LogPlace{m_end, 0};
}

LogText::View LogText::Now() const {
    const QTextCursor cursor = m_box.textCursor();
    return {top(), m_box.horizontalScrollBar()->value(), PlaceOf(cursor, cursor.anchor()),
            PlaceOf(cursor, cursor.position())};
}

std::optional<QTextCursor> LogText::cursorAt(LogPlace place) const {
    const QTextDocument& document = *m_box.document();
    if (const std::optional<int> row = rowOf(place.line)) {
        const QTextBlock block = document.findBlockByNumber(*row);
        if (m_lines[static_cast<std::size_t>(*row)].begin != place.line)
            return place.line < m_begin ? std::nullopt : std::optional(QTextCursor(block));
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + static_cast<int>(std::min<qsizetype>(place.column, block.length() - 1)));
        return cursor;
    }
    if (place.line != m_end)
        return std::nullopt;
    QTextCursor cursor(m_box.document());
    cursor.movePosition(QTextCursor::End);
    return cursor;
}

void LogText::Restore(const View& view) {
    const auto anchor = cursorAt(view.anchor);
    const auto caret = cursorAt(view.caret);
    if (anchor && caret) {
        QTextCursor cursor = *anchor;
        cursor.setPosition(caret->position(), QTextCursor::KeepAnchor);
        m_box.setTextCursor(cursor);
    }
    scrollTo(view.top);
    m_box.horizontalScrollBar()->setValue(view.left);
}

bool LogText::Select(LogPlace place, qsizetype length) {
    const std::optional<int> row = rowOf(place.line);
    if (!row || m_lines[static_cast<std::size_t>(*row)].begin != place.line)
        return false;
    QTextCursor cursor = *cursorAt(place);
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(length));
    const int before = m_box.verticalScrollBar()->value();
    m_box.setTextCursor(cursor);
    if (m_box.verticalScrollBar()->value() != before)
        m_box.centerCursor();
    return true;
}

bool LogText::Mark(qint64 position) {
    const std::optional<int> row = rowOf(position);
    if (!row || m_lines[static_cast<std::size_t>(*row)].begin > position)
        return false;
    const QTextCursor cursor(m_box.document()->findBlockByNumber(*row));
    QColor colour = m_box.palette().color(QPalette::Highlight);
    colour.setAlpha(markAlpha);
    QTextEdit::ExtraSelection mark;
    mark.cursor = cursor;
    mark.format.setBackground(colour);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    m_box.setExtraSelections({mark});
    m_box.setTextCursor(cursor);
    m_box.centerCursor();
    return true;
}
