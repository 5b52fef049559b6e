#include "TemporaryName.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <random>

namespace {

constexpr std::string_view prefix = ".kalvenor-";
constexpr std::array<std::string_view, 3> suffixes = {".tmp", ".new", ".moves"}; // in the order of TemporaryKind
constexpr std::size_t randomDigits = 16;

std::string_view suffixOf(std::string_view name) {
    return name.substr(std::min(name.rfind('.'), name.size()));
}

/// Consumes one lower-case hexadecimal number and the hyphen after it.
template <typename Number>
bool takeNumber(std::string_view& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (error != std::errc() || end == text.data() + text.size() || *end != '-')
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return true;
}

} // namespace

std::uint32_t HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261U; // FNV-1a
    for (const char character : text)
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    return hash;
}

std::string MakeTemporaryName(const ProcessMark& maker, TemporaryKind kind) {
    std::random_device random; // the system's generator: an attacker cannot guess the name and plant a link
    std::array<char, 128> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%s%08x-%08x-%x-%llx-%08x%08x%s", prefix.data(),
                                     maker.machine, maker.boot, static_cast<unsigned>(maker.process),
                                     static_cast<unsigned long long>(maker.startTicks), random(), random(),
                                     suffixes.at(static_cast<std::size_t>(kind)).data());
    return {buffer.data(), static_cast<std::size_t>(length)};
}

TemporaryKind KindOfTemporary(std::string_view name) {
    const auto* const suffix = std::find(suffixes.begin(), suffixes.end(), suffixOf(name));
    return static_cast<TemporaryKind>(suffix - suffixes.begin());
}

std::optional<ProcessMark> MakerOfTemporary(std::string_view name) {
    const std::string_view suffix = suffixOf(name);
    if (!name.starts_with(prefix) || std::find(suffixes.begin(), suffixes.end(), suffix) == suffixes.end())
        return std::nullopt;
    name.remove_prefix(prefix.size());
    name.remove_suffix(suffix.size());
    ProcessMark maker;
    if (!takeNumber(name, maker.machine) || !takeNumber(name, maker.boot) || !takeNumber(name, maker.process) ||
        !takeNumber(name, maker.startTicks))
        return std::nullopt;
    const bool isRandom =
        name.size() == randomDigits && name.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    return isRandom ? std::optional(maker) : std::nullopt;
}
