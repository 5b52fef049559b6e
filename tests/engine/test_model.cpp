// The engine against the rules written down a second time, on random trees of a real disk.
#include "AsNobody.h"
#include "ModelCase.h"
#include "ModelDisk.h"
#include "ProgramFixture.h"
#include "modNativePath.h"

namespace {
const QString A = u"A"_qs;

/// The program, and a disk for its trees: in memory where the system has one, the source now and then elsewhere.
class World final {
  public:
    World() {
        m_program.Add(A, {{u"extensions"_qs, QString()}, {u"alert"_qs, QString()}, {u"logfile"_qs, QString()}});
        m_program.Start().OnLogLine([this](const QString& text, bool) {
            const QString start = m_program.texts[Text::TransferFrom];
            const qsizetype from = text.indexOf(start) + start.size();
            if (from >= start.size())
                m_failed.append(text.mid(from, text.lastIndexOf(u"' failed") - from));
        });
    }

    QStringList AsModel(const ModelCase& made) const {
        ModelFields fields = made.fields;
        fields.isOtherDevice = fields.isOtherDevice && m_disk.HasTwoDevices();
        const SyncModel model(made.world, fields);
        QStringList failed;
        for (const std::string& path : model.failed)
            failed.append(modNativePath::ToText(m_disk.Real(path)));
        return outcome(model.world, failed, model.boxes);
    }

    QStringList AsEngine(const ModelCase& made) {
        const auto set = [this](ActivityField field, const QString& value) {
            m_program.program->File().Write(A, field, value);
        };
        m_disk.Make(made.world, made.fields.isOtherDevice);
        set(ActivityField::SourceDir, modNativePath::ToText(m_disk.Real("src")));
        set(ActivityField::TargetDir, modNativePath::ToText(m_disk.Real("dst")));
        set(ActivityField::Action, made.fields.action);
        set(ActivityField::Overwrite, made.fields.overwrite);
        set(ActivityField::OnlyNew, made.fields.onlyNew);
        set(ActivityField::IncludeSubdirs, made.fields.subfolders);
        set(ActivityField::Extensions, made.fields.extensions);
        set(ActivityField::Alert, made.fields.alert);
        m_program.prompter.yes = made.fields.answersYes;
        m_program.prompter.shown.clear();
        m_failed.clear();
        const RunOutcome run = m_program.program->RunNow(A);
        QStringList lines = outcome(m_disk.Read(), m_failed, static_cast<int>(m_program.prompter.shown.size()));
        if (run.interrupted || run.failures != m_failed.size())
            lines.append(u"interrupted: %1, failures: %2"_qs.arg(run.interrupted).arg(run.failures));
        return lines;
    }

    /// Leaves out, one by one, what is not needed for the two to differ.
    ModelCase Shrink(ModelCase made) {
        const SmallerCases smaller(made);
        for (const ModelCase& next : smaller.all)
            if (ModelLines::Of(next) != ModelLines::Of(made) && AsModel(next) != AsEngine(next))
                return Shrink(next);
        return made;
    }

    QString Report(const ModelCase& made) {
        return u"\n%1\n\nexpected:\n%2\n\ngot:\n%3"_qs.arg(ModelLines::Of(made).join(u'\n'), AsModel(made).join(u'\n'),
                                                           AsEngine(made).join(u'\n'));
    }

  private:
    static QStringList outcome(const ModelEntry& world, QStringList failed, int boxes) {
        failed.sort();
        return ModelLines::Of(world) << u"failed: "_qs + failed.join(u" | ") << u"boxes: %1"_qs.arg(boxes);
    }

    ProgramFixture m_program;
    QTemporaryDir m_memory{QDir(u"/dev/shm"_qs).exists() ? u"/dev/shm/kalvenor-XXXXXX"_qs : QString()};
    ModelDisk m_disk{m_memory.path().toStdString(), m_program.Folder(u"far"_qs).toStdString()};
    QStringList m_failed;
};
} // namespace

class TestModel final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    /// More pairs with KALVENOR_MODEL_PAIRS, others with KALVENOR_MODEL_SEED: the first pair is made of that seed, the
    /// next one of the next.
    void theEngineDoesAsTheModelSays() {
        const auto number = [](const char* name, quint64 usual) {
            return qEnvironmentVariableIsSet(name) ? qEnvironmentVariable(name).toULongLong() : usual;
        };
        const quint64 first = number("KALVENOR_MODEL_SEED", 1);
        const quint64 pairs = number("KALVENOR_MODEL_PAIRS", 1000);
        const AsNobody nobodyInParticular;
        World world;
        for (quint64 seed = first; seed < first + pairs; ++seed) {
            const ModelCase made = RandomCase(seed).Make();
            if (world.AsModel(made) != world.AsEngine(made))
                QFAIL(qPrintable(u"seed %1"_qs.arg(seed) + world.Report(world.Shrink(made))));
        }
    }
};

QTEST_GUILESS_MAIN(TestModel)
#include "test_model.moc"
