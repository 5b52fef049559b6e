// Shows the last runs of an activity: a chart, the totals, and the chosen run in words. Changes nothing, never fails.
#pragma once

#include "RunHistory.h"
#include <QDialog>

class QComboBox;
class QLabel;
class RunChart;
class StringTable;

class frmStatistics final : public QDialog {
    Q_OBJECT
  public:
    frmStatistics(const QString& activity, const std::vector<PastRun>& runs, const StringTable& texts, QWidget* parent);

  private:
    [[nodiscard]] QString totals(const std::vector<PastRun>& runs) const;
    [[nodiscard]] QString words(const PastRun& run) const;
    [[nodiscard]] QLayout* makeChart(const std::vector<PastRun>& runs);
    void showMeasure(int row);

    const StringTable& m_texts;
    RunChart* m_chart = nullptr;
};
