#include "DriveMark.h"
#include "modForeignText.h"
#include "modNativePath.h"

namespace {

const QString separator = QStringLiteral(" | ");

/// What has to fit. Two bind mounts of one file system differ by nothing but their mount point.
QString keyOf(const DriveFacts& drive) {
    if (drive.identity.empty() || drive.mountPoint.empty())
        return {};
    const QString key = QString::fromStdString(drive.identity) + separator + modNativePath::ToText(drive.mountPoint);
    return modForeignText::OneLine(key); // an activity file keeps no other characters
}

} // namespace

QString DriveMark::Of(const modDrive::Named& drive) {
    const QString key = keyOf(drive.facts);
    const QString name = modForeignText::OneLine(drive.name).simplified();
    return key.isEmpty() || name.isEmpty() ? key : QString(key + separator + name);
}

bool DriveMark::Fits(const QString& mark, const DriveFacts& drive) {
    const QString key = keyOf(drive);
    return !key.isEmpty() && (mark == key || mark.startsWith(key + separator));
}

/// A name alone may have been changed.
bool DriveMark::IsSame(const QString& one, const QString& other) {
    return !one.isEmpty() && one.section(separator, 0, 1) == other.section(separator, 0, 1);
}

QString DriveMark::Spoken(const QString& mark) {
    QString identity = mark.section(separator, 0, 0);
    const QString mountPoint = mark.section(separator, 1, 1);
    const QString name = mark.section(separator, 2);
    if (mountPoint.isEmpty())
        return identity;
    return mountPoint + QStringLiteral(" (") + (name.isEmpty() ? identity : name) + u')';
}
