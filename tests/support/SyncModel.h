// What a run is to make of two folders, written down a second time and as plainly as possible: no descriptors and no
// batches, only a tree in memory. The random test holds the engine against it. Knows nothing of the engine's code.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
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

/// The record, the answer to every question, and where the source lies.
struct ModelFields {
    QString action{u"0"_qs};
    QString overwrite{u"Y"_qs};
    QString onlyNew{u"N"_qs};
    QString subfolders{u"Y"_qs};
    QString extensions{};
    QString alert{u"N"_qs};
    bool answersYes = false;
    bool isOtherDevice = false; ///< no rename leads from the source to the destination
};

/// Takes the world, with "src" and "dst" at its top, and runs the activity once. Readable afterwards: the world, the
/// paths that failed, and how many boxes the user saw. Whoever runs it is no administrator.
class SyncModel final {
  public:
    SyncModel(ModelEntry start, const ModelFields& fields) : world(std::move(start)), m_fields(fields) {
        level(world.inside.at("src"), world.inside.at("dst"), {});
    }

    ModelEntry world;
    std::set<std::string> failed;
    int boxes = 0;

  private:
    using Entry = ModelEntry;
    using Kind = ModelEntry::Kind;
    enum class Seen { Nothing, File, Folder, FolderLink, Special, Unknown };

    bool isMove() const { return m_fields.action == u"1"; }
    bool isMirror() const { return m_fields.action == u"3"; }
    bool isReport() const { return m_fields.action == u"2"; }

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
    static bool isWritable(const Entry& folder) { return (folder.mode & 0200U) != 0; }

    /// Both times as the coarser of the two could be stored.
    static int compare(std::int64_t a, std::int64_t b) {
        std::int64_t step = 1;
        for (const std::int64_t coarser : {100, 1'000, 1'000'000, 10'000'000, 1'000'000'000})
            if (a % coarser == 0 || b % coarser == 0)
                step = coarser;
        const auto steps = [step](std::int64_t time) { return time / step - (time % step < 0 ? 1 : 0); };
        return steps(a) < steps(b) ? -1 : steps(a) > steps(b) ? 1 : 0;
    }

    bool passes(const std::string& path) const {
        const QString text = u'/' + QString::fromStdString(path);
        bool isPassing = m_fields.extensions.isEmpty();
        for (const QString& entry : m_fields.extensions.split(u';'))
            isPassing |= text.right(entry.size()).compare(entry.trimmed(), Qt::CaseInsensitive) == 0;
        return isPassing;
    }

    bool takesPart(const Entry& folder, const std::string& name, const std::string& path, bool isFiltered = true) {
        if (seen(folder, name) == Seen::Unknown)
            failed.insert(path);
        return seen(folder, name) == Seen::File && (!isFiltered || passes(path));
    }

    /// Each entry as it was named before the first was touched.
    static void each(const Entry& folder, const std::function<void(const std::string&)>& visit) {
        const auto entries = folder.inside;
        for (const auto& [name, entry] : entries)
            visit(name);
    }

    void react() { boxes += m_fields.alert == u"Y" ? 1 : 0; }

    void level(Entry& source, Entry& destination, const std::string& path) {
        const auto in = [&path](const char* side, const std::string& name) { return side + path + '/' + name; };
        if (isMirror())
            each(destination, [&](const std::string& name) {
                if (!takesPart(destination, name, in("dst", name)))
                    return;
                const bool isSurplus = !source.inside.contains(name);
                if (!isSurplus && (seen(source, name) != Seen::File || compare(target(destination.inside[name])->time,
                                                                               target(source.inside[name])->time) >= 0))
                    return;
                react();
                if (isSurplus)
                    remove(destination, name, in("dst", name));
                else
                    file(source, destination, name, in("src", name));
            });
        each(source, [&](const std::string& name) {
            if (takesPart(source, name, in("src", name)) && !failed.contains(in("src", name)))
                file(source, destination, name, in("src", name));
        });
        if (m_fields.subfolders != u"Y")
            return;
        each(source, [&](const std::string& name) {
            if (seen(source, name) != Seen::Folder)
                return;
            const Seen there = seen(destination, name);
            if (there == Seen::Folder)
                level(source.inside[name], destination.inside[name], path + '/' + name);
            else if (there != Seen::Nothing && there != Seen::FolderLink)
                failed.insert(in("src", name));
            if (there != Seen::Nothing)
                return;
            react();
            if (!isReport())
                wholeFolder(source, destination, name, in("src", name));
        });
        if (isMirror())
            each(destination, [&](const std::string& name) {
                if (seen(destination, name) == Seen::Folder && !source.inside.contains(name))
                    surplusFolder(destination, name, in("dst", name));
            });
    }

    void file(Entry& source, Entry& destination, const std::string& name, const std::string& path) {
        const Seen there = seen(destination, name);
        if (there != Seen::Nothing && there != Seen::File)
            return void(failed.insert(path));
        if (there == Seen::File) {
            const Entry* from = target(source.inside[name]);
            const Entry* to = target(destination.inside[name]);
            if (from == to)
                return;
            const int order = compare(from->time, to->time);
            if (m_fields.overwrite == u"N" && order < 0) {
                ++boxes;
                if (!m_fields.answersYes)
                    return;
            } else if (m_fields.onlyNew == u"Y" && order <= 0) {
                return;
            }
        }
        if (!isReport() || there == Seen::Nothing)
            react();
        if (!isReport())
            transfer(source, destination, name, path);
    }

    void transfer(Entry& source, Entry& destination, const std::string& name, const std::string& path) {
        const Entry content = *target(source.inside[name]);
        const bool isRename = isMove() && !m_fields.isOtherDevice && source.inside[name].kind != Kind::Link;
        const bool isUnreadable = (content.mode & 0400U) == 0;
        if (!isWritable(destination) || (isRename ? !isWritable(source) : isUnreadable))
            return void(failed.insert(path));
        destination.inside[name] = content;
        if (isMove())
            remove(source, name, path);
    }

    void remove(Entry& folder, const std::string& name, const std::string& path) {
        if (isWritable(folder))
            folder.inside.erase(name);
        else
            failed.insert(path);
    }

    /// The destination has nothing of this name: no filter, and within one device a move is one rename.
    void wholeFolder(Entry& source, Entry& destination, const std::string& name, const std::string& path) {
        Entry& folder = source.inside[name];
        const bool isRename = isMove() && !m_fields.isOtherDevice;
        if (!isWritable(destination) || (isRename && !(isWritable(source) && isWritable(folder))))
            return void(failed.insert(path));
        Entry& made = destination.inside[name];
        if (isRename) {
            made = folder;
            return remove(source, name, path);
        }
        each(folder, [&](const std::string& inner) {
            if (takesPart(folder, inner, path + '/' + inner, false))
                transfer(folder, made, inner, path + '/' + inner);
            else if (seen(folder, inner) == Seen::Folder)
                wholeFolder(folder, made, inner, path + '/' + inner);
        });
        made.mode = folder.mode;
        if (isMove() && (folder.inside.empty() || !isWritable(source)))
            remove(source, name, path);
    }

    void surplusFolder(Entry& parent, const std::string& name, const std::string& path) {
        Entry& folder = parent.inside[name];
        each(folder, [&](const std::string& inner) {
            if (seen(folder, inner) == Seen::Folder)
                surplusFolder(folder, inner, path + '/' + inner);
            else if (takesPart(folder, inner, path + '/' + inner))
                remove(folder, inner, path + '/' + inner);
        });
        if (folder.inside.empty())
            remove(parent, name, path);
    }

    const ModelFields m_fields;
    const Entry m_closed;
};
