#include "TrashJournal.h"
#include "modNativePath.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <fstream>

namespace {

constexpr QLatin1String activityFileKey("activityfile");
constexpr QLatin1String activityKey("activity");
constexpr QLatin1String beganKey("began");
constexpr QLatin1String daysKey("days");
constexpr QLatin1String undoKey("undo");
constexpr QLatin1String keptKey("kept");
constexpr QLatin1String nameKey("name");
constexpr QLatin1String sizeKey("size");
constexpr QLatin1String modifiedKey("modified");

QByteArray lineOf(const QJsonObject& value) {
    return QJsonDocument(value).toJson(QJsonDocument::Compact) + '\n';
}

/// A text, or an array with the bytes where they are no text.
QJsonValue valueOf(const std::filesystem::path& path) {
    const QString text = modNativePath::ToText(path);
    if (modNativePath::FromText(text) == path)
        return text;
    const auto& native = path.native();
    const QByteArray bytes(reinterpret_cast<const char*>(native.data()),
                           static_cast<qsizetype>(native.size() * sizeof native.front()));
    return QJsonArray{QString::fromLatin1(bytes.toBase64())};
}

std::filesystem::path pathOf(const QJsonValue& value) {
    if (!value.isArray())
        return modNativePath::FromText(value.toString());
    using Native = std::filesystem::path::string_type;
    const QByteArray bytes = QByteArray::fromBase64(value[0].toString().toLatin1());
    const auto* first = reinterpret_cast<const Native::value_type*>(bytes.constData());
    return Native(first, first + static_cast<std::size_t>(bytes.size()) / sizeof(Native::value_type));
}

/// Calls `take` with each value until it returns false.
template <typename Take>
void forEach(const std::filesystem::path& run, const Take& take) {
    std::error_code error;
    const std::filesystem::path journal = run / TrashJournal::FileName;
    if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(journal, error)))
        return;
    std::ifstream file(journal, std::ios::binary);
    for (std::string line; std::getline(file, line);)
        if (!take(QJsonDocument::fromJson(QByteArray::fromStdString(line)).object()))
            return;
}

} // namespace

QByteArray TrashJournal::Text(const KeptRun& run) {
    return lineOf({{activityFileKey, run.activityFile},
                   {activityKey, run.activity},
                   {beganKey, static_cast<qint64>(run.began.time_since_epoch().count())},
                   {daysKey, run.days},
                   {undoKey, run.isUndo}});
}

QByteArray TrashJournal::Text(const JournalLine& line) {
    QJsonObject value{{keptKey, valueOf(line.kept)}};
    if (!line.name.empty())
        value[nameKey] = valueOf(line.name);
    if (line.placed) {
        value[sizeKey] = static_cast<qint64>(line.placed->size);
        value[modifiedKey] = static_cast<qint64>(line.placed->modified.nanoseconds);
    }
    return lineOf(value);
}

std::optional<KeptRun> TrashJournal::ReadRun(const std::filesystem::path& run) {
    std::optional<KeptRun> found;
    forEach(run, [&](const QJsonObject& value) {
        const qint64 began = value[beganKey].toInteger(-1);
        const int days = value[daysKey].toInt();
        if (began > 0 && days > 0)
            found = KeptRun{.name = run.filename(),
                            .activityFile = value[activityFileKey].toString(),
                            .activity = value[activityKey].toString(),
                            .began = std::chrono::sys_seconds(std::chrono::seconds(began)),
                            .days = days,
                            .isUndo = value[undoKey].toBool()};
        return false;
    });
    return found;
}

std::map<std::filesystem::path, JournalLine> TrashJournal::ReadLines(const std::filesystem::path& run) {
    std::map<std::filesystem::path, JournalLine> lines;
    forEach(run, [&](const QJsonObject& value) {
        JournalLine line{.kept = pathOf(value[keptKey]), .name = pathOf(value[nameKey]).filename(), .placed = {}};
        if (value.contains(modifiedKey))
            line.placed = FileFacts{.kind = EntryKind::File,
                                    .size = static_cast<std::uint64_t>(value[sizeKey].toInteger()),
                                    .modified = {value[modifiedKey].toInteger(), 1}};
        if (!line.kept.empty())
            lines[line.kept] = line;
        return true;
    });
    return lines;
}
