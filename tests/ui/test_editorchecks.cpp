// What the activity editor objects to: one table of edited values, without any window.
#include "EditorChecks.h"
#include "Fakes.h"
#include "ScratchStore.h"
#include "SystemWorld.h"
#include "clsGetSystemDirectoryPaths.h"
#include "modTriggerDate.h"

#include <QTest>

namespace {

using Changes = QMap<ActivityField, QString>;
using F = ActivityField;

const QString noDate = QStringLiteral("  .  .    ");
const QString noTime = QStringLiteral("  :  ");

struct Row {
    const char* name;
    QStringList problems{}; ///< the controls objected to, each question waved through
    Changes changes{};
    QString date = noDate;     ///< as shown
    QString dateTime = noTime; ///< beside the date
    QString time = noTime;     ///< of day
    QString activity = QStringLiteral("Backup");
};

QString q(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace

class TestEditorChecks : public QObject {
    Q_OBJECT

    ScratchStore m_store;
    FakeClock m_clock;
    QLocale m_locale{QLocale::German, QLocale::Germany};
    clsGetSystemDirectoryPaths m_system;
    bool m_isLink = false; ///< "link" leads to "system"
    std::function<bool(const QString&)> m_isUsableName = [](const QString& name) {
        return !name.contains(u' ') && !name.contains(u'€');
    };
    std::function<bool(const QString&)> m_isOwnFile = [this](const QString& path) {
        return path == m_store.Path("own");
    };

    EditorChecks::Input valid() const {
        EditorChecks::Input input;
        input.name = q("Backup");
        input.record.SetText(F::SourceDir, m_store.Path("cwd"));
        input.record.SetText(F::TargetDir, m_store.Path("cwd"));
        input.record.SetText(F::Type, q("0"));
        input.record.SetText(F::Action, q("0"));
        input.record.SetText(F::AllFiles, q("1"));
        return input;
    }

    std::vector<EditorChecks::Problem> problems(const EditorChecks::Input& input) {
        std::vector<EditorChecks::Problem> found;
        const EditorChecks::Environment environment{m_store.files, m_system,       m_clock,    m_locale,
                                                    m_store.texts, m_isUsableName, m_isOwnFile};
        const bool passed = EditorChecks::Pass(input, environment, [&](const EditorChecks::Problem& problem) {
            found.push_back(problem);
            return problem.message.buttons == MessageButtons::YesNo;
        });
        if (passed != (found.empty() || found.back().message.buttons == MessageButtons::YesNo))
            qFatal("the walk went on after a refusal, or stopped for none");
        return found;
    }

    /// It is 10 May 2026, 14:30.
    std::vector<Row> rows() const {
        const QString missing = m_store.Path("missing");
        const QString windows = m_store.Path("windows");
        const QString cwd = m_store.Path("cwd");
        const QStringList source{q("txtSourceDir")};
        const QStringList target{q("txtTargetDir")};
        const auto paths = [](const QString& from, const QString& to, const char* action = "0") {
            return Changes{{F::SourceDir, from}, {F::TargetDir, to}, {F::Action, q(action)}};
        };
        const QStringList name{q("txtName")};
        const auto only = [](const char* extensions) {
            return Changes{{F::AllFiles, q("0")}, {F::Extensions, q(extensions)}};
        };
        const Changes atDate{{F::Type, q("3")}};
        const Changes atTime{{F::Type, q("4")}};
        const Changes daily{{F::Type, q("4")}, {F::Daily, q("1")}};
        const QString today = q("10.05.2026");
        const QStringList dateTime{q("txtDateTime")};
        const QStringList time{q("txtTime")};
        const QString sender = q("cboSender");
        const auto mail = [](const char* from, const char* recipient, const char* subject) {
            return Changes{
                {F::SendMail, q("1")}, {F::Sender, q(from)}, {F::Recipient, q(recipient)}, {F::Subject, q(subject)}};
        };
        return {
            {"nothing to object to"},
            {"program is missing", {q("txtExecutable")}, {{F::Executable, missing}}},
            {"program is a folder", {q("txtExecutable")}, {{F::Executable, cwd}}},
            {"log file is missing", {q("txtLogFile")}, {{F::LogFile, missing}}},
            {"log file is a folder", {q("txtLogFile")}, {{F::LogFile, cwd}}},
            {"log file ends in a blank", {q("txtLogFile")}, {{F::LogFile, m_store.Path("own ")}}},
            {"log file is the program's own", {q("txtLogFile")}, {{F::LogFile, m_store.Path("own")}}},
            {"source is missing", source, paths(missing, cwd)},
            {"destination is empty", target, paths(cwd, {})},
            {"no action needs none", {}, paths(cwd, {}, "2")},
            {"both protected", source + target, paths(windows + u'/', m_store.Path(m_isLink ? "link" : "system"))},
            {"the root comes last", target + source, paths(m_store.Path("cwd/.."), windows)},
            {"no destination to protect", source, paths(windows, {}, "2")},
            {"a digit in front", name, {}, noDate, noTime, noTime, q("1abc")},
            {"no name", name, {}, noDate, noTime, noTime, QString()},
            {"a name that cannot be stored", name, {}, noDate, noTime, noTime, q("My Backup")},
            {"no types", {q("txtExtensions")}, only("")},
            {"good types", {}, only("exe;zip")},
            {"partial time of day, any schedule", time, {}, noDate, noTime, q("1 :30")},
            {"yesterday", {q("txtDate")}, atDate, q("09.05.2026"), q("15:00")},
            {"today, a minute ago", dateTime, atDate, today, q("14:29")},
            {"today, this minute", {}, atDate, today, q("14:30")},
            {"tomorrow, earlier", {}, atDate, q("11.05.2026"), q("00:00")},
            {"today, no time", dateTime, atDate, today},
            {"time of day is over", time, atTime, noDate, noTime, q("14:29")},
            {"but comes again tomorrow", {}, daily, noDate, noTime, q("14:29")},
            {"mail is off", {}, {{F::Sender, q("nobody")}}},
            {"no sender", {sender}, mail("", "", "")},
            {"no recipient", {q("cboRecipient")}, mail("a@b.de", " ", "")},
            {"no subject, bad sender", {q("txtSubject"), sender}, mail("a", "b", "")},
            {"all is well", {}, mail("a@b.de", "c@d.com", "S")},
        };
    }

  private Q_SLOTS:
    void initTestCase() {
        for (const char* folder : {"windows/below", "system"})
            QDir().mkpath(m_store.Path(folder));
        QVERIFY(m_store.Write(q("own"), ""));
        m_isLink = SystemWorld::Link(m_store.Native(q("system")), m_store.Native(q("link")));
        m_system = {m_store.Native(q("windows")), m_store.Native(q("system")), m_store.Native()};
        const QDateTime now(QDate(2026, 5, 10), QTime(14, 30, 59));
        m_clock.now = std::chrono::system_clock::from_time_t(now.toSecsSinceEpoch());
    }

    void objections() {
        for (const Row& row : rows()) {
            EditorChecks::Input input = valid();
            input.name = row.activity;
            for (auto change = row.changes.begin(); change != row.changes.end(); ++change)
                input.record.SetText(change.key(), change.value());
            input.shownDate = row.date;
            input.shownDateTime = row.dateTime;
            input.shownTime = row.time;
            QStringList found{q(row.name)};
            for (const EditorChecks::Problem& problem : problems(input))
                found.append(q(problem.control));
            QCOMPARE(found.join(u'|'), (QStringList{q(row.name)} + row.problems).join(u'|'));
        }
    }

    void datesAreStoredAsTheSchedulersReadThem() {
        const QDate date(2026, 3, 14);
        for (const QLocale& locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory))
            QVERIFY2(modTriggerDate::Read(date.toString(modTriggerDate::Format(locale)), locale) == date,
                     qPrintable(locale.name()));
    }
};

QTEST_GUILESS_MAIN(TestEditorChecks)
#include "test_editorchecks.moc"
