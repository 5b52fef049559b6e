#include "StateFile.h"
#include "OwnFiles.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <tuple>

namespace {
constexpr std::int64_t mostBytes = std::int64_t{16} << 20;
} // namespace

std::filesystem::path StateFile::pathOf(const QString& activityFile) const {
    const QByteArray name = QCryptographicHash::hash(activityFile.toUtf8(), QCryptographicHash::Sha256).toHex();
    return m_folder / (name.toStdString() + m_ending);
}

QJsonObject StateFile::Read(const QString& activityFile) const {
    QByteArray bytes;
    const bool isRead = !m_folder.empty() && !m_files.ReadAll(pathOf(activityFile), mostBytes, bytes);
    return isRead ? QJsonDocument::fromJson(bytes).object() : QJsonObject();
}

void StateFile::Write(const QString& activityFile, const QJsonObject& content) const {
    if (m_folder.empty())
        return;
    const QByteArray bytes = QJsonDocument(content).toJson();
    if (m_files.CreateNew(pathOf(activityFile), bytes) == std::errc::file_exists)
        std::ignore = m_files.ReplaceAll(pathOf(activityFile), bytes);
}
