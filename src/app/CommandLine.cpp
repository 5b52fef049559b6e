#include "CommandLine.h"

#include "ServiceMode.h"
#include "modNativePath.h"
#include <array>

namespace {

struct QtOption {
    const char* name;
    bool takesValue;
};

// The options that Qt's application objects take for themselves, with one or two hyphens.
constexpr std::array qtOptions = {
    QtOption{"platform", true},      QtOption{"platformpluginpath", true},
    QtOption{"platformtheme", true}, QtOption{"plugin", true},
    QtOption{"style", true},         QtOption{"stylesheet", true},
    QtOption{"session", true},       QtOption{"display", true},
    QtOption{"geometry", true},      QtOption{"qwindowgeometry", true},
    QtOption{"qwindowicon", true},   QtOption{"qwindowtitle", true},
    QtOption{"icon", true},          QtOption{"title", true},
    QtOption{"fontengine", true},    QtOption{"reverse", false},
    QtOption{"widgetcount", false},  QtOption{"nograb", false},
    QtOption{"dograb", false},       QtOption{"sync", false},
};

const QtOption* findQtOption(const QString& word) {
    for (const QtOption& option : qtOptions) {
        const QString name = QLatin1Char('-') + QLatin1String(option.name);
        if (word == name || word == QLatin1Char('-') + name)
            return &option;
    }
    return nullptr;
}

bool isAssignedQtOption(const QString& word) {
    return word.startsWith(QLatin1String("-style=")) || word.startsWith(QLatin1String("-stylesheet=")) ||
           word.startsWith(QLatin1String("-qmljsdebugger="));
}

QString withoutQuotes(const QString& text) {
    const bool quoted = text.size() >= 2 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"'));
    return quoted ? text.mid(1, text.size() - 2) : text;
}

} // namespace

CommandLine ParseCommandLine(const QStringList& words) {
    CommandLine result;
    QStringList own;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words.at(i);
        if (const QtOption* option = findQtOption(word); option != nullptr) {
            if (!option->takesValue || i + 1 == words.size())
                continue;
            ++i;
            if (word.endsWith(QLatin1String("-platform")))
                result.platform = words.at(i);
        } else if (!isAssignedQtOption(word)) {
            own.append(word);
        }
    }
    result.text = withoutQuotes(own.join(QLatin1Char(' ')));
    if (result.text.isEmpty())
        return result;
    if (result.text == QLatin1String("STARTSERVICE")) {
        result.kind = CommandLine::Kind::StartService;
        return result;
    }
    if (ServiceMode::IsWord(result.text)) {
        result.kind = CommandLine::Kind::ServiceWord;
        return result;
    }
    result.kind = CommandLine::Kind::File;
    result.file = modNativePath::ToText(modNativePath::Absolute(result.text));
    return result;
}

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
