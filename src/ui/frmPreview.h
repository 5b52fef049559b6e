// Shows what a run would do, before it does it: a table that is sorted, filtered and saved as CSV. Accepted when the
// user wants exactly that to be done now. The plan must outlive it; a list that cannot be saved is told in a box.
#pragma once

#include "RunPlan.h"
#include <QDialog>

class FilePicker;
class OwnFiles;
class PlanModel;
class PlanOrder;
class Prompter;
class StringTable;

class frmPreview final : public QDialog {
    Q_OBJECT
  public:
    struct Services {
        const StringTable& texts;
        FilePicker& picker;
        OwnFiles& files;
        Prompter& prompter;
    };
    frmPreview(const RunPlan& plan, const Services& services, QWidget* parent);

  private:
    [[nodiscard]] QWidget* makeFilter();
    [[nodiscard]] QWidget* makeTable();
    [[nodiscard]] QWidget* makeButtons();
    void save();

    const RunPlan& m_plan;
    Services m_services;
    PlanModel* m_model;
    PlanOrder* m_order;
};
