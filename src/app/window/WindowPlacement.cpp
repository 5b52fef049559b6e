#include "WindowPlacement.h"

#include "SettingsStore.h"
#include <QEvent>
#include <QGuiApplication>
#include <QList>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int largestPixel = 32767; // what display systems can address

struct Value {
    const char* key;
    int standard;
    bool mustBePositive;
};
constexpr std::array<Value, 4> values = {Value{"Top", 200, false}, Value{"Left", 200, false},
                                         Value{"Width", 9375, true}, Value{"Height", 6960, true}};

const QString section = QStringLiteral("WindowPos");

std::optional<double> readNumber(QString text) {
    bool ok = false;
    const double number = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return std::nullopt;
    return number;
}

int toPixels(const QString& text) {
    const double pixels = std::round(readNumber(text).value_or(0) / WindowPosition::UnitsPerPixel);
    return static_cast<int>(std::clamp(pixels, double(-largestPixel), double(largestPixel)));
}

std::array<int, 4> parts(const QRect& rectangle) {
    return {rectangle.top(), rectangle.left(), rectangle.width(), rectangle.height()};
}

} // namespace

WindowPosition::WindowPosition() {
    for (std::size_t i = 0; i < values.size(); ++i)
        m_texts[i] = QString::number(values[i].standard);
}

void WindowPosition::Load(const SettingsStore& settings) {
    *this = WindowPosition();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto text = settings.Read(SettingsStore::OwnApplication, section, QString::fromLatin1(values[i].key));
        const auto number = text ? readNumber(*text) : std::nullopt;
        if (number && (!values[i].mustBePositive || *number > 0))
            m_texts[i] = *text;
    }
    const int state = settings.Read(SettingsStore::OwnApplication, section, QStringLiteral("WindowState"))
                          .value_or(QString())
                          .toInt();
    if (state >= 0 && state <= 2)
        m_state = static_cast<State>(state);
    m_restored = Rectangle();
}

QRect WindowPosition::Rectangle() const {
    return {toPixels(m_texts[1]), toPixels(m_texts[0]), std::max(1, toPixels(m_texts[2])),
            std::max(1, toPixels(m_texts[3]))};
}

std::error_code WindowPosition::Save(SettingsStore& settings, const QRect& rectangle, State state) const {
    const std::array<int, 4> now = parts(rectangle);
    const std::array<int, 4> before = parts(m_restored);
    SettingsStore::Entries entries;
    for (std::size_t i = 0; i < values.size(); ++i)
        entries.emplace_back(QLatin1String(values[i].key),
                             now[i] == before[i] ? m_texts[i] : QString::number(now[i] * UnitsPerPixel));
    entries.emplace_back(QStringLiteral("WindowState"), QString::number(static_cast<int>(state)));
    return settings.WriteAll(SettingsStore::OwnApplication, section, entries);
}

QRect WindowPosition::Reachable(const QRect& rectangle, const QList<QRect>& screens) {
    constexpr int grip = 40; // as much of the title bar as can be taken hold of
    const QRect titleBar(rectangle.left(), rectangle.top(), rectangle.width(), grip);
    for (const QRect& screen : screens) {
        const QRect seen = screen.intersected(titleBar);
        if (seen.width() >= std::min(grip, rectangle.width()) && seen.height() >= grip / 2)
            return rectangle;
    }
    if (screens.isEmpty())
        return rectangle;
    return {screens.first().topLeft(), rectangle.size().boundedTo(screens.first().size())};
}

WindowPlacement::WindowPlacement(QWidget& window, SettingsStore& settings) : m_window(window), m_settings(settings) {
    window.installEventFilter(this);
}

void WindowPlacement::Restore() {
    m_position.Load(m_settings);
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QRect rectangle = WindowPosition::Reachable(m_position.Rectangle(), screens);
    m_window.resize(rectangle.size());
    m_window.move(rectangle.topLeft());
    m_last = QRect(m_window.pos(), m_window.size());
    m_position.SetRestored(m_last);
    switch (m_position.WindowState()) {
    case WindowPosition::State::Normal:
        return m_window.show();
    case WindowPosition::State::Minimised:
        return m_window.showMinimized();
    case WindowPosition::State::Maximised:
        return m_window.showMaximized();
    }
}

void WindowPlacement::note() {
    if (m_window.isVisible() && !m_window.isMinimized())
        m_last = QRect(m_window.pos(), m_window.size());
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        note();
    return QObject::eventFilter(watched, event);
}

std::error_code WindowPlacement::Save() const {
    auto state = WindowPosition::State::Normal;
    if (m_window.isMinimized())
        state = WindowPosition::State::Minimised;
    else if (m_window.isMaximized())
        state = WindowPosition::State::Maximised;
    return m_position.Save(m_settings, m_last, state);
}
