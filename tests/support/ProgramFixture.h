// A whole program on folders of its own: real files, everything else steered by the test.
#pragma once

#include "FakeWorld.h"

#include <QTest>

class ProgramFixture : public FakeWorld {
  public:
    using Fields = QMap<QString, QString>;

    void Write(const QString& relative, const QByteArray& bytes, qint64 modifiedSeconds = 1'700'000'000) const {
        QVERIFY(ScratchFolder::Write(relative, bytes));
        QFile file(Path(relative));
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::fromSecsSinceEpoch(modifiedSeconds), QFileDevice::FileModificationTime);
    }

    /// An activity with sensible fields; `fields` replaces or adds some.
    void Add(const QString& name, const Fields& fields = {}) {
        Fields all{{QStringLiteral("sourcedir"), Path(QStringLiteral("src"))},
                   {QStringLiteral("targetdir"), Path(QStringLiteral("dst"))},
                   {QStringLiteral("type"), QStringLiteral("0")},
                   {QStringLiteral("intervall"), QStringLiteral("10")},
                   {QStringLiteral("action"), QStringLiteral("0")},
                   {QStringLiteral("overwrite"), QStringLiteral("Y")},
                   {QStringLiteral("onlynew"), QStringLiteral("Y")},
                   {QStringLiteral("includesubdirs"), QStringLiteral("Y")},
                   {QStringLiteral("logfile"), Path(name + QStringLiteral(".log"))},
                   {QStringLiteral("activ"), QStringLiteral("1")},
                   {QStringLiteral("exceedtime"), QString()}};
        for (auto field = fields.begin(); field != fields.end(); ++field)
            all[field.key()] = field.value();
        m_xml += QStringLiteral("  <") + name + QStringLiteral(">\n");
        for (auto field = all.begin(); field != all.end(); ++field)
            m_xml += QStringLiteral("    <%1>%2</%1>\n").arg(field.key(), field.value().toHtmlEscaped());
        m_xml += QStringLiteral("  </") + name + QStringLiteral(">\n");
    }

    /// Writes the activity file, builds the program and fills its list.
    Program& Start() {
        QDir().mkpath(Path(QStringLiteral("src")));
        QDir().mkpath(Path(QStringLiteral("dst")));
        QFile file(Path(QStringLiteral("Kalvenor.kvd")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no activity file");
        file.write((QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<items>\n") + m_xml +
                    QStringLiteral("</items>\n"))
                       .toLatin1());
        file.close();
        program = std::make_unique<Program>(services, prompter, keys, texts);
        program->Options().LoggingPath = Path(QStringLiteral("app.log"));
        program->List().Refill();
        program->AllowTicks();
        return *program;
    }

    /// Lets the time pass second by second, polling every timer.
    void Pass(std::chrono::seconds span) {
        MonitoringTimers& timers = program->Timers();
        for (std::chrono::seconds passed{0}; passed < span; ++passed) {
            clock->Advance(std::chrono::seconds(1));
            for (TimerEx* timer :
                 {&timers.tmrMonitoring, &timers.tmrMinutes, &timers.tmrHours, &timers.tmrTime, &timers.tmrDate})
                timer->Poll();
            QCoreApplication::sendPostedEvents(); // what comes after the tick
        }
    }

    int Runs(const QString& name) const { return program->List().Text(name, ActivityList::Count).toInt(); }
    QString Status(const QString& name) const { return program->List().Text(name, ActivityList::Status); }

    /// The texts of an activity's log, without date and prefix.
    QStringList Log(const QString& name) const {
        QStringList lines;
        for (QString line : QString::fromUtf8(Read(name + QStringLiteral(".log"))).split(QStringLiteral("\r\n"))) {
            line.remove(0, line.indexOf(QStringLiteral("] ")) + 2);
            const QString prefix = QStringLiteral("Activity '") + name + QStringLiteral("' - ");
            if (line.startsWith(prefix))
                lines.append(line.mid(prefix.size()).replace(Path(), QStringLiteral("~")));
        }
        return lines;
    }

    std::unique_ptr<Program> program;

  private:
    QString m_xml;
};
