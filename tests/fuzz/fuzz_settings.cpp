// Any settings file: what was set reads back, every other entry stays as it was, and so do the lines.
#include "IniFile.h"
#include "Require.h"

#include <QList>
#include <fuzzer/FuzzedDataProvider.h>

namespace {

/// Everything in the file that may be the name of a section or a key.
QList<QString> namesIn(const QByteArray& bytes) {
    constexpr qsizetype mostNames = 20;
    QList<QString> names;
    for (const QByteArray& line : bytes.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        names.append(QString::fromUtf8(trimmed.startsWith('[') ? trimmed.mid(1, trimmed.size() - 2).trimmed()
                                                               : line.left(line.indexOf('=')).trimmed()));
        if (names.size() == mostNames)
            break;
    }
    return names;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto text = [&input] { return QString::fromStdString(input.ConsumeRandomLengthString(20)); };
    const QString section = text();
    const QString key = text();
    const QString value = text();
    const IniFile before(QByteArray::fromStdString(input.ConsumeRemainingBytesAsString()));

    IniFile after = before;
    const auto old = before.Value(section, key);
    if (!after.SetValue(section, key, value)) {
        Require(after.Bytes() == before.Bytes());
        return 0;
    }
    const auto trimmed = [](const QString& whole) { return QString::fromUtf8(whole.toUtf8().trimmed()); };
    Require(after.Value(section, key) == trimmed(value));
    Require(after.Bytes().count('\n') >= before.Bytes().count('\n'));
    const QList<QString> names = namesIn(before.Bytes());
    for (const QString& otherSection : names)
        for (const QString& otherKey : names)
            Require((otherSection == section && otherKey == key) ||
                    after.Value(otherSection, otherKey) == before.Value(otherSection, otherKey));
    const QByteArray bytes = after.Bytes();
    if (!old || !after.SetValue(section, key, *old))
        return 0;
    Require(after.Value(section, key) == trimmed(*old));
    Require(after.SetValue(section, key, value) && after.Bytes() == bytes);
    return 0;
}
