// The last runs of an activity as bars, the newest on the right. One of them is chosen, by the arrow keys or a click.
// How a run ended shows by shape as well as by colour. Owns what it draws; never fails.
#pragma once

#include "RunHistory.h"
#include <QWidget>
#include <functional>

class RunChart final : public QWidget {
    Q_OBJECT
  public:
    /// What the height of a bar is, and that height in words.
    struct Measure {
        std::function<double(const PastRun&)> value;
        std::function<QString(double)> words;
    };
    /// `words`: of one run, for tooltips and screen readers. There is at least one run; the newest is chosen.
    RunChart(std::vector<PastRun> runs, std::function<QString(const PastRun&)> words);

    void SetMeasure(Measure measure);
    [[nodiscard]] QString ChosenInWords() const { return m_words(m_runs[m_chosen]); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    void Chosen();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void choose(std::size_t run);
    [[nodiscard]] QRectF plot() const;
    [[nodiscard]] double slotWidth() const;
    /// From the top of the plot to its bottom.
    [[nodiscard]] QRectF slotOf(std::size_t run) const;
    [[nodiscard]] std::optional<std::size_t> runAt(const QPointF& point) const;
    void paintAxis(QPainter& painter) const;
    void paintBar(QPainter& painter, std::size_t run) const;

    std::vector<PastRun> m_runs;
    std::function<QString(const PastRun&)> m_words;
    Measure m_measure;
    double m_most = 0; ///< the largest value
    std::size_t m_chosen;
};
