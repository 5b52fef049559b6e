#include "DisplayChoice.h"

#include <QStringList>

bool ShowsWindows(const DisplayFacts& facts) {
    static const QStringList drawIntoMemory = {QStringLiteral("offscreen"), QStringLiteral("minimal")};
    static const QStringList bringTheirScreen = {QStringLiteral("eglfs"), QStringLiteral("linuxfb"),
                                                 QStringLiteral("vnc"), QStringLiteral("vkkhrdisplay"),
                                                 QStringLiteral("directfb")};
    const QString plugin = facts.platformPlugin.section(QLatin1Char(';'), 0, 0).section(QLatin1Char(':'), 0, 0);
    if (drawIntoMemory.contains(plugin))
        return false;
    return bringTheirScreen.contains(plugin) || !facts.display.isEmpty() || !facts.waylandDisplay.isEmpty();
}
