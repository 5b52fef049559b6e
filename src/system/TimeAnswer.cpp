#include "TimeAnswer.h"

#include <QtEndian>
#include <cmath>
#include <limits>

std::optional<std::chrono::sys_seconds> TimeAnswer::Time(std::chrono::steady_clock::duration roundTrip) const {
    using namespace std::chrono;
    constexpr qsizetype answerBytes = 4;
    constexpr std::int64_t from1900To1990 = 2840140800;
    constexpr sys_days base{year{1990} / January / 1};
    if (m_bytes.size() < answerBytes)
        return std::nullopt;
    const std::int64_t since1990 = qFromBigEndian<quint32>(m_bytes.constData()) - from1900To1990;
    if (since1990 < std::numeric_limits<std::int32_t>::min())
        return std::nullopt;
    const double oneWay = duration<double>(roundTrip).count() / 2;
    return sys_seconds(base) + seconds(since1990) + seconds(std::llrint(oneWay));
}
