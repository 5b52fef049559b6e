// Names of the program's own entries in a destination. Those of temporary files are hidden, impossible to guess, and
// marked with the process that made them, so that the files of a dead process can be removed. A name of any other form
// has no maker.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Identifies one process among all that can reach a shared folder. A field that cannot be read stays 0, and the
/// process counts as alive.
struct ProcessMark {
    std::uint32_t machine = 0; ///< hash of what process numbers are unique in
    std::uint32_t boot = 0;    ///< 0 where the start alone tells
    std::int32_t process = 0;
    std::uint64_t startTicks = 0; ///< a number that two processes of one number do not share

    [[nodiscard]] static ProcessMark OfThisProcess();

    bool operator==(const ProcessMark&) const = default;
};

enum class ProcessState { Alive, Gone, OnAnotherMachine };

/// The state of the process `mark` as seen from the process `own`.
[[nodiscard]] ProcessState StateOf(const ProcessMark& mark, const ProcessMark& own);

/// For what makes up a mark: a name of any length as a number.
[[nodiscard]] std::uint32_t HashOf(std::string_view text);

enum class TemporaryKind {
    File,      ///< a file that has not got its name yet
    NewFolder, ///< a mark: the folder has not been filled completely yet
    Moves      ///< a mark: files that were moved into the folder may still have their sources
};

/// A new name: ".kalvenor-<machine>-<boot>-<process>-<start>-<random>", numbers in hexadecimal, and ".tmp", ".new" or
/// ".moves".
[[nodiscard]] std::string MakeTemporaryName(const ProcessMark& maker, TemporaryKind kind = TemporaryKind::File);

/// The process that made the temporary file of this name; nullopt for every other name.
[[nodiscard]] std::optional<ProcessMark> MakerOfTemporary(std::string_view name);

/// The folder in the root of a destination that keeps what runs have deleted and replaced. No
/// listing shows it.
constexpr std::string_view TrashName = ".kalvenor-trash";

/// The kind of a name that has a maker.
[[nodiscard]] TemporaryKind KindOfTemporary(std::string_view name);
