// The random cases of the model test: how they are made, shown and made smaller.
#pragma once

#include "SyncModel.h"

#include <array>
#include <random>
#include <vector>

struct ModelCase {
    ModelEntry world;
    ModelFields fields;
};

/// Two trees that are likely to meet: few names, few times, and what one side has the other often has too.
class RandomCase final {
  public:
    explicit RandomCase(std::uint64_t seed) : m_random(seed) {}

    ModelCase Make() {
        ModelCase made;
        ModelFields& fields = made.fields;
        fields = {.action = one(QStringList{u"0"_qs, u"1"_qs, u"1"_qs, u"2"_qs, u"3"_qs, u"3"_qs, u"3"_qs, QString()}),
                  .overwrite = one(QStringList{u"Y"_qs, u"N"_qs, u"N"_qs, u"n"_qs, QString()}),
                  .onlyNew = one(QStringList{u"Y"_qs, u"N"_qs, u"y"_qs, QString()}),
                  .subfolders = one(QStringList{u"Y"_qs, u"Y"_qs, u"Y"_qs, u"N"_qs, QString()}),
                  .extensions =
                      one(QStringList{QString(), QString(), QString(), u"txt"_qs, u"TXT;DOC"_qs, u" txt"_qs, u"doc;"_qs,
                                      u"\u00E4"_qs, u"ma\u00DF"_qs, u"xt"_qs, u"t/a"_qs, u"c/a"_qs}),
                  .alert = one(QStringList{u"Y"_qs, u"N"_qs, u"N"_qs}),
                  .answersYes = odds(2),
                  .isOtherDevice = odds(3)};
        m_isMove = fields.action == u"1";
        for (std::int64_t& time : m_times)
            time = one(times);
        for (std::string& name : m_names)
            name = one(names);
        ModelEntry& out = made.world.inside["out"];
        for (const char* name : {"0", "1", "2"})
            out.inside[name] = file();
        out.inside["d"].inside["a"] = file();
        out.inside["closed"] = {.mode = 0, .inside = {{"f", file()}}};
        fill(&made.world.inside["src"], &made.world.inside["dst"], {}, 0);
        return made;
    }

  private:
    using Kind = ModelEntry::Kind;

    std::uint64_t below(std::uint64_t end) { return m_random() % end; }
    bool odds(std::uint64_t against) { return below(against) == 0; }
    template <typename T, std::size_t N>
    T one(const std::array<T, N>& list) {
        return list[below(N)];
    }
    QString one(const QStringList& list) {
        return list[static_cast<qsizetype>(below(static_cast<std::uint64_t>(list.size())))];
    }

    ModelEntry file() {
        return {.kind = Kind::File,
                .bytes = std::to_string(below(1'000'000)),
                .time = one(m_times),
                .mode = one(std::array{0644U, 0644U, 0644U, 0600U, 0755U, 0444U, 0400U, 0200U})};
    }

    /// A link never leads to what the run may move or replace before it comes to the link: what is first is not said.
    ModelEntry entry(const std::string& side, const std::string& path, const std::string& name, int depth) {
        switch (below(depth < 3 ? 10 : 7)) {
        case 0:
            return {.kind = Kind::Link, .bytes = (side == "src" ? "dst" : "src") + path + '/' + name};
        case 1:
            if (side == "src" && !m_isMove)
                return {.kind = Kind::Link, .bytes = "src" + path + '/' + one(m_names)};
            [[fallthrough]];
        case 2:
            return odds(6) ? ModelEntry{.kind = Kind::Pipe}
                           : ModelEntry{.kind = Kind::Link,
                                        .bytes = one(std::array<std::string, 6>{"out/0", "out/1", "out/2", "out/d",
                                                                                "out/closed/f", "no"})};
        case 7:
        case 8:
        case 9: {
            ModelEntry made = emptyFolder();
            fill(side == "src" ? &made : nullptr, side == "src" ? nullptr : &made, path + '/' + name, depth + 1);
            return made;
        }
        default:
            return file();
        }
    }

    ModelEntry emptyFolder() { return {.mode = one(std::array{0755U, 0755U, 0755U, 0755U, 0755U, 0700U, 0555U})}; }

    /// Folders of the same path; null where one side has none.
    void fill(ModelEntry* source, ModelEntry* destination, const std::string& path, int depth) {
        for (auto count = below(depth == 0 ? 9 : 6); count > 0; --count) {
            const std::string name = one(m_names);
            const bool areTwo = source != nullptr && destination != nullptr;
            if (areTwo && depth < 3 && odds(4)) {
                source->inside[name] = emptyFolder();
                destination->inside[name] = emptyFolder();
                fill(&source->inside[name], &destination->inside[name], path + '/' + name, depth + 1);
                continue;
            }
            if (areTwo && odds(2)) {
                source->inside[name] = file();
                destination->inside[name] = file();
                continue;
            }
            if (source != nullptr && !odds(4))
                source->inside[name] = entry("src", path, name, depth);
            if (destination != nullptr && !odds(3))
                destination->inside[name] = entry("dst", path, name, depth);
        }
    }

    static constexpr std::int64_t start = 1'600'000'000'000'000'000;
    static constexpr std::array<std::int64_t, 14> times{start,
                                                        start,
                                                        start + 1,
                                                        start + 99,
                                                        start + 100,
                                                        start + 5'000,
                                                        start + 5'001'000,
                                                        start + 5'001'234,
                                                        start + 120'000'000,
                                                        start + 999'999'999,
                                                        start + 1'000'000'000,
                                                        start + 2'000'000'000,
                                                        -1'500'000'000,
                                                        -2'000'000'000};
    static inline const std::array<std::string, 13> names{"a",          "a",        "A",           "b.txt",     "B.TXT",
                                                          "ma\xC3\x9F", "\xC3\xA4", "\xC3\x84",    "a\xCC\x88", " x y ",
                                                          ".h.doc",     "d",        "\xFF\xFE.txt"};

    std::mt19937_64 m_random;
    bool m_isMove = false;
    std::array<std::int64_t, 4> m_times{};
    std::array<std::string, 6> m_names;
};

/// A tree and what else there is to know, one thing a line: to be read, and to be compared.
class ModelLines final {
  public:
    static QStringList Of(const ModelEntry& world) {
        QStringList lines;
        for (const auto& [name, entry] : world.inside)
            add(entry, name, lines);
        return lines;
    }
    static QStringList Of(const ModelCase& made) {
        const ModelFields& fields = made.fields;
        return Of(made.world)
               << u"action '%1', overwrite '%2', onlynew '%3', includesubdirs '%4', extensions '%5'"_qs.arg(
                      fields.action, fields.overwrite, fields.onlyNew, fields.subfolders, fields.extensions)
               << u"alert '%1', answer %2, other device %3"_qs.arg(fields.alert)
                      .arg(fields.answersYes)
                      .arg(fields.isOtherDevice);
    }
    static QString Name(const std::string& bytes) {
        return QString::fromLatin1(QByteArray::fromStdString(bytes).toPercentEncoding("/ "));
    }

  private:
    static void add(const ModelEntry& entry, const std::string& path, QStringList& lines) {
        const QString mode = QString::number(entry.mode, 8);
        if (entry.kind == ModelEntry::Kind::File)
            lines.append(u"%1  %2 %3 '%4'"_qs.arg(Name(path), mode).arg(entry.time).arg(Name(entry.bytes)));
        else if (entry.kind == ModelEntry::Kind::Folder)
            lines.append(u"%1/  %2"_qs.arg(Name(path), mode));
        else
            lines.append(Name(path) + u"  -> " + Name(entry.bytes)); // of a pipe: to nothing
        for (const auto& [name, inner] : entry.inside)
            add(inner, path + '/' + name, lines);
    }
};

/// Every way to make a case a little smaller. Some leave it as it was.
class SmallerCases final {
  public:
    explicit SmallerCases(const ModelCase& made) : m_made(made) {
        for (const auto field : {&ModelFields::action, &ModelFields::overwrite, &ModelFields::onlyNew,
                                 &ModelFields::subfolders, &ModelFields::extensions, &ModelFields::alert})
            add([field](ModelCase& next) { next.fields.*field = ModelFields().*field; });
        for (const auto flag : {&ModelFields::answersYes, &ModelFields::isOtherDevice})
            add([flag](ModelCase& next) { next.fields.*flag = false; });
        for (const auto& [top, entry] : made.world.inside)
            each(entry, [top = top](ModelCase& next) -> ModelEntry& { return next.world.inside.at(top); });
    }
    std::vector<ModelCase> all;

  private:
    using Find = std::function<ModelEntry&(ModelCase&)>;

    void add(const std::function<void(ModelCase&)>& change) {
        ModelCase next = m_made;
        change(next);
        all.push_back(std::move(next));
    }
    void each(const ModelEntry& entry, const Find& find) {
        for (const auto& [name, inner] : entry.inside)
            add([&find, name = name](ModelCase& next) { find(next).inside.erase(name); });
        add([&find](ModelCase& next) { find(next).time = 0; });
        if (entry.kind == ModelEntry::Kind::File || entry.kind == ModelEntry::Kind::Folder)
            add([&](ModelCase& next) { find(next).mode = entry.kind == ModelEntry::Kind::File ? 0644 : 0755; });
        for (const auto& [name, inner] : entry.inside)
            each(inner, [&find, name = name](ModelCase& next) -> ModelEntry& { return find(next).inside.at(name); });
    }

    const ModelCase& m_made;
};
