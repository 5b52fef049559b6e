// A whole program on temporary folders: real files, stand-ins for the user, the clock, the settings and the machine.
#pragma once

#include "FakeWorld.h"

class AppFixture : public FakeWorld {
  public:
    AppFixture() {
        services.places.programFolder = Folder(u"program"_qs).toStdString();
        AcceptNotice();
    }

    /// An existing folder below the temporary root.
    QString Folder(const QString& name) {
        QDir().mkpath(Path(name));
        return Path(name);
    }
    QString DefaultFile() { return Folder(u"program"_qs) + u"/Kalvenor.kvd"_qs; }
    void AcceptNotice() { settings->values[u"Kalvenor/Options/Accepted"_qs] = u"Yes"_qs; }
    void SetOption(const char* key, const QString& value) {
        settings->values[u"Kalvenor/Options/"_qs + QLatin1String(key)] = value;
    }

    /// An activity that copies every second from folder NAME-in to NAME-out.
    QString Activity(const QString& name, bool active = true) {
        return u"<%1><sourcedir>%2</sourcedir><targetdir>%3</targetdir><type>0</type><intervall>2</intervall>"
               "<action>0</action><overwrite>Y</overwrite><onlynew>N</onlynew><alert>N</alert>"
               "<includesubdirs>Y</includesubdirs><executeable/><allfiles>1</allfiles><extensions/><logfile/>"
               "<comment/><activ>%4</activ><sendmail>0</sendmail><exceedtime/><runningmode>0</runningmode></%1>"_qs.arg(
                   name, Folder(name + u"-in"_qs), Folder(name + u"-out"_qs), active ? u"1"_qs : u"0"_qs);
    }
    static void Write(const QString& path, const QString& content) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content.toLatin1()) != content.size())
            qFatal("cannot write the test's file");
    }
    /// Activities of these names, each with these files to copy.
    void Fill(const QStringList& activityNames, const QStringList& files = {u"f"_qs}) {
        QStringList activities;
        for (const QString& name : activityNames) {
            activities.append(Activity(name));
            for (const QString& file : files)
                Write(Folder(name + u"-in"_qs) + u'/' + file, u"content of "_qs + file);
        }
        WriteActivities(activities);
    }
    void WriteActivities(const QStringList& activities) {
        Write(DefaultFile(), u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items>"_qs + activities.join(QString()) +
                                 u"</items>"_qs);
    }
};
