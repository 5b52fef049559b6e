#include "clsAssocFile.h"

#include "ProgramPlaces.h"
#include "SettingsStore.h"
#include "StringTable.h"

#include <tuple>

namespace {

const QString section = QStringLiteral("Options");
const QString key = QStringLiteral("Done");

bool isTrue(const QString& value) {
    const QString plain = value.trimmed();
    return plain == QLatin1String("1") || plain.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
}

} // namespace

void clsAssocFile::SetFileAssoc(const std::filesystem::path& program, const QString& extension,
                                const std::filesystem::path& icon, const QString& description) {
    std::ignore = m_types.Register({program, extension, icon, description});
}

void clsAssocFile::RegisterOnce(const ProgramPlaces& places) {
    if (isTrue(m_settings.Read(SettingsStore::OwnApplication, section, key).value_or(QString())))
        return;
    SetFileAssoc(places.programFolder / "Kalvenor", QStringLiteral(".kvd"), places.dataFolder / "kvd.ico",
                 m_texts[Text::FileTypeName]);
    std::ignore = m_settings.Write(SettingsStore::OwnApplication, section, key, QStringLiteral("1"));
}
