#include "EditorScheduleTab.h"

#include "Clock.h"
#include "EditorFields.h"
#include "FormParts.h"
#include "FormServices.h"
#include "ScheduleWords.h"
#include "StringTable.h"
#include "modTriggerDate.h"
#include <QButtonGroup>
#include <QCalendarWidget>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace {

enum Type { Seconds, Minutes, Hours, AtDate, AtTime };

constexpr int longestInterval = 120;
constexpr int longestSettle = 3600; // seconds
constexpr int longestByTheClock = 999;

const QString timeFormat = QStringLiteral("hh:mm");

Text unitText(int type) {
    constexpr std::array units{Text::Seconds, Text::Minutes, Text::Hours};
    return units.at(static_cast<std::size_t>(type));
}

/// A time as the mask shows it: two digits each, right or wrong.
QString spelledTime(const QString& stored) {
    const QStringList parts = stored.trimmed().split(u':');
    if (parts.size() != 2)
        return {};
    QString spelled;
    for (const QString& part : parts) {
        bool isNumber = false;
        const uint number = part.toUInt(&isNumber);
        if (!isNumber || number > 99)
            return {};
        spelled += (spelled.isEmpty() ? QString() : QString(u':')) + QString::number(number).rightJustified(2, u'0');
    }
    return spelled;
}

/// A partly filled field of another schedule would cause an objection that the user could not correct.
void setWanted(MaskedField& field, bool wanted) {
    if (!wanted && !field.IsFull())
        field.clear();
    field.setEnabled(wanted);
}

} // namespace

EditorScheduleTab::EditorScheduleTab(const EditorServices& services)
    : m_texts(services.texts), m_clock(services.clock), m_locale(services.locale),
      m_countsByTheClock(services.countsByTheClock), m_dateFormat(modTriggerDate::Format(services.locale)),
      m_types(new QButtonGroup(this)), sldInterval(new QSlider(Qt::Horizontal)), spnInterval(new QSpinBox),
      chkRunningMode(FormParts::CheckBox("chkRunningMode", m_texts[Text::OnceOnly])),
      txtDate(new MaskedField(m_dateFormat)), txtDateTime(new MaskedField(timeFormat)),
      cmdSelectDate(new QPushButton(m_texts[Text::SelectDate])), txtTime(new MaskedField(timeFormat)),
      chkDaily(FormParts::CheckBox("chkDaily", m_texts[Text::Daily])), spnSettle(new QSpinBox),
      lblWhen(FormParts::PlainText("lblWhen", {})) {
    auto* all = new QVBoxLayout(this);
    all->addWidget(buildInterval());
    all->addWidget(buildFixedTimes());
    all->addWidget(buildChanges());
    lblWhen->setWordWrap(true);
    all->addWidget(lblWhen);
    all->addStretch(1);
    bindFields();
    FormParts::EnterAtChosen(*m_types);
    connect(m_types, &QButtonGroup::idToggled, this, &EditorScheduleTab::followSchedule);
    connect(chkDaily, &QCheckBox::toggled, this, &EditorScheduleTab::followSchedule);
    connect(cmdSelectDate, &QPushButton::clicked, this, &EditorScheduleTab::pickDate);
    connect(spnInterval, &QSpinBox::valueChanged, this, &EditorScheduleTab::showWords);
    for (const QCheckBox* box : {chkRunningMode, chkWatch})
        connect(box, &QCheckBox::toggled, this, &EditorScheduleTab::showWords);
    for (const MaskedField* field : {txtDate, txtDateTime, txtTime})
        connect(field, &MaskedField::textChanged, this, &EditorScheduleTab::showWords);
    followSchedule();
}

QGroupBox* EditorScheduleTab::buildInterval() {
    QGroupBox* group = FormParts::Group(m_texts[Text::IntervalSettings]);
    auto* units = new QHBoxLayout;
    units->setSpacing(24);
    int type = Seconds;
    for (const char* name : {"optSeconds", "optMinutes", "optHours"}) {
        QRadioButton* option = FormParts::Option(name, m_texts[unitText(type)]);
        m_types->addButton(option, type++);
        units->addWidget(option);
    }
    units->addStretch(1);

    FormParts::Name(*sldInterval, "sldInterval", m_texts[Text::IntervalSettings]);
    FormParts::Name(*spnInterval, "spnInterval", m_texts[Text::IntervalSettings]);
    sldInterval->setRange(1, longestInterval);
    sldInterval->setPageStep(10);
    sldInterval->setTickPosition(QSlider::TicksBelow);
    sldInterval->setTickInterval(10);
    spnInterval->setRange(1, m_countsByTheClock ? longestByTheClock : longestInterval);
    // Wide enough for every unit, so that nothing jumps.
    int widest = 0;
    for (const int unit : {Seconds, Minutes, Hours}) {
        spnInterval->setSuffix(u' ' + m_texts[unitText(unit)]);
        widest = std::max(widest, spnInterval->sizeHint().width());
    }
    spnInterval->setMinimumWidth(widest);
    connect(spnInterval, &QSpinBox::valueChanged, sldInterval, [this](int value) {
        sldInterval->setMaximum(std::max(sldInterval->maximum(), value));
        sldInterval->setValue(value);
    });
    connect(sldInterval, &QSlider::valueChanged, spnInterval, &QSpinBox::setValue);
    auto* interval = new QHBoxLayout;
    interval->setSpacing(16);
    interval->addWidget(sldInterval, 1);
    interval->addWidget(spnInterval);

    auto* rows = new QVBoxLayout(group);
    rows->setSpacing(12);
    rows->addLayout(units);
    rows->addLayout(interval);
    rows->addWidget(chkRunningMode);
    return group;
}

QGroupBox* EditorScheduleTab::buildFixedTimes() {
    QGroupBox* group = FormParts::Group(m_texts[Text::FixedTime]);
    QRadioButton* optDate = FormParts::Option("optDate", m_texts[Text::OnceOnDate]);
    QRadioButton* optTime = FormParts::Option("optTime", m_texts[Text::AtTimeOfDay]);
    m_types->addButton(optDate, AtDate);
    m_types->addButton(optTime, AtTime);
    FormParts::Name(*txtDate, "txtDate", m_texts[Text::Date]);
    FormParts::Name(*txtTime, "txtTime", m_texts[Text::Time]);
    FormParts::Name(*cmdSelectDate, "cmdSelectDate", m_texts[Text::SelectDate]);
    txtDateTime->setObjectName(QStringLiteral("txtDateTime"));
    m_order = new QLabel(modTriggerDate::Spelled(m_dateFormat, m_texts[Text::DateOrderLetters]));
    m_order->setTextFormat(Qt::PlainText);
    txtDate->setAccessibleDescription(m_order->text());

    m_timeLabel = FormParts::Label(m_texts[Text::Time], *txtDateTime);

    // Each option begins its own line, with the fields aligned below each other.
    auto* dateFields = new QHBoxLayout;
    dateFields->addWidget(txtDate);
    dateFields->addWidget(m_order);
    dateFields->addWidget(cmdSelectDate);
    dateFields->addSpacing(16);
    dateFields->addWidget(m_timeLabel);
    dateFields->addWidget(txtDateTime);
    dateFields->addStretch(1);
    auto* timeFields = new QHBoxLayout;
    timeFields->addWidget(txtTime);
    timeFields->addSpacing(16);
    timeFields->addWidget(chkDaily);
    timeFields->addStretch(1);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(12);
    grid->addWidget(optDate, 0, 0);
    grid->addLayout(dateFields, 0, 1);
    grid->addWidget(optTime, 1, 0);
    grid->addLayout(timeFields, 1, 1);
    return group;
}

QGroupBox* EditorScheduleTab::buildChanges() {
    QGroupBox* group = FormParts::Group(m_texts[Text::ChangesGroup]);
    chkWatch = m_bindings.NewSwitch({ActivityField::Watch, "chkWatch", Text::WatchCaption}, m_texts);
    FormParts::Name(*spnSettle, "spnSettle", m_texts[Text::SettleCaption]);
    spnSettle->setRange(0, longestSettle);
    spnSettle->setSuffix(u' ' + m_texts[Text::Seconds]);
    spnSettle->setSpecialValueText(m_texts[Text::SettleNot]);
    auto* settle = new QHBoxLayout;
    settle->addWidget(FormParts::Label(m_texts[Text::SettleCaption], *spnSettle));
    settle->addWidget(spnSettle);
    settle->addStretch(1);
    auto* rows = new QVBoxLayout(group);
    rows->addWidget(chkWatch);
    rows->addLayout(settle);
    rows->addWidget(FormParts::Explanation(m_texts[Text::SettleHint]));
    return group;
}

void EditorScheduleTab::bindFields() {
    // Digits in another order would fill the mask with another date.
    const auto inForm = [this](const QString& format) {
        return [this, format](const QString& text) {
            const QDate date = modTriggerDate::Read(text, m_locale);
            return date.isValid() ? date.toString(format) : QString();
        };
    };
    m_bindings.Choice(*m_types, ActivityField::Type);
    m_bindings.Number(*spnInterval, ActivityField::Interval);
    m_bindings.Masked(*txtDate, ActivityField::TriggerDate, inForm(m_dateFormat), inForm(modTriggerDate::Stored));
    m_bindings.Masked(*txtDateTime, ActivityField::TriggerDateTime, spelledTime, spelledTime);
    m_bindings.Masked(*txtTime, ActivityField::TriggerTime, spelledTime, spelledTime);
    m_bindings.Switch(*chkDaily, ActivityField::Daily);
    m_bindings.Switch(*chkRunningMode, ActivityField::RunningMode);
    m_bindings.Number(*spnSettle, ActivityField::SettleSeconds);
}

void EditorScheduleTab::Show(const ActivityRecord& record) {
    // Opening the editor must not shorten a longer interval.
    const int longest = std::max(longestInterval, record.Number(ActivityField::Interval));
    sldInterval->setMaximum(longest);
    spnInterval->setMaximum(std::max(longest, spnInterval->maximum()));
    spnSettle->setMaximum(std::max(longestSettle, record.Number(ActivityField::SettleSeconds)));
    m_bindings.Show(record);
    followSchedule();
}

void EditorScheduleTab::followSchedule() {
    const int type = m_types->checkedId();
    const bool isInterval = type >= Seconds && type <= Hours;
    for (QWidget* widget : {static_cast<QWidget*>(sldInterval), static_cast<QWidget*>(spnInterval),
                            static_cast<QWidget*>(chkRunningMode)})
        widget->setEnabled(isInterval);
    spnInterval->setSuffix(isInterval ? u' ' + m_texts[unitText(type)] : QString());
    setWanted(*txtDate, type == AtDate);
    setWanted(*txtDateTime, type == AtDate);
    for (QWidget* widget :
         {static_cast<QWidget*>(cmdSelectDate), static_cast<QWidget*>(m_order), static_cast<QWidget*>(m_timeLabel)})
        widget->setEnabled(type == AtDate);
    setWanted(*txtTime, type == AtTime);
    chkDaily->setEnabled(type == AtTime);
    chkWatch->setEnabled(isInterval || (type == AtTime && chkDaily->isChecked()));
    showWords();
}

ScheduleFacts EditorScheduleTab::facts() const {
    ScheduleFacts facts;
    facts.interval = spnInterval->value();
    facts.isOnceOnly = chkRunningMode->isChecked();
    facts.countsByTheClock = m_countsByTheClock;
    facts.isDaily = chkDaily->isChecked();
    facts.isWatched = chkWatch->isEnabledTo(this) && chkWatch->isChecked();
    const auto timeOf = [](const MaskedField& field) {
        return QTime::fromString(field.Shown(), QStringLiteral("hh:mm"));
    };
    switch (m_types->checkedId()) {
    case Seconds:
        facts.kind = ScheduleFacts::Kind::Seconds;
        break;
    case Minutes:
        facts.kind = ScheduleFacts::Kind::Minutes;
        break;
    case Hours:
        facts.kind = ScheduleFacts::Kind::Hours;
        break;
    case AtDate:
        facts.kind = ScheduleFacts::Kind::Date;
        facts.date = modTriggerDate::Read(ShownDate(), m_locale);
        facts.time = timeOf(*txtDateTime);
        break;
    case AtTime:
        facts.kind = ScheduleFacts::Kind::TimeOfDay;
        facts.time = timeOf(*txtTime);
        break;
    default:
        break;
    }
    const QDateTime now = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(m_clock.Now()));
    facts.isPast = QDateTime(facts.date, facts.time).addSecs(60) <= now;
    facts.dayName = QLocale(m_texts[Text::NameOfLanguage]).dayName(facts.date.dayOfWeek());
    facts.dateText = facts.date.toString(m_dateFormat);
    return facts;
}

void EditorScheduleTab::showWords() {
    lblWhen->setText(ScheduleWords::Of(facts(), m_texts));
}

void EditorScheduleTab::pickDate() {
    auto* popup = new QFrame(this, Qt::Popup);
    popup->setObjectName(QStringLiteral("popDate"));
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* calendar = new QCalendarWidget;
    FormParts::Name(*calendar, "calDate", m_texts[Text::SelectDate]);
    calendar->setLocale(m_locale);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    if (const QDate date = modTriggerDate::Read(ShownDate(), m_locale); date.isValid())
        calendar->setSelectedDate(date);
    auto* layout = new QVBoxLayout(popup);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(calendar);
    const auto take = [this, popup](QDate date) {
        txtDate->setText(date.toString(m_dateFormat));
        popup->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    popup->adjustSize();
    const QPoint below = cmdSelectDate->mapToGlobal(QPoint(0, cmdSelectDate->height()));
    const QRect room = screen()->availableGeometry();
    popup->move(std::max(room.left(), std::min(below.x(), room.right() - popup->width())),
                std::max(room.top(), std::min(below.y(), room.bottom() - popup->height())));
    popup->show();
    calendar->setFocus();
}

QString EditorScheduleTab::ShownDate() const {
    return txtDate->Shown();
}
QString EditorScheduleTab::ShownDateTime() const {
    return txtDateTime->Shown();
}
QString EditorScheduleTab::ShownTime() const {
    return txtTime->Shown();
}
