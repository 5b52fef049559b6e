// Tells the desktop which program opens a type of file, for this user alone. Owns nothing; failures are error codes.
#pragma once

#include <QString>
#include <filesystem>
#include <system_error>

struct FileType {
    std::filesystem::path program;
    QString extension;          ///< with its dot, ".kvd"
    std::filesystem::path icon; ///< may name no file: then there is no icon
    QString description;        ///< for the user, one line
};

class FileTypes {
  public:
    virtual ~FileTypes() = default;

    /// From then on a double click on such a file starts the program with the file's path. Done again, it changes
    /// nothing; what other programs registered stays.
    [[nodiscard]] virtual std::error_code Register(const FileType& type) = 0;
};
