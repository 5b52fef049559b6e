// The random cases of the model test: how they are made and shown.
#pragma once

#include "SyncModel.h"

#include <array>
#include <random>

struct ModelCase {
    ModelEntry world;
    ModelRun run;
};

/// What a disk can hold.
struct ModelLimits {
    bool hasTwoDevices = true;
    bool hasUnixEntries = true; ///< rights, links, pipes and names of any bytes; else letter case does not count
};

/// Two trees that are likely to meet: few names, few times, and what one side has the other often has too.
class RandomCase final {
  public:
    RandomCase(std::uint64_t seed, const ModelLimits& limits) : m_random(seed), m_limits(limits) {}

    ModelCase Make() {
        const auto word = [this](const QString& words) { return words.split(u'|')[below(words.count(u'|') + 1)]; };
        ModelCase made;
        made.run.fields[u"action"_qs] = word(u"0|1|1|2|3|3|3|"_qs);
        made.run.fields[u"overwrite"_qs] = word(u"Y|N|N|n|"_qs);
        made.run.fields[u"onlynew"_qs] = word(u"Y|N|y|"_qs);
        made.run.fields[u"includesubdirs"_qs] = word(u"Y|Y|Y|N|"_qs);
        made.run.fields[u"extensions"_qs] = word(u"|||txt|TXT;DOC| txt|doc;|\u00E4|ma\u00DF|xt|t/a|c/a"_qs);
        made.run.fields[u"alert"_qs] = word(u"Y|N|N"_qs);
        made.run.answersYes = odds(2);
        made.run.isOtherDevice = odds(3) && m_limits.hasTwoDevices;
        m_isMove = made.run.fields[u"action"_qs] == u"1";
        for (std::int64_t& time : m_times)
            time = around(
                one(std::array{0LL, 0LL, 1LL, 99LL, 100LL, 5'000LL, 5'001'000LL, 5'001'234LL, 120'000'000LL,
                               999'999'999LL, 1'000'000'000LL, 2'000'000'000LL, -1'500'000'000LL, -2'000'000'000LL}));
        for (std::string& name : m_names)
            name = m_limits.hasUnixEntries ? one(names) : one(plainNames);
        ModelEntry& out = made.world.inside["out"];
        for (const char* name : {"0", "1", "2"})
            out.inside[name] = file();
        out.inside["d"].inside["a"] = file();
        if (m_limits.hasUnixEntries)
            out.inside["closed"] = {.mode = 0, .inside = {{"f", file()}}};
        fill(&made.world.inside["src"], &made.world.inside["dst"], {}, 0);
        made.run.isPreviewed = odds(2);
        made.run.keeps = odds(3);
        return made;
    }

    /// Takes a little of it away, somewhere.
    void Reduce(ModelCase& made) {
        auto& fields = made.run.fields;
        const auto field = std::next(fields.begin(), below(fields.size()));
        if (odds(8))
            *field = ModelRun().fields[field.key()];
        else if (odds(8))
            made.run = {fields, made.run.answersYes && odds(2), made.run.isOtherDevice && odds(2), made.run.isPreviewed,
                        made.run.keeps};
        else
            reduce(one(std::array{&made.world.inside["src"], &made.world.inside["dst"], &made.world.inside["out"]}));
    }

  private:
    using Kind = ModelEntry::Kind;

    std::int64_t below(std::int64_t end) { return static_cast<std::int64_t>(m_random() % std::uint64_t(end)); }
    bool odds(std::int64_t against) { return below(against) == 0; }
    template <typename T, std::size_t N>
    T one(const std::array<T, N>& list) {
        return list[m_random() % N];
    }

    ModelEntry file() {
        const unsigned mode = one(std::array{0644U, 0644U, 0644U, 0600U, 0755U, 0444U, 0400U, 0200U});
        const std::int64_t time = one(m_times);
        if (!m_limits.hasUnixEntries)
            return {Kind::File, std::to_string(below(1'000'000)), time - time % 100, 0644};
        return {Kind::File, std::to_string(below(1'000'000)), time, mode};
    }
    ModelEntry emptyFolder() {
        const unsigned mode = one(std::array{0755U, 0755U, 0755U, 0755U, 0755U, 0700U, 0555U});
        return {.mode = m_limits.hasUnixEntries ? mode : 0755U};
    }
    static ModelEntry link(const std::string& to) { return {.kind = Kind::Link, .bytes = to}; }

    /// A link never leads to what the run may move or replace before it comes to the link: what is first is not said.
    ModelEntry entry(bool isSource, const std::string& path, const std::string& name, int depth) {
        const auto kind = m_limits.hasUnixEntries ? below(depth < 3 ? 10 : 7) : below(depth < 3 ? 7 : 4) + 3;
        if (kind == 0)
            return link((isSource ? "dst" : "src") + path + '/' + name);
        if (kind == 1 && isSource && !m_isMove)
            return link("src" + path + '/' + one(m_names));
        if (kind <= 2 && odds(6))
            return {.kind = Kind::Pipe};
        if (kind <= 2)
            return link(one(std::array<std::string, 6>{"out/0", "out/1", "out/2", "out/d", "out/closed/f", "no"}));
        if (kind < 7)
            return file();
        ModelEntry made = emptyFolder();
        fill(isSource ? &made : nullptr, isSource ? nullptr : &made, path + '/' + name, depth + 1);
        return made;
    }

    /// Folders of the same path; null where one side has none.
    void fill(ModelEntry* source, ModelEntry* destination, const std::string& path, int depth) {
        for (auto count = below(depth == 0 ? 9 : 6); count > 0; --count) {
            const std::string name = one(m_names);
            const bool areTwo = source != nullptr && destination != nullptr;
            if (areTwo && depth < 3 && odds(4)) {
                source->inside[name] = emptyFolder();
                destination->inside[name] = emptyFolder();
                fill(&source->inside[name], &destination->inside[name], path + '/' + name, depth + 1);
            } else if (areTwo && odds(2)) {
                source->inside[name] = file();
                destination->inside[name] = file();
            } else {
                if (source != nullptr && !odds(4))
                    source->inside[name] = entry(true, path, name, depth);
                if (destination != nullptr && !odds(3))
                    destination->inside[name] = entry(false, path, name, depth);
            }
        }
    }

    void reduce(ModelEntry* folder) {
        if (folder->inside.empty())
            return;
        const auto inner = std::next(folder->inside.begin(), below(std::ssize(folder->inside)));
        if (odds(3))
            folder->inside.erase(inner);
        else if (odds(3))
            inner->second = {inner->second.kind, inner->second.bytes, 0,
                             m_limits.hasUnixEntries ? 0755 : inner->second.mode, inner->second.inside};
        else
            reduce(&inner->second);
    }

    /// Nanoseconds around the present, and around 1970.
    static std::int64_t around(std::int64_t time) { return time < 0 ? time : 1'600'000'000'000'000'000 + time; }
    static inline const std::array<std::string, 13> names{"a",          "a",        "A",           "b.txt",     "B.TXT",
                                                          "ma\xC3\x9F", "\xC3\xA4", "\xC3\x84",    "a\xCC\x88", " x y ",
                                                          ".h.doc",     "d",        "\xFF\xFE.txt"};

    static inline const std::array<std::string, 7> plainNames{"a",         "b.txt", "ma\xC3\x9F", "\xC3\xA4",
                                                              "a\xCC\x88", " x y",  ".h.doc"};

    std::mt19937_64 m_random;
    const ModelLimits m_limits;
    bool m_isMove = false;
    std::array<std::int64_t, 4> m_times{};
    std::array<std::string, 6> m_names;
};

/// A tree, one entry a line: to be read, and to be compared.
inline QStringList LinesOf(const ModelEntry& folder, const std::string& path = {}) {
    const auto shown = [](const std::string& bytes) {
        return QString::fromLatin1(QByteArray::fromStdString(bytes).toPercentEncoding("/ "));
    };
    QStringList lines;
    for (const auto& [name, entry] : folder.inside) {
        const QString mode = QString::number(entry.mode, 8);
        if (entry.kind == ModelEntry::Kind::File)
            lines += u"%1  %2 %3 '%4'"_qs.arg(shown(path + name), mode).arg(entry.time).arg(shown(entry.bytes));
        else if (entry.kind == ModelEntry::Kind::Folder)
            lines += u"%1/  %2"_qs.arg(shown(path + name), mode);
        else
            lines += u"%1  -> %2"_qs.arg(shown(path + name), shown(entry.bytes)); // of a pipe: to nothing
        lines += LinesOf(entry, path + name + '/');
    }
    return lines;
}
