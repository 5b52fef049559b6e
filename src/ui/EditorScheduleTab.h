// The editor's second tab: when the activity runs. Only the controls of the chosen schedule are enabled.
#pragma once

#include "RecordBindings.h"
#include <QLocale>
#include <QString>
#include <QWidget>

class Clock;
class MaskedField;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSlider;
class QSpinBox;
class StringTable;
struct EditorServices;
struct ScheduleFacts;

class EditorScheduleTab final : public QWidget {
    Q_OBJECT
  public:
    explicit EditorScheduleTab(const EditorServices& services);

    void Show(const ActivityRecord& record);
    void Store(ActivityRecord& record) const { m_bindings.Store(record); }

    /// The masked fields as they are shown, with a blank for each missing digit.
    [[nodiscard]] QString ShownDate() const;
    [[nodiscard]] QString ShownDateTime() const;
    [[nodiscard]] QString ShownTime() const;

  private:
    [[nodiscard]] QGroupBox* buildInterval();
    [[nodiscard]] QGroupBox* buildFixedTimes();
    [[nodiscard]] QGroupBox* buildChanges();
    void bindFields();
    void followSchedule();
    [[nodiscard]] ScheduleFacts facts() const;
    void showWords();
    void pickDate();

    const StringTable& m_texts;
    const Clock& m_clock;
    QLocale m_locale;
    bool m_countsByTheClock;
    QString m_dateFormat;
    QButtonGroup* m_types;
    QSlider* sldInterval;
    QSpinBox* spnInterval;
    QCheckBox* chkRunningMode;
    MaskedField* txtDate;
    QLabel* m_order = nullptr;
    QLabel* m_timeLabel = nullptr;
    MaskedField* txtDateTime;
    QPushButton* cmdSelectDate;
    MaskedField* txtTime;
    QCheckBox* chkDaily;
    QCheckBox* chkWatch = nullptr;
    QSpinBox* spnSettle;
    QLabel* lblWhen;
    RecordBindings m_bindings;
};
