#include "TimeAnswer.h"

#include <QtEndian>
#include <cmath>
#include <limits>

std::optional<std::chrono::sys_seconds> TimeAnswer::Convert(const QByteArray& answer,
                                                            std::chrono::steady_clock::duration roundTrip) {
    using namespace std::chrono;
    constexpr std::int64_t from1900To1990 = 2840140800;
    constexpr sys_days base{year{1990} / January / 1};
    if (answer.size() < Length)
        return std::nullopt;
    const std::int64_t since1990 = qFromBigEndian<quint32>(answer.constData()) - from1900To1990;
    if (since1990 < std::numeric_limits<std::int32_t>::min())
        return std::nullopt;
    const double oneWay = duration<double>(roundTrip).count() / 2;
    return sys_seconds(base) + seconds(since1990) + seconds(std::llrint(oneWay));
}
