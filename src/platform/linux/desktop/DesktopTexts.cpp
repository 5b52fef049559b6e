#include "DesktopTexts.h"

#include <QStringList>

namespace {

/// The escapes of every value of a desktop entry.
QByteArray entryValue(QByteArray value) {
    value.replace('\\', "\\\\");
    value.replace('\n', "\\n");
    value.replace('\r', "\\r");
    value.replace('\t', "\\t");
    return value;
}

QByteArray bytesOf(const std::filesystem::path& path) {
    return QByteArray::fromStdString(path.native());
}

} // namespace

QByteArray DesktopTexts::MimePackage(const FileType& type) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" +
           QByteArray(MimeType) +
           "\">\n"
           "    <comment>" +
           type.description.toHtmlEscaped().toUtf8() +
           "</comment>\n"
           "    <sub-class-of type=\"application/xml\"/>\n"
           "    <glob pattern=\"*" +
           type.extension.toHtmlEscaped().toUtf8() +
           "\"/>\n"
           "  </mime-type>\n"
           "</mime-info>\n";
}

QByteArray DesktopTexts::ExecProgram(const std::filesystem::path& program) {
    QByteArray quoted = "\"";
    for (const char c : bytesOf(program)) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    quoted += '"';
    if (!quoted.contains('%'))
        return entryValue(quoted);
    // GLib looks for the program before it undoes the doubling, and takes the entry for broken.
    quoted.replace('%', "%%");
    return "/usr/bin/env " + entryValue(quoted);
}

QByteArray DesktopTexts::Entry(const FileType& type) {
    std::error_code error;
    const bool hasIcon = std::filesystem::is_regular_file(type.icon, error);
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Kalvenor Pro\n"
           "Comment=" +
           entryValue(type.description.toUtf8()) + "\nExec=" + ExecProgram(type.program) + " %f\n" +
           (hasIcon ? "Icon=" + entryValue(bytesOf(type.icon)) + '\n' : QByteArray()) +
           "Terminal=false\n"
           "NoDisplay=true\n"
           "MimeType=" +
           MimeType + ";\n";
}

QString DesktopTexts::Defaults(const QString& before) {
    const QString ours = QString::fromLatin1(EntryName);
    QStringList entries = before.split(u';', Qt::SkipEmptyParts);
    entries.removeAll(ours);
    entries.prepend(ours);
    return entries.join(u';') + u';';
}
