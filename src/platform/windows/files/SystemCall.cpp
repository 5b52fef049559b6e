#include "SystemCall.h"

#include <array>
#include <string>

namespace {

struct Meaning {
    DWORD number;
    std::errc condition;
};

constexpr std::array meanings{
    Meaning{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_INVALID_DRIVE, std::errc::no_such_file_or_directory},
    Meaning{ERROR_TOO_MANY_OPEN_FILES, std::errc::too_many_files_open},
    Meaning{ERROR_ACCESS_DENIED, std::errc::permission_denied},
    Meaning{ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    Meaning{ERROR_NOT_SAME_DEVICE, std::errc::cross_device_link},
    Meaning{ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    Meaning{ERROR_NOT_READY, std::errc::no_such_device},
    Meaning{ERROR_CRC, std::errc::io_error},
    Meaning{ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    Meaning{ERROR_LOCK_VIOLATION, std::errc::no_lock_available},
    Meaning{ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_NOT_SUPPORTED, std::errc::operation_not_supported},
    Meaning{ERROR_FILE_EXISTS, std::errc::file_exists},
    Meaning{ERROR_INVALID_PARAMETER, std::errc::invalid_argument},
    Meaning{ERROR_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_INVALID_NAME, std::errc::invalid_argument},
    Meaning{ERROR_DIR_NOT_EMPTY, std::errc::directory_not_empty},
    Meaning{ERROR_BUSY, std::errc::device_or_resource_busy},
    Meaning{ERROR_ALREADY_EXISTS, std::errc::file_exists},
    Meaning{ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    Meaning{ERROR_FILE_TOO_LARGE, std::errc::file_too_large},
    Meaning{ERROR_DIRECTORY, std::errc::not_a_directory},
    Meaning{ERROR_DELETE_PENDING, std::errc::device_or_resource_busy},
    Meaning{DirectoryNotSupported, std::errc::is_a_directory},
    Meaning{ERROR_OPERATION_ABORTED, std::errc::operation_canceled},
    Meaning{ERROR_IO_DEVICE, std::errc::io_error},
    Meaning{ERROR_USER_MAPPED_FILE, std::errc::device_or_resource_busy},
    Meaning{ERROR_FILE_CORRUPT, std::errc::io_error},
    Meaning{ERROR_CANT_RESOLVE_FILENAME, std::errc::too_many_symbolic_link_levels},
};

class FileErrorCategory final : public std::error_category {
  public:
    const char* name() const noexcept override { return "file"; }

    /// In the ANSI code page, as those of the standard library.
    std::string message(int number) const override {
        std::array<wchar_t, 512> wide{};
        const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                            static_cast<DWORD>(number), 0, wide.data(), wide.size(), nullptr);
        std::array<char, 2048> text{};
        const int bytes = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(length), text.data(),
                                              static_cast<int>(text.size()), nullptr, nullptr);
        std::string message(text.data(), static_cast<std::size_t>(bytes));
        message.erase(message.find_last_not_of(" \r\n") + 1);
        return message.empty() ? "Error " + std::to_string(number) : message;
    }

    std::error_condition default_error_condition(int number) const noexcept override {
        for (const Meaning& meaning : meanings) {
            if (meaning.number == static_cast<DWORD>(number))
                return std::make_error_condition(meaning.condition);
        }
        return {number, *this};
    }
};

} // namespace

std::error_code FileError(DWORD number) {
    static const FileErrorCategory category;
    return {static_cast<int>(number), category};
}
