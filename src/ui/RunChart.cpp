#include "RunChart.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t fewestSlots = 25; // a single run is no wall
constexpr double stub = 3;              // of a run that has nothing to show; pixels
constexpr double markSize = 8;

/// As in the list; readable on light and on dark windows.
QColor colourOf(RunEnding ending) {
    switch (ending) {
    case RunEnding::Failed:
        return {0xcf, 0x3f, 0x37};
    case RunEnding::Early:
        return {0xc9, 0x8a, 0x12};
    case RunEnding::Fine:
        break;
    }
    return {0x2f, 0x9e, 0x4f};
}

/// Above the bar: a triangle for a failure, a square for an early end.
void paintMark(QPainter& painter, const QPointF& foot, RunEnding ending) {
    const double half = markSize / 2;
    if (ending == RunEnding::Failed)
        painter.drawPolygon(QPolygonF({QPointF(foot.x() - half, foot.y()), QPointF(foot.x() + half, foot.y()),
                                       QPointF(foot.x(), foot.y() - markSize)}));
    else if (ending == RunEnding::Early)
        painter.drawRect(QRectF(foot.x() - half, foot.y() - markSize, markSize, markSize));
}

} // namespace

RunChart::RunChart(std::vector<PastRun> runs, std::function<QString(const PastRun&)> words)
    : m_runs(std::move(runs)), m_words(std::move(words)), m_chosen(m_runs.size() - 1) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleDescription(ChosenInWords());
}

void RunChart::SetMeasure(Measure measure) {
    m_measure = std::move(measure);
    m_most = 0;
    for (const PastRun& run : m_runs)
        m_most = std::max(m_most, m_measure.value(run));
    update();
}

QSize RunChart::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 14};
}

QSize RunChart::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 8};
}

void RunChart::choose(std::size_t run) {
    if (run == m_chosen)
        return;
    m_chosen = run;
    setAccessibleDescription(ChosenInWords());
    update();
    Q_EMIT Chosen();
}

QRectF RunChart::plot() const {
    const double line = fontMetrics().height();
    return QRectF(rect()).adjusted(4, line + markSize + 4, -4, -4);
}

double RunChart::slotWidth() const {
    return plot().width() / static_cast<double>(std::max(m_runs.size(), fewestSlots));
}

QRectF RunChart::slotOf(std::size_t run) const {
    const QRectF area = plot();
    const double width = slotWidth();
    return {area.right() - width * static_cast<double>(m_runs.size() - run), area.top(), width, area.height()};
}

std::optional<std::size_t> RunChart::runAt(const QPointF& point) const {
    const double fromRight = std::floor((plot().right() - point.x()) / slotWidth());
    if (fromRight < 0 || fromRight >= static_cast<double>(m_runs.size()))
        return std::nullopt;
    return m_runs.size() - 1 - static_cast<std::size_t>(fromRight);
}

void RunChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    paintAxis(painter);
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        paintBar(painter, run);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

/// The height of the plot is the largest value, which stands above it.
void RunChart::paintAxis(QPainter& painter) const {
    const QRectF area = plot();
    painter.setPen(palette().color(QPalette::Text));
    if (m_measure.words)
        painter.drawText(QRectF(area.left(), 2, area.width(), fontMetrics().height()), Qt::AlignLeft,
                         m_measure.words(m_most));
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DotLine));
    painter.drawLine(area.topLeft(), area.topRight());
}

void RunChart::paintBar(QPainter& painter, std::size_t run) const {
    const QRectF place = slotOf(run);
    if (run == m_chosen) {
        QColor band = palette().color(QPalette::Highlight);
        painter.setPen(QPen(band, 1));
        band.setAlpha(70);
        painter.setBrush(band);
        painter.drawRect(place.adjusted(0, -markSize - 2, 0, 0));
    }
    const PastRun& past = m_runs[run];
    const double value = m_measure.value ? m_measure.value(past) : 0;
    const double height = m_most > 0 ? place.height() * value / m_most : 0;
    const double gap = std::min(2.0, place.width() / 5);
    QRectF bar(place.left() + gap, place.bottom() - std::max(height, stub), place.width() - 2 * gap,
               std::max(height, stub));
    const bool isIdle = past.result.ending == RunEnding::Fine && !past.result.done.HasDeeds();
    const QColor colour = isIdle ? palette().color(QPalette::Mid) : colourOf(past.result.ending);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(past.result.ending == RunEnding::Fine ? QBrush(colour) : QBrush(colour, Qt::BDiagPattern));
    painter.drawRect(bar);
    painter.setBrush(colour);
    paintMark(painter, {bar.center().x(), bar.top() - 1}, past.result.ending);
}

bool RunChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const std::optional<std::size_t> run = runAt(help->pos()))
        QToolTip::showText(help->globalPos(), Qt::convertFromPlainText(m_words(m_runs[*run])), this,
                           slotOf(*run).toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}

void RunChart::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return choose(m_chosen > 0 ? m_chosen - 1 : 0);
    case Qt::Key_Right:
        return choose(std::min(m_chosen + 1, m_runs.size() - 1));
    case Qt::Key_Home:
        return choose(0);
    case Qt::Key_End:
        return choose(m_runs.size() - 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void RunChart::mousePressEvent(QMouseEvent* event) {
    if (const std::optional<std::size_t> run = runAt(event->position()))
        choose(*run);
}

void RunChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void RunChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
