#include "MessageBoxPrompter.h"

#include "DialogHost.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

MessageAnswer safeAnswer(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::YesNo:
        return MessageAnswer::No;
    case MessageButtons::OkCancel:
        return MessageAnswer::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return MessageAnswer::Ok;
}

} // namespace

MessageBoxPrompter::MessageBoxPrompter(const StringTable& texts) : m_texts(texts) {}

MessageBoxPrompter::~MessageBoxPrompter() = default;

void MessageBoxPrompter::SetWindow(QWidget* window) {
    m_window = window;
}

void MessageBoxPrompter::addButtons(QMessageBox& box, MessageButtons buttons) const {
    const auto add = [&](QMessageBox::StandardButton which, Text id) {
        QPushButton* button = box.addButton(which);
        if (const QString text = m_texts[id]; !text.isEmpty())
            button->setText(text);
        return button;
    };
    QPushButton* safe = nullptr;
    switch (buttons) {
    case MessageButtons::YesNo:
        add(QMessageBox::Yes, Text::Yes);
        safe = add(QMessageBox::No, Text::No);
        break;
    case MessageButtons::OkCancel:
        add(QMessageBox::Ok, Text::Ok);
        safe = add(QMessageBox::Cancel, Text::Cancel);
        break;
    case MessageButtons::Ok:
        safe = add(QMessageBox::Ok, Text::Ok);
        break;
    }
    box.setDefaultButton(safe);
    box.setEscapeButton(safe);
}

void MessageBoxPrompter::countDown(QMessageBox& box, std::chrono::seconds seconds) const {
    const auto show = [this, &box](std::chrono::seconds left) {
        box.setInformativeText(m_texts[Text::SecondsLeft].arg(left.count()));
    };
    show(seconds);
    auto* second = new QTimer(&box);
    QObject::connect(second, &QTimer::timeout, &box, [&box, show, left = seconds]() mutable {
        if (--left == std::chrono::seconds(0))
            box.done(QMessageBox::Ok);
        else
            show(left);
    });
    second->start(std::chrono::seconds(1));
}

MessageAnswer MessageBoxPrompter::Ask(const Message& message) {
    if (!m_asking)
        return safeAnswer(message.buttons);
    QMessageBox box(DialogHost::ParentFor(m_window));
    box.setTextFormat(Qt::PlainText);
    box.setText(modForeignText::Lines(message.text));
    box.setWindowTitle(modForeignText::OneLine(message.title));
    box.setIcon(boxIcon(message.icon));
    addButtons(box, message.buttons);
    if (message.countdown.count() > 0)
        countDown(box, message.countdown);

    m_open.push_back(&box);
    const int pressed = box.exec();
    std::erase(m_open, &box);

    switch (pressed) {
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::Ok:
        return MessageAnswer::Ok;
    default:
        return safeAnswer(message.buttons);
    }
}

void MessageBoxPrompter::StopAsking() {
    m_asking = false;
    for (QMessageBox* box : std::vector(m_open))
        box->done(QMessageBox::NoButton);
}
