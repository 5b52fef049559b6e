#include "TemporaryName.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <random>

namespace {

constexpr std::string_view kPrefix = ".kalvenor-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::size_t kRandomDigits = 16;

/// Takes one lower-case hexadecimal number and the hyphen behind it off the text.
template <typename Number>
bool takeNumber(std::string_view& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (error != std::errc() || end == text.data() + text.size() || *end != '-')
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return true;
}

} // namespace

std::string MakeTemporaryName(const ProcessMark& maker) {
    std::random_device random; // the system's own generator: nobody can guess the name and put a link there
    std::array<char, 128> buffer{};
    const int length =
        std::snprintf(buffer.data(), buffer.size(), "%s%08x-%08x-%x-%llx-%08x%08x%s", kPrefix.data(), maker.machine,
                      maker.boot, static_cast<unsigned>(maker.process),
                      static_cast<unsigned long long>(maker.startTicks), random(), random(), kSuffix.data());
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::optional<ProcessMark> MakerOfTemporary(std::string_view name) {
    if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix))
        return std::nullopt;
    name.remove_prefix(kPrefix.size());
    name.remove_suffix(kSuffix.size());
    ProcessMark maker;
    if (!takeNumber(name, maker.machine) || !takeNumber(name, maker.boot) || !takeNumber(name, maker.process) ||
        !takeNumber(name, maker.startTicks))
        return std::nullopt;
    const bool isRandom =
        name.size() == kRandomDigits && name.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    return isRandom ? std::optional(maker) : std::nullopt;
}
