// Whatever a time server sends, in whatever pieces: no more than the bound is kept, and only the number counts.
#include "Require.h"
#include "TimeAnswer.h"

#include <cmath>
#include <fuzzer/FuzzedDataProvider.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::int64_t from1900To1970 = 2'208'988'800;
    constexpr std::int64_t earliest = 692'657'152; // seconds since 1900
    FuzzedDataProvider input(data, size);
    const std::chrono::nanoseconds roundTrip(input.ConsumeIntegralInRange<std::int64_t>(0, 86'400'000'000'000));
    TimeAnswer answer;
    QByteArray all;
    while (input.remaining_bytes() > 0) {
        const QByteArray piece = QByteArray::fromStdString(input.ConsumeRandomLengthString());
        answer.Add(piece);
        all += piece;
    }
    Require(answer.IsTooLong() == (all.size() > TimeAnswer::MaxBytes));
    std::int64_t number = 0;
    for (const char byte : all.left(4))
        number = number * 256 + static_cast<unsigned char>(byte);
    const auto time = answer.Time(roundTrip);
    Require(time.has_value() == (all.size() >= 4 && number >= earliest));
    if (!time)
        return 0;
    const double off =
        double(time->time_since_epoch().count() - number + from1900To1970) - double(roundTrip.count()) / 2e9;
    Require(std::abs(off) <= 0.5);
    return 0;
}
