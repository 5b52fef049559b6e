#include "WindowPosition.h"

#include "SettingsStore.h"
#include <QList>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int LargestPixel = 32767; // what display systems can address

struct Value {
    const char* key;
    int standard;
    bool mustBePositive;
};
constexpr std::array<Value, 4> Values = {Value{"Top", 200, false}, Value{"Left", 200, false},
                                         Value{"Width", 9375, true}, Value{"Height", 6960, true}};

const QString Section = QStringLiteral("WindowPos");

std::optional<double> readNumber(QString text) {
    bool ok = false;
    const double number = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return std::nullopt;
    return number;
}

int toPixels(const QString& text) {
    const double pixels = std::round(readNumber(text).value_or(0) / WindowPosition::UnitsPerPixel);
    return static_cast<int>(std::clamp(pixels, double(-LargestPixel), double(LargestPixel)));
}

std::array<int, 4> parts(const QRect& rectangle) {
    return {rectangle.top(), rectangle.left(), rectangle.width(), rectangle.height()};
}

} // namespace

WindowPosition::WindowPosition() {
    for (std::size_t i = 0; i < Values.size(); ++i)
        m_texts[i] = QString::number(Values[i].standard);
}

void WindowPosition::Load(const SettingsStore& settings) {
    *this = WindowPosition();
    for (std::size_t i = 0; i < Values.size(); ++i) {
        const auto text = settings.Read(SettingsStore::OwnApplication, Section, QString::fromLatin1(Values[i].key));
        const auto number = text ? readNumber(*text) : std::nullopt;
        if (number && (!Values[i].mustBePositive || *number > 0))
            m_texts[i] = *text;
    }
    const int state = settings.Read(SettingsStore::OwnApplication, Section, QStringLiteral("WindowState"))
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
    for (std::size_t i = 0; i < Values.size(); ++i)
        entries.emplace_back(QLatin1String(Values[i].key),
                             now[i] == before[i] ? m_texts[i] : QString::number(now[i] * UnitsPerPixel));
    entries.emplace_back(QStringLiteral("WindowState"), QString::number(static_cast<int>(state)));
    return settings.WriteAll(SettingsStore::OwnApplication, Section, entries);
}

QRect WindowPosition::Reachable(const QRect& rectangle, const QList<QRect>& screens) {
    constexpr int Grip = 40; // as much of the title bar as can be taken hold of
    const QRect titleBar(rectangle.left(), rectangle.top(), rectangle.width(), Grip);
    for (const QRect& screen : screens) {
        const QRect seen = screen.intersected(titleBar);
        if (seen.width() >= std::min(Grip, rectangle.width()) && seen.height() >= Grip / 2)
            return rectangle;
    }
    if (screens.isEmpty())
        return rectangle;
    return {screens.first().topLeft(), rectangle.size().boundedTo(screens.first().size())};
}
