// What makes the desktop start this program, for this user alone: an entry that starts it with the session, and a file
// type that a double click opens with it. Failures are error codes.
#pragma once

#include <QString>
#include <filesystem>
#include <system_error>

/// The entries that start with the user's session. A change that fails leaves the entry as it was.
class Autostart {
  public:
    virtual ~Autostart() = default;

    /// True when there is an entry of this name, whoever made it and whatever it starts.
    [[nodiscard]] virtual bool Exists(const QString& name) const = 0;

    /// Creates or replaces the entry; it starts the program without arguments. Takes an absolute path.
    [[nodiscard]] virtual std::error_code Create(const QString& name, const std::filesystem::path& program) = 0;

    /// Removes the entry, whoever made it. No error when there is none.
    [[nodiscard]] virtual std::error_code Remove(const QString& name) = 0;
};

struct FileType {
    std::filesystem::path program;
    QString extension;          ///< with its dot, ".kvd"
    std::filesystem::path icon; ///< when no such file exists, the type gets no icon
    QString description;        ///< one line for the user
};

class FileTypes {
  public:
    virtual ~FileTypes() = default;

    /// From now on a double click on such a file starts the program with the file's path. Repeated calls change
    /// nothing; entries of other programs stay.
    [[nodiscard]] virtual std::error_code Register(const FileType& type) = 0;
};
