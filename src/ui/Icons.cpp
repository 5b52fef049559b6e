#include "Icons.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <array>

/// A static library has to register its resources itself. (The macro does not work inside a namespace.)
static void loadDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace {

/// By Picture.
constexpr std::array names{"",           "idle",    "monitoring", "failed", "start",      "stop",   "run-now",
                           "run-marked", "refresh", "exit",       "add",    "delete",     "import", "export",
                           "settings",   "log",     "search",     "folder", "properties", "help",   "system-info"};

} // namespace

QIcon Icons::Icon(Picture picture) {
    QIcon icon;
    if (picture == Picture::None)
        return icon;
    loadDrawings();
    QSvgRenderer drawing(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(names[static_cast<std::size_t>(picture)])));
    for (const int size : {16, 20, 22, 24, 32, 44, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
