// The command kalvenor-run: runs activities of one file once, now, or says what that would do, and returns an exit
// code. It only reads the activity file and writes nothing but what the activities themselves write.
#pragma once

#include "EngineLock.h"
#include "RunFacts.h"
#include <QStringList>
#include <iosfwd>

class HeadlessLog;
class QJsonArray;
class Program;

class RunCommand final {
  public:
    struct Request {
        QString file;      ///< path of the activity file
        QStringList names; ///< activities to run, in this order; empty = every active one
        NewDrive newDrive = NewDrive::Hold;
        bool isPreview = false; ///< says what would be done, and does nothing
        bool isUndo = false;    ///< brings back what their last runs have deleted or replaced; needs names
        QString run = {};       ///< the run to undo, by the name of its folder in the trash; empty = the last
        bool asJson = false;    ///< prints how it went or what would be done, and no log lines
    };
    enum ExitCode {
        Ran = 0,               ///< every activity ran, or would run, without a failure
        SomethingFailed = 1,   ///< a directory was missing, a file failed, or a run was held or ended early
        Unusable = 2,          ///< wrong usage, unknown name, or a file that cannot be read
        NoticeNotAccepted = 3, ///< the notice of possible data loss is not accepted
        Refused = 4,           ///< another process works on this file, or that cannot be ruled out
    };

    /// Log lines of the activities go to `output`, everything else to `log`.
    RunCommand(Program& program, std::ostream& output, HeadlessLog& log);
    ~RunCommand();

    [[nodiscard]] ExitCode Execute(const Request& request);

  private:
    [[nodiscard]] bool open(const QString& file);
    [[nodiscard]] bool choose(const QStringList& wanted, QStringList& names);
    [[nodiscard]] ExitCode runAll(const QStringList& names, NewDrive newDrive);
    [[nodiscard]] ExitCode previewAll(const QStringList& names);
    [[nodiscard]] ExitCode undoAll(const QStringList& names, const QString& run);
    [[nodiscard]] bool undo(const QString& name, const QString& run);
    void print(const QJsonArray& all);
    void complain(const QString& text);

    Program& m_program;
    std::ostream& m_output;
    HeadlessLog& m_log;
    EngineLock::Token m_lock;
    bool m_asJson = false;
};
