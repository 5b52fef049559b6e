#include "modPrivateFile.h"

#include "modRegularFile.h"

/// Who may read a file of the user's folders is for its access list to say, which the folder hands on.
std::error_code modPrivateFile::Read(const std::filesystem::path& path, QByteArray& bytes) {
    QFile file;
    if (const std::error_code error = modRegularFile::Open(path, file))
        return error;
    bytes = file.read(LargestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return std::make_error_code(std::errc::io_error);
    return bytes.size() > LargestFile ? std::make_error_code(std::errc::file_too_large) : std::error_code();
}
