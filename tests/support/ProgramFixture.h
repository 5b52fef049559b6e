// A whole program on folders of its own: real files; the test steers everything else. The notice is accepted.
#pragma once

#include "Fakes.h"
#include "Program.h"
#include "ScratchFolder.h"

#include <QTest>

class ProgramFixture : public ScratchFolder {
  public:
    using Fields = QMap<QString, QString>;

    ProgramFixture() {
        qputenv("TZ", "UTC");
        services.places.programFolder = services.places.dataFolder = Native();
        services.places.userDataFolder = Native(u"data"_qs);
        services.places.isInstalled = false; // whatever this build is for
        SetOption("Accepted", u"Yes"_qs);
    }

    QString DefaultFile() const { return Path(u"Kalvenor.kvd"_qs); }
    void SetOption(const char* key, const QString& value) {
        settings->values[u"Kalvenor/Options/"_qs + QLatin1String(key)] = value;
    }
    /// An existing folder.
    QString Folder(const QString& name) const {
        QDir().mkpath(Path(name));
        return Path(name);
    }

    void Write(const QString& relative, const QByteArray& bytes, qint64 modifiedSeconds = 1'700'000'000) const {
        QVERIFY(ScratchFolder::Write(relative, bytes));
        QFile file(Path(relative));
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::fromSecsSinceEpoch(modifiedSeconds), QFileDevice::FileModificationTime);
    }

    /// The element of an activity with sensible fields; `fields` replaces or adds some.
    QString Activity(const QString& name, const Fields& fields = {}) const {
        Fields all{
            {u"sourcedir"_qs, Path("src")}, {u"targetdir"_qs, Path("dst")},  {u"type"_qs, u"0"_qs},
            {u"intervall"_qs, u"10"_qs},    {u"action"_qs, u"0"_qs},         {u"overwrite"_qs, u"Y"_qs},
            {u"onlynew"_qs, u"Y"_qs},       {u"includesubdirs"_qs, u"Y"_qs}, {u"logfile"_qs, Path(name + u".log"_qs)},
            {u"activ"_qs, u"1"_qs},         {u"exceedtime"_qs, QString()}};
        all.insert(fields);
        QString xml = QStringLiteral("  <") + name + QStringLiteral(">\n");
        for (auto field = all.begin(); field != all.end(); ++field)
            xml += QStringLiteral("    <%1>%2</%1>\n").arg(field.key(), field.value().toHtmlEscaped());
        return xml + QStringLiteral("  </") + name + QStringLiteral(">\n");
    }
    /// One that copies from a folder of its own, NAME-in, to NAME-out every other second.
    QString Copying(const QString& name, bool active = true) const {
        return Activity(name, {{u"sourcedir"_qs, Folder(name + u"-in"_qs)},
                               {u"targetdir"_qs, Folder(name + u"-out"_qs)},
                               {u"intervall"_qs, u"2"_qs},
                               {u"logfile"_qs, QString()},
                               {u"activ"_qs, active ? u"1"_qs : u"0"_qs}});
    }
    void WriteActivities(const QString& path, const QString& activities) const {
        const QString xml =
            u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<items>\n"_qs + activities + u"</items>\n"_qs;
        if (!ScratchFolder::Write(path, xml.toLatin1()))
            qFatal("no activity file");
    }
    /// The default file with a copying activity of each name, each with these files to copy.
    void Fill(const QStringList& activityNames, const QStringList& files = {u"f"_qs}) const {
        QString activities;
        for (const QString& name : activityNames) {
            activities += Copying(name);
            for (const QString& file : files)
                Write(name + u"-in/"_qs + file, "content of " + file.toLatin1());
        }
        WriteActivities(DefaultFile(), activities);
    }

    /// Adds one to the file that Start writes.
    void Add(const QString& name, const Fields& fields = {}) { m_xml += Activity(name, fields); }
    /// With fields as in "type=4 daily=1".
    void Add(const QString& name, const QString& fields) {
        Fields all;
        for (const QString& field : fields.split(u' '))
            all[field.section(u'=', 0, 0)] = field.section(u'=', 1);
        Add(name, all);
    }

    /// The program before its start.
    Program& Build() {
        program = std::make_unique<Program>(services, prompter, keys, texts);
        return *program;
    }

    /// Writes the activity file, builds the program and fills its list.
    Program& Start() {
        Folder(u"src"_qs);
        Folder(u"dst"_qs);
        WriteActivities(DefaultFile(), m_xml);
        Build();
        program->Options().LoggingPath = Path(QStringLiteral("app.log"));
        program->List().Refill();
        program->AllowTicks();
        return *program;
    }

    Program& StartMonitoring() {
        Start().Monitoring().ToggleMonitoring();
        return *program;
    }

    /// Lets the time pass step by step, polling every timer.
    void Pass(std::chrono::seconds span, std::chrono::seconds step = std::chrono::seconds(1)) {
        MonitoringTimers& timers = program->Timers();
        for (std::chrono::seconds passed{0}; passed < span; passed += step) {
            clock->Advance(step);
            for (TimerEx* timer : {&timers.tmrMonitoring, &timers.tmrMinutes, &timers.tmrHours, &timers.tmrTime,
                                   &timers.tmrDate, &timers.tmrChanges})
                timer->Poll();
            for (TimerEx* timer : timers.Even())
                timer->Poll();
            QCoreApplication::sendPostedEvents(); // what comes after the tick
        }
    }

    int Runs(const QString& name) const { return program->List().Text(name, ActivityList::Count).toInt(); }
    QString Status(const QString& name) const { return program->List().Text(name, ActivityList::Status); }

    /// The texts of an activity's log, without date and prefix.
    QStringList Log(const QString& name) const {
        QStringList lines;
        for (QString line : QString::fromLocal8Bit(Read(name + QStringLiteral(".log"))).split(QStringLiteral("\r\n"))) {
            line.remove(0, line.indexOf(QStringLiteral("] ")) + 2);
            const QString prefix = QStringLiteral("Activity '") + name + QStringLiteral("' - ");
            if (line.startsWith(prefix))
                lines.append(QDir::fromNativeSeparators(line.mid(prefix.size()).replace(Path(), u"~"_qs)));
        }
        return lines;
    }

    PlatformServices services = MakePlatformServices();
    FakeClock* const clock = putInto<FakeClock>(services.clock);
    FakeEventPump* const pump = putInto<FakeEventPump>(services.eventPump);
    MemorySettings* const settings = putInto<MemorySettings>(services.settings);
    FakeLocks* const locks = putInto<FakeLocks>(services.locks);
    FakeProcess* const process = putInto<FakeProcess>(services.process);
    FakePowerControl* const power = putInto<FakePowerControl>(services.power);
    FakeNameService* const names = putInto<FakeNameService>(services.nameService);
    FakeFolderWatches* const watches = putInto<FakeFolderWatches>(services.folderWatches);
    FakeNotifier* const notifier = putInto<FakeNotifier>(services.notifier);
    FakePasswordStore* const passwords = putInto<FakePasswordStore>(services.passwords);
    FakeAutostart* const autostart = putInto<FakeAutostart>(services.autostart);
    FakeServiceManager* const serviceManager = putInto<FakeServiceManager>(services.serviceManager);
    FakeSystemClock* const systemClock = putInto<FakeSystemClock>(services.systemClock);
    FakeDialUp* const dialUp = putInto<FakeDialUp>(services.dialUp);
    FakeFileTypes* const fileTypes = putInto<FakeFileTypes>(services.fileTypes);
    FakePrompter prompter;
    FakeKeyState keys;
    StringTable texts{Language::English};
    std::unique_ptr<Program> program;

  private:
    template <typename Fake, typename Service>
    static Fake* putInto(std::unique_ptr<Service>& service) {
        service = std::make_unique<Fake>();
        return static_cast<Fake*>(service.get());
    }

    QString m_xml;
};
