// A JSON object for each activity file, kept in the program's state folder. A file that is missing, too large or
// damaged reads as an empty object; one that cannot be written is lost, for nothing depends on it.
#pragma once

#include <QJsonObject>
#include <QString>
#include <filesystem>

class OwnFiles;

class StateFile final {
  public:
    /// `folder`: the state folder; empty: nothing is kept. `ending`: of the files' names, with its dot.
    StateFile(OwnFiles& files, std::filesystem::path folder, const char* ending)
        : m_files(files), m_folder(std::move(folder)), m_ending(ending) {}

    [[nodiscard]] QJsonObject Read(const QString& activityFile) const;
    void Write(const QString& activityFile, const QJsonObject& content) const;

  private:
    [[nodiscard]] std::filesystem::path pathOf(const QString& activityFile) const;

    OwnFiles& m_files;
    std::filesystem::path m_folder;
    const char* m_ending;
};
