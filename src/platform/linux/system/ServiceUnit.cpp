#include "ServiceUnit.h"

#include <QString>
#include <algorithm>

namespace {

bool isAllowed(const QByteArray& program) {
    const auto isTaboo = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7f || c == '"' || c == '\'' || c == '\\';
    };
    return program.startsWith('/') && std::none_of(program.begin(), program.end(), isTaboo) &&
           QString::fromUtf8(program).toUtf8() == program;
}

} // namespace

std::optional<QByteArray> ServiceUnit::Text(const std::filesystem::path& program) {
    QByteArray path = QByteArray::fromStdString(program.native());
    if (!isAllowed(path))
        return std::nullopt;
    path.replace('%', "%%"); // a single one begins a specifier, in quotes too
    // What an activity has started belongs to the user and outlives the service, as it outlives the window. A service
    // that was killed comes back; one whose notice nobody has accepted (3) would only say so again.
    return "[Unit]\n"
           "Description=Kalvenor Pro\n"
           "\n"
           "[Service]\n"
           "Type=notify\n"
           "ExecStart='" +
           path +
           "' STARTSERVICE\n"
           "KillMode=process\n"
           "Restart=on-failure\n"
           "RestartSec=30\n"
           "RestartPreventExitStatus=3\n"
           "\n"
           "[Install]\n"
           "WantedBy=default.target\n"
           "Alias=Kalvenor.service\n";
}
