#include "DriveGuard.h"
#include "modNativePath.h"

#include <algorithm>

namespace {

constexpr QLatin1String fromKey("sourcedir");
constexpr QLatin1String toKey("targetdir");
constexpr QLatin1String sourceKey("source drive");
constexpr QLatin1String destinationKey("destination drive");
constexpr QLatin1String mountKey("destination mount");

QString textOf(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool isAbove(const std::filesystem::path& folder, const std::filesystem::path& other) {
    const auto [below, beyond] = std::mismatch(folder.begin(), folder.end(), other.begin(), other.end());
    return below == folder.end() && beyond != other.end();
}

bool isEmptyFolder(const Folder& folder) {
    std::vector<FolderEntry> entries;
    return !folder.List(entries) && entries.empty();
}

/// The mount point of the last run is an ordinary folder of the file system above it now.
bool hasLostItsMount(const QJsonObject& last, const DriveFacts& now) {
    return !now.isNetwork && textOf(now.identity) != last[destinationKey].toString() &&
           isAbove(now.mountPoint, modNativePath::FromText(last[mountKey].toString()));
}

} // namespace

const QJsonObject& DriveGuard::load(const RunIdentity& run) {
    if (m_loadedFor == run.activityFile)
        return m_drives;
    m_drives = m_file.Read(run.activityFile);
    m_loadedFor = run.activityFile;
    return m_drives;
}

std::optional<QString> DriveGuard::Find(const RunIdentity& run, const Folder& source, const Folder& destination) {
    const QJsonObject last = load(run)[run.name].toObject();
    if (run.action == u"2" || last[fromKey] != run.source || last[toKey] != run.destination)
        return std::nullopt;
    const DriveFacts from = source.Drive();
    if (run.action == u"3" && !from.isNetwork && textOf(from.identity) != last[sourceKey].toString() &&
        isEmptyFolder(source))
        return run.source;
    return hasLostItsMount(last, destination.Drive()) ? std::optional(run.destination) : std::nullopt;
}

std::optional<QString> DriveGuard::Hold(const RunIdentity& run, const Folder& source, const Folder& destination) {
    std::optional<QString> held = Find(run, source, destination);
    if (held)
        m_held.insert(keyOf(run));
    return held;
}

void DriveGuard::Remember(const RunIdentity& run, const Folder& source, const Folder& destination) {
    m_held.erase(keyOf(run));
    const QJsonObject last = load(run)[run.name].toObject();
    const DriveFacts to = destination.Drive();
    if (to.mountPoint.empty() && !last[mountKey].toString().isEmpty())
        return; // pulled during the run: what was known of it before holds the next one
    const QJsonObject now{{fromKey, run.source},
                          {toKey, run.destination},
                          {sourceKey, textOf(source.Drive().identity)},
                          {destinationKey, textOf(to.identity)},
                          {mountKey, modNativePath::ToText(to.mountPoint)}};
    if (last == now)
        return;
    m_drives[run.name] = now;
    m_file.Write(run.activityFile, m_drives);
}
