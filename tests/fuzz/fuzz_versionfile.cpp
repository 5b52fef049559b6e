// Whatever the update site sends: a value is one short line out of the file, and it reads the same in another file's
// line ends and letter case.
#include "Require.h"
#include "VersionFile.h"
#include "modForeignText.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const VersionFile file(bytes);
    const VersionFile otherEnds(QByteArray(bytes).replace('\n', "\r\n"));
    const QString version = file.Value(QStringLiteral("Version"));
    Require(version == otherEnds.Value(QStringLiteral("VERSION")));
    Require(version.size() <= VersionFile::LongestValue && !version.contains(u'\n') && !version.contains(u'\r'));
    Require(QString::fromUtf8(bytes).contains(version) || QString::fromLatin1(bytes).contains(version));
    Require(version.isEmpty() || bytes.toLower().contains("version"));
    // What the user sees of it.
    const QString shown = modForeignText::FromServer(version);
    Require(shown.size() <= 201 && std::none_of(shown.begin(), shown.end(), [](QChar c) { return c < u' '; }));

    // A section in front, whatever it holds, decides.
    const VersionFile ours("[~up]\nversion = '1.2' \n[~UP]\n" + bytes);
    Require(ours.Value(QStringLiteral("Version")) == u"1.2");
    return 0;
}
