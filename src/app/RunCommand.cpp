#include "RunCommand.h"

#include "HeadlessUser.h"
#include "PlanReport.h"
#include "Program.h"
#include "RunEndWaiter.h"
#include "modNativePath.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <ostream>

RunCommand::RunCommand(Program& program, std::ostream& output, HeadlessLog& log)
    : m_program(program), m_output(output), m_log(log) {
    m_program.OnLogLine([this](const QString& line, bool isLast) {
        if (m_asJson)
            return;
        m_output << line.toStdString() << '\n';
        if (isLast)
            m_output.flush();
    });
}

RunCommand::~RunCommand() {
    m_program.OnLogLine(nullptr);
}

void RunCommand::complain(const QString& text) {
    m_log.Line(HeadlessLog::Priority::Error, text);
}

RunCommand::ExitCode RunCommand::Execute(const Request& request) {
    if (!m_program.IsNoticeAccepted()) {
        m_log.NoticeNotAccepted(m_program.Texts());
        return NoticeNotAccepted;
    }
    const std::filesystem::path path = modNativePath::Absolute(request.file);
    if (path.empty() || !m_program.Services().ownFiles->Stamp(path)) {
        complain(m_program.Texts()[Text::FileUnreadable] + QLatin1Char(' ') + request.file);
        return Unusable;
    }
    m_program.File().SetCurrentPath(modNativePath::ToText(path));
    m_asJson = request.asJson;
    LockRefusal refusal{};
    if (!request.isPreview) // which keeps nobody from running it
        m_lock = m_program.Lock().Take(m_program.File().CurrentPath(), refusal);
    if (!request.isPreview && !m_lock) {
        complain(refusal == LockRefusal::HeldElsewhere ? m_program.Texts()[Text::RunRefused].arg(request.file)
                                                       : m_program.Texts()[Text::NoLockPossible]);
        return Refused;
    }
    QStringList names;
    if (!open(request.file) || !choose(request.names, names))
        return Unusable;
    names.removeDuplicates(); // given twice in the file or by the caller, it is one activity
    if (request.isUndo)
        return undoAll(names, request.run);
    return request.isPreview ? previewAll(names) : runAll(names, request.newDrive);
}

bool RunCommand::open(const QString& file) {
    if (!m_program.File().Load()) {
        complain(m_program.Texts()[Text::FileUnreadable] + QLatin1Char(' ') + file);
        return false;
    }
    m_program.Options().ReadRegistry();
    m_program.List().ShowLoaded(); // read once: a second read could fail and leave nothing to run
    return true;
}

bool RunCommand::choose(const QStringList& wanted, QStringList& names) {
    if (wanted.isEmpty()) {
        const QStringList known = m_program.File().Names();
        std::copy_if(known.begin(), known.end(), std::back_inserter(names), [this](const QString& name) {
            return m_program.File().Read(name, ActivityField::Active) == QLatin1String("1");
        });
        return true;
    }
    for (const QString& name : wanted) {
        // Not by the list of names: an element with a namespace prefix is listed and cannot run.
        if (!m_program.File().Has(name)) {
            complain(m_program.Texts()[Text::RunUnknownActivity].arg(m_program.File().CurrentPath(), name));
            return false;
        }
    }
    names = wanted;
    return true;
}

RunCommand::ExitCode RunCommand::runAll(const QStringList& names, NewDrive newDrive) {
    bool succeeded = true;
    QJsonArray results;
    for (const QString& name : names) {
        if (m_program.State().Closing())
            break;
        const RunIdentity run = RunIdentity::Of(m_program.File(), name);
        succeeded = m_program.RunNow(name, newDrive).Succeeded() && succeeded;
        if (const std::optional<RunResult> result = m_program.Results().Of(run))
            results.append(result->ToJson(run));
    }
    RunEndWaiter(m_program).WaitOut(); // for the mails
    print(results);
    return succeeded && !m_program.State().Closing() ? Ran : SomethingFailed;
}

RunCommand::ExitCode RunCommand::previewAll(const QStringList& names) {
    const StringTable& texts = m_program.Texts();
    bool succeeded = true;
    QJsonArray plans;
    for (const QString& name : names) {
        const RunPlan plan = m_program.Preview(name);
        succeeded = succeeded && plan.IsComplete() && plan.outcome.failures == 0;
        if (m_asJson) {
            plans.append(PlanReport::Json(plan));
            continue;
        }
        for (const PlannedAct& act : plan.acts)
            m_output << PlanReport::Line(act, texts).toStdString() << '\n';
        if (!plan.outcome.reason.isEmpty() && plan.outcome.failures == 0)
            complain(plan.outcome.reason);
        m_output << PlanReport::Summary(plan, texts).toStdString() << '\n';
    }
    print(plans);
    return succeeded && !m_program.State().Closing() ? Ran : SomethingFailed;
}

RunCommand::ExitCode RunCommand::undoAll(const QStringList& names, const QString& run) {
    bool succeeded = true;
    for (const QString& name : names)
        succeeded = undo(name, run) && succeeded;
    return succeeded && !m_program.State().Closing() ? Ran : SomethingFailed;
}

bool RunCommand::undo(const QString& name, const QString& run) {
    const StringTable& texts = m_program.Texts();
    const QString directory = m_program.File().Read(name, ActivityField::TargetDir);
    const std::filesystem::path destination = modNativePath::Absolute(directory);
    const std::vector<KeptRun> runs = m_program.KeptIn(destination);
    const auto isMeant = [&](const KeptRun& one) {
        return one.activity == name && one.activityFile == m_program.File().CurrentPath() &&
               (run.isEmpty() ? !one.isUndo : modNativePath::ToText(one.name) == run);
    };
    const auto found = std::find_if(runs.begin(), runs.end(), isMeant);
    if (found == runs.end()) {
        complain(texts[Text::NothingKept].arg(directory, name));
        return false;
    }
    const UndoOutcome outcome = m_program.Undo(destination, *found); // its lines are printed as they are written
    m_output << texts[Text::UndoSummary].arg(outcome.restored).arg(outcome.left).toStdString() << '\n';
    return outcome.Succeeded();
}

void RunCommand::print(const QJsonArray& all) {
    if (m_asJson)
        m_output << QJsonDocument(all).toJson().toStdString();
    m_output.flush();
}
