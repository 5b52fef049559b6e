// What a run is to make of two folders, written down a second time and as plainly as possible: no descriptors and no
// batches, only a tree in memory. The random test holds the engine against it. Knows nothing of the engine's code.
#pragma once

#include <QDir>
#include <QMap>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <map>
#include <set>
#include <string>

/// A file, a link, a pipe, or a folder with everything in it.
struct ModelEntry {
    enum class Kind { Folder, File, Link, Pipe };
    Kind kind = Kind::Folder;
    std::string bytes{};   ///< of a file; of a link the path it leads to, from the world's top
    std::int64_t time = 0; ///< of a file, nanoseconds
    unsigned mode = 0755;  ///< of a file or folder
    std::map<std::string, ModelEntry> inside{};
};

/// Fields of the activity, the answer to every question, and where the source lies.
struct ModelRun {
    QMap<QString, QString> fields{{u"action"_qs, u"0"_qs},         {u"overwrite"_qs, u"Y"_qs}, {u"onlynew"_qs, u"N"_qs},
                                  {u"includesubdirs"_qs, u"Y"_qs}, {u"extensions"_qs, {}},     {u"alert"_qs, u"N"_qs}};
    bool answersYes = false;
    bool isOtherDevice = false; ///< no rename leads from the source to the destination
    bool isPreviewed = false;   ///< shown beforehand, and run as it was shown
    bool keeps = false;         ///< what is deleted and replaced goes to the trash
};

/// Takes the world, with "src" and "dst" at its top, and runs the activity once. Readable afterwards: the world, the
/// paths that failed, and how many boxes the user saw. Whoever runs it is no administrator.
class SyncModel final {
  public:
    SyncModel(ModelEntry start, const ModelRun& run) : world(std::move(start)), m_run(run) {
        level(world.inside.at("src"), world.inside.at("dst"), {});
    }

    ModelEntry world;
    std::set<std::string> failed;
    int boxes = 0;

  private:
    using Entry = ModelEntry;
    using Kind = ModelEntry::Kind;
    enum class Seen { Nothing, File, Folder, FolderLink, Special, Unknown };

    bool says(const char* field, QStringView value) const { return m_run.fields[QLatin1String(field)] == value; }
    bool isMove() const { return says("action", u"1"); }
    bool isReport() const { return says("action", u"2"); }
    bool isMirror() const { return says("action", u"3"); }

    /// What a path leads to, links followed: null for nothing and for a circle of links, `m_closed` for what a folder
    /// without rights holds.
    const Entry* at(const std::string& path, int links = 0) const {
        const Entry* entry = &world;
        for (const QByteArray& name : QByteArray::fromStdString(path).split('/')) {
            if (entry->kind == Kind::Folder && (entry->mode & 0100U) == 0)
                return &m_closed;
            const auto found = entry->inside.find(name.toStdString());
            entry = found == entry->inside.end() ? nullptr : &found->second;
            if (entry != nullptr && entry->kind == Kind::Link)
                entry = links < 20 ? at(entry->bytes, links + 1) : nullptr;
            if (entry == nullptr)
                return nullptr;
        }
        return entry;
    }
    const Entry* target(const Entry& entry) const { return entry.kind == Kind::Link ? at(entry.bytes) : &entry; }
    Seen seen(const Entry& folder, const std::string& name) const {
        const auto found = folder.inside.find(name);
        if (found == folder.inside.end())
            return Seen::Nothing;
        const Entry* leadsTo = target(found->second);
        if (leadsTo == &m_closed)
            return Seen::Unknown;
        if (leadsTo == nullptr || leadsTo->kind == Kind::Pipe)
            return Seen::Special;
        if (leadsTo->kind == Kind::File)
            return Seen::File;
        return leadsTo == &found->second ? Seen::Folder : Seen::FolderLink;
    }

    /// Which side's file is newer, both times as the coarser of the two could be stored.
    int compare(const Entry& source, const Entry& destination, const std::string& name) const {
        const std::int64_t from = target(source.inside.at(name))->time;
        const std::int64_t to = target(destination.inside.at(name))->time;
        std::int64_t step = 1;
        for (const std::int64_t coarser : {100, 1'000, 1'000'000, 10'000'000, 1'000'000'000})
            if (from % coarser == 0 || to % coarser == 0)
                step = coarser;
        const auto steps = [step](std::int64_t time) { return time / step - (time % step < 0 ? 1 : 0); };
        return steps(from) < steps(to) ? -1 : steps(from) > steps(to) ? 1 : 0;
    }

    bool takesPart(const Entry& folder, const std::string& name, const std::string& path) {
        if (!allow(seen(folder, name) != Seen::Unknown, path) || seen(folder, name) != Seen::File)
            return false;
        const QString text = QDir::toNativeSeparators(u'/' + QString::fromStdString(path));
        const QString extensions = m_run.fields[u"extensions"_qs];
        bool isPassing = m_isWhole || extensions.isEmpty();
        for (const QString& entry : extensions.split(u';'))
            isPassing |= text.right(entry.size()).compare(entry.trimmed(), Qt::CaseInsensitive) == 0;
        return isPassing;
    }

    /// What is not allowed has failed.
    bool allow(bool isAllowed, const std::string& path) {
        if (!isAllowed)
            failed.insert(path);
        return isAllowed;
    }
    static bool isWritable(const Entry& folder) { return (folder.mode & 0200U) != 0; }
    void remove(Entry& folder, const std::string& name, const std::string& path) {
        if (allow(isWritable(folder), path))
            folder.inside.erase(name);
    }
    void react() { boxes += !m_isWhole && says("alert", u"Y") ? 1 : 0; }

    /// The entries are those that were there before the first was touched.
    void level(Entry& source, Entry& destination, const std::string& path) {
        const std::string src = "src" + path + '/';
        const std::string dst = "dst" + path + '/';
        if (isMirror())
            for (const auto there = destination.inside; const auto& [name, entry] : there) {
                if (!takesPart(destination, name, dst + name))
                    continue;
                const bool isSurplus = !source.inside.contains(name);
                if (!isSurplus && (seen(source, name) != Seen::File || compare(source, destination, name) <= 0))
                    continue;
                react();
                isSurplus ? remove(destination, name, dst + name) : file(source, destination, name, src + name);
            }
        const auto here = source.inside;
        for (const auto& [name, entry] : here)
            if (takesPart(source, name, src + name) && !failed.contains(src + name))
                file(source, destination, name, src + name);
        if (!m_isWhole && !says("includesubdirs", u"Y"))
            return;
        for (const auto& [name, entry] : here) {
            const Seen there = seen(destination, name);
            if (seen(source, name) != Seen::Folder || there == Seen::FolderLink)
                continue;
            if (there == Seen::Folder) {
                level(source.inside[name], destination.inside[name], path + '/' + name);
            } else if (allow(there == Seen::Nothing, src + name)) {
                react();
                if (!isReport())
                    wholeFolder(source, destination, path, name);
            }
        }
        if (isMirror())
            for (const auto there = destination.inside; const auto& [name, entry] : there)
                if (seen(destination, name) == Seen::Folder && !source.inside.contains(name))
                    surplusFolder(destination, name, dst + name);
    }

    void file(Entry& source, Entry& destination, const std::string& name, const std::string& path) {
        const Seen there = seen(destination, name);
        if (!allow(there == Seen::Nothing || there == Seen::File, path))
            return;
        if (there == Seen::File) {
            if (target(source.inside[name]) == target(destination.inside[name]))
                return;
            const int order = compare(source, destination, name);
            const bool asks = says("overwrite", u"N") && order < 0;
            boxes += asks ? 1 : 0;
            if (asks ? !m_run.answersYes : says("onlynew", u"Y") && order <= 0)
                return;
        }
        if (!isReport() || there == Seen::Nothing)
            react();
        if (!isReport())
            transfer(source, destination, name, path);
    }

    void transfer(Entry& source, Entry& destination, const std::string& name, const std::string& path) {
        const Entry content = *target(source.inside[name]);
        const bool isRename = isMove() && !m_run.isOtherDevice && source.inside[name].kind != Kind::Link;
        const bool isReadable = (content.mode & 0400U) != 0;
        if (!allow(isWritable(destination) && (isRename ? isWritable(source) : isReadable), path))
            return;
        destination.inside[name] = content;
        if (isMove())
            remove(source, name, path);
    }

    /// The destination has nothing of this name: no filter, and within one device a move is one rename.
    void wholeFolder(Entry& source, Entry& destination, const std::string& path, const std::string& name) {
        const std::string src = "src" + path + '/' + name;
        Entry& folder = source.inside[name];
        const bool isRename = isMove() && !m_run.isOtherDevice;
        if (!allow(isWritable(destination) && (!isRename || (isWritable(source) && isWritable(folder))), src))
            return;
        Entry& made = destination.inside[name];
        const bool wasWhole = std::exchange(m_isWhole, true);
        isRename ? made.inside.swap(folder.inside) : level(folder, made, path + '/' + name);
        m_isWhole = wasWhole;
        made.mode = folder.mode;
        if (isMove() && (folder.inside.empty() || !isWritable(source)))
            remove(source, name, src);
    }

    void surplusFolder(Entry& parent, const std::string& name, const std::string& path) {
        Entry& folder = parent.inside[name];
        for (const auto there = folder.inside; const auto& [inner, entry] : there)
            if (seen(folder, inner) == Seen::Folder)
                surplusFolder(folder, inner, path + '/' + inner);
            else if (takesPart(folder, inner, path + '/' + inner))
                remove(folder, inner, path + '/' + inner);
        if (folder.inside.empty())
            remove(parent, name, path);
    }

    const ModelRun m_run;
    const Entry m_closed;
    bool m_isWhole = false; ///< in a folder that is taken as it is
};
