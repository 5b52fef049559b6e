#include "Icons.h"

#include <QDir>
#include <array>

/// A static library has to register its resources itself. (The macro does not work inside a namespace.)
static void loadDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace {

/// By Picture.
constexpr std::array names{
    "",           "idle",        "monitoring",     "failed",      "start",         "stop",        "run-now",
    "run-marked", "refresh",     "exit",           "add",         "delete",        "import",      "export",
    "settings",   "log",         "search",         "folder",      "properties",    "help",        "system-info",
    "preview",    "result-none", "result-running", "result-fine", "result-failed", "result-early"};

} // namespace

QIcon Icons::Icon(Picture picture) {
    QIcon icon;
    if (picture == Picture::None)
        return icon;
    loadDrawings();
    const QDir drawings(QStringLiteral(":/icons/") + QLatin1String(names[static_cast<std::size_t>(picture)]));
    const QStringList sizes = drawings.entryList();
    for (const QString& size : sizes)
        icon.addPixmap(QPixmap(drawings.filePath(size)));
    return icon;
}
