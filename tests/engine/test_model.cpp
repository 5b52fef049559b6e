// The engine against the rules written down a second time, on random trees of a real disk.
#include "AsNobody.h"
#include "ModelCase.h"
#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "modNativePath.h"

#include <QStorageInfo>
#include <fstream>

namespace {
const QString A = u"A"_qs;

/// Puts a tree of SyncModel on a real disk and reads it back. Throws where the disk refuses.
class ModelDisk final {
  public:
    /// Empty folders. The source is made in `far` when the run says so, all else in `near`.
    ModelDisk(const QString& place, const QString& other)
        : limits{.hasTwoDevices = QStorageInfo(place).rootPath() != QStorageInfo(other).rootPath(),
                 .hasUnixEntries = SystemWorld::CanMake("link")},
          m_near(place.toStdU16String()), m_far(other.toStdU16String()) {}

    void Make(const ModelCase& made) {
        m_source = made.run.isOtherDevice ? m_far : m_near;
        for (const auto& [name, entry] : made.world.inside)
            make(Real(name), entry);
    }

    /// Takes the world off the disk.
    ModelEntry Read() const {
        ModelEntry world;
        for (const char* top : {"src", "dst", "out"}) {
            world.inside[top] = read(Real(top));
            fs::remove_all(Real(top));
        }
        return world;
    }

    /// A path of the world as the system knows it.
    fs::path Real(const std::string& path) const {
        return ((path.starts_with("src") ? m_source : m_near) / pathOf(path)).make_preferred();
    }

    const ModelLimits limits;

  private:
    using Kind = ModelEntry::Kind;

    /// UTF-8 where the system's names are text, else any bytes.
    static fs::path pathOf(const std::string& text) { return std::u8string(text.begin(), text.end()); }
    static std::string textOf(const fs::path& path) {
        const std::u8string text = path.generic_u8string();
        return {text.begin(), text.end()};
    }

    void make(const fs::path& path, const ModelEntry& entry) const {
        if (entry.kind == Kind::Link)
            return fs::create_symlink(Real(entry.bytes), path);
        if (entry.kind == Kind::Folder) {
            fs::create_directory(path);
            for (const auto& [name, inner] : entry.inside)
                make(path / pathOf(name), inner);
        } else if (entry.kind == Kind::Pipe) {
            SystemWorld::MakeFifo(path);
        } else if (entry.kind == Kind::File) {
            std::ofstream(path, std::ios::binary) << entry.bytes;
            SystemWorld::SetNanoseconds(path, entry.time);
        }
        fs::permissions(path, fs::perms(entry.mode));
    }

    ModelEntry read(const fs::path& path) const {
        const fs::file_status status = fs::symlink_status(path);
        if (status.type() == fs::file_type::fifo)
            return {.kind = Kind::Pipe};
        if (status.type() == fs::file_type::symlink) {
            const fs::path real = fs::read_symlink(path);
            const fs::path inSource = real.lexically_relative(m_source);
            const bool isInSource = textOf(inSource).starts_with("src");
            return {.kind = Kind::Link, .bytes = textOf(isInSource ? inSource : real.lexically_relative(m_near))};
        }
        ModelEntry entry{.mode = static_cast<unsigned>(status.permissions())};
        if (!limits.hasUnixEntries)
            entry.mode = status.type() == fs::file_type::directory ? 0755 : 0644;
        fs::permissions(path, fs::perms::owner_all); // else neither read nor removed
        if (status.type() == fs::file_type::directory) {
            fs::remove_all(path / ".kalvenor-trash");
            for (const auto& inner : fs::directory_iterator(path))
                entry.inside[textOf(inner.path().filename())] = read(inner.path());
            return entry;
        }
        entry.kind = Kind::File;
        entry.time = SystemWorld::Nanoseconds(path);
        std::ifstream file(path, std::ios::binary);
        entry.bytes.assign(std::istreambuf_iterator<char>(file), {});
        return entry;
    }

    const fs::path m_near;
    const fs::path m_far;
    fs::path m_source;
};

/// The program, and a disk for its trees: in memory where the system has one, the source now and then elsewhere.
class World final {
  public:
    World() {
        m_program.Add(A, {{u"extensions"_qs, QString()},
                          {u"alert"_qs, QString()},
                          {u"logfile"_qs, QString()},
                          {u"keepdays"_qs, QString()}});
        m_program.Start().OnLogLine([this](const QString& text, bool) {
            const QString start = m_program.texts[Text::TransferFrom];
            const qsizetype from = text.indexOf(start) + start.size();
            if (from >= start.size())
                m_failed.append(text.mid(from, text.lastIndexOf(u"' failed") - from));
        });
    }

    ModelCase Random(quint64 seed) const { return RandomCase(seed, m_disk.limits).Make(); }

    /// Whether both did the same. What they did is kept for the report.
    bool Agree(const ModelCase& made) {
        prepare(made);
        Program& program = *m_program.program;
        const RunPlan plan = made.run.isPreviewed ? program.Preview(A) : RunPlan();
        if (!m_failed.isEmpty() || !m_program.prompter.shown.empty())
            qFatal("the preview logs or asks");
        ApprovedPlan approved(plan);
        const RunOutcome run = program.RunNow(A, NewDrive::Hold, made.run.isPreviewed ? &approved : nullptr);
        const auto shown = static_cast<int>(m_program.prompter.shown.size());
        m_got = outcome(m_disk.Read(), m_failed, shown, run.interrupted, run.failures);
        const SyncModel model(made.world, made.run);
        QStringList failed;
        for (const std::string& path : model.failed)
            failed.append(modNativePath::ToText(m_disk.Real(path)));
        m_expected = outcome(model.world, failed, model.boxes, false, static_cast<int>(failed.size()));
        return m_got == m_expected && (!made.run.keeps || comesBack(made));
    }

    /// Leaves out what the two do not need to differ, and shows the rest.
    QString Report(ModelCase made) {
        RandomCase random(0, m_disk.limits);
        for (int attempt = 0; attempt < 2000; ++attempt) {
            ModelCase smaller = made;
            random.Reduce(smaller);
            if (!Agree(smaller))
                made = smaller;
        }
        Agree(made);
        return (LinesOf(made.world) << m_program.program->Document().ReadNodeXML(u"/items/A"_qs)
                                    << u"answer %1, other device %2, previewed %3, keeps %4"_qs.arg(made.run.answersYes)
                                           .arg(made.run.isOtherDevice)
                                           .arg(made.run.isPreviewed)
                                           .arg(made.run.keeps)
                                    << u"\nexpected:"_qs << m_expected << u"\ngot:"_qs << m_got)
            .join(u'\n');
    }

  private:
    void prepare(const ModelCase& made) {
        m_disk.Make(made);
        ProgramFixture::Fields fields = made.run.fields;
        fields[u"sourcedir"_qs] = modNativePath::ToText(m_disk.Real("src"));
        fields[u"targetdir"_qs] = modNativePath::ToText(m_disk.Real("dst"));
        fields[u"keepdays"_qs] = made.run.keeps ? u"30"_qs : u"0"_qs;
        for (auto field = fields.begin(); field != fields.end(); ++field)
            m_program.program->Document().WriteNode(u"/items/A/"_qs + field.key(), field.value());
        m_program.prompter.yes = made.run.answersYes;
        m_program.prompter.shown.clear();
        m_failed.clear();
    }

    /// Runs it once more and undoes that: whatever the destination held, it holds again.
    bool comesBack(const ModelCase& made) {
        prepare(made);
        Program& program = *m_program.program;
        std::ignore = program.RunNow(A);
        const fs::path destination = m_disk.Real("dst");
        QStringList notes;
        for (const KeptRun& run : program.KeptIn(destination))
            notes += program.Undo(destination, run).notes;
        const ModelEntry world = m_disk.Read();
        m_expected = QStringList{u"all of it after an undo"_qs} + LinesOf(made.world.inside.at("dst"));
        m_got = QStringList{u"after an undo"_qs} + LinesOf(world.inside.at("dst")) + notes;
        return notes.isEmpty() && holds(world.inside.at("dst"), made.world.inside.at("dst"));
    }

    static bool holds(const ModelEntry& now, const ModelEntry& before) {
        if (now.kind != before.kind || now.bytes != before.bytes || now.time != before.time || now.mode != before.mode)
            return false;
        return std::all_of(before.inside.begin(), before.inside.end(), [&now](const auto& entry) {
            const auto found = now.inside.find(entry.first);
            return found != now.inside.end() && holds(found->second, entry.second);
        });
    }

    static QStringList outcome(const ModelEntry& world, QStringList failed, int boxes, bool isInterrupted,
                               int failures) {
        failed.sort();
        return LinesOf(world)
               << u"failed: "_qs + failed.join(u" | ")
               << u"boxes: %1, interrupted: %2, failures: %3"_qs.arg(boxes).arg(isInterrupted).arg(failures);
    }

    ProgramFixture m_program;
    QTemporaryDir m_memory{modNativePath::ToText(SystemWorld::OtherDevice() / "kalvenor-XXXXXX")};
    ModelDisk m_disk{m_memory.path(), m_program.Folder(u"far"_qs)};
    QStringList m_failed;
    QStringList m_got;
    QStringList m_expected;
};
} // namespace

class TestModel final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    /// More pairs with KALVENOR_MODEL_PAIRS, others with KALVENOR_MODEL_SEED: the first pair is made of that seed, the
    /// next one of the next.
    void theEngineDoesAsTheModelSays() {
        const auto number = [](const char* name, quint64 usual) {
            return qEnvironmentVariableIsSet(name) ? qEnvironmentVariable(name).toULongLong() : usual;
        };
        const quint64 first = number("KALVENOR_MODEL_SEED", 1);
        const quint64 pairs = number("KALVENOR_MODEL_PAIRS", SystemWorld::IsEmulated() ? 200 : 1000); // for it is slow
        const AsNobody nobodyInParticular;
        World world;
        for (quint64 seed = first; seed < first + pairs; ++seed)
            if (const ModelCase made = world.Random(seed); !world.Agree(made))
                QFAIL(qPrintable(u"seed %1\n"_qs.arg(seed) + world.Report(made)));
    }
};

QTEST_GUILESS_MAIN(TestModel)
#include "test_model.moc"
