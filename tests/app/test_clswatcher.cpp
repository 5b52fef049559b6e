// The general options against a store that remembers the order of what was asked.
#include "Fakes.h"
#include "clsWatcher.h"

#include <QTest>

namespace {

const QStringList keys{QStringLiteral("ActivateWhileWindowsStarting"),
                       QStringLiteral("ToTray"),
                       QStringLiteral("LoggingPath"),
                       QStringLiteral("Shutdown"),
                       QStringLiteral("StartUp"),
                       QStringLiteral("LogfileRefresh"),
                       QStringLiteral("ExitAlert"),
                       QStringLiteral("StopIfFolderNotExist")};

class RecordingSettings final : public SettingsStore {
  public:
    std::optional<QString> Read(const QString& application, const QString& section, const QString& key) const override {
        asked.append(application + u'/' + section + u'/' + key);
        return store.Read(application, section, key);
    }
    std::error_code Write(const QString& application, const QString& section, const QString& key,
                          const QString& value) override {
        asked.append(application + u'/' + section + u'/' + key);
        if (key == failing)
            return std::make_error_code(std::errc::no_space_on_device);
        return store.Write(application, section, key, value);
    }
    void Put(const QString& key, const QString& value) {
        store.values[QStringLiteral("Kalvenor/Options/") + key] = value;
    }
    [[nodiscard]] QString Stored(const QString& key) const {
        return store.values.value(QStringLiteral("Kalvenor/Options/") + key);
    }

    MemorySettings store;
    QString failing;
    mutable QStringList asked;
};

QList<int> switches(const clsWatcher& options) {
    return {options.ActivateWhileWindowsStarting,
            options.ToTray,
            options.Shutdown,
            options.StartUp,
            options.LogfileRefresh,
            options.ExitAlert,
            options.StopIfFolderNotExist};
}

} // namespace

class WatcherTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void FreshProfile() {
        RecordingSettings settings;
        clsWatcher options(settings);
        options.ExitAlert = 0;
        options.LoggingPath = QStringLiteral("left over");
        options.ReadRegistry();
        QCOMPARE(switches(options), (QList<int>{0, 0, 0, 0, 0, 1, 1}));
        QCOMPARE(options.LoggingPath, QString());
        QVERIFY2(settings.store.values.isEmpty(), "reading must not make the store");
    }

    void Values_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("plain");  // what a switch that is off by default becomes
        QTest::addColumn<int>("safety"); // what a safety switch becomes
        QTest::newRow("on") << "1" << 1 << 1;
        QTest::newRow("off") << "0" << 0 << 0;
        QTest::newRow("kept, though not on") << "2" << 2 << 2;
        QTest::newRow("largest") << "255" << 255 << 255;
        QTest::newRow("blanks around") << " 1 " << 1 << 1;
        QTest::newRow("empty") << "" << 0 << 1;
        QTest::newRow("too large") << "256" << 0 << 1;
        QTest::newRow("wraps in 32 bits") << "4294967296" << 0 << 1;
        QTest::newRow("negative") << "-1" << 0 << 1;
        QTest::newRow("word") << "Yes" << 0 << 1;
        QTest::newRow("fraction") << "0.5" << 0 << 1;
        QTest::newRow("number with a tail") << "0x" << 0 << 1;
    }
    void Values() {
        QFETCH(QString, stored);
        QFETCH(int, plain);
        QFETCH(int, safety);
        RecordingSettings settings;
        for (const QString& key : keys)
            settings.Put(key, stored);
        clsWatcher options(settings);
        options.ReadRegistry();
        QCOMPARE(switches(options), (QList<int>{plain, plain, plain, plain, plain, safety, safety}));
        QCOMPARE(options.LoggingPath, stored);
        QCOMPARE(options.ShutdownWhenIdle(), plain == 1);
        QCOMPARE(options.SafeExit(), safety == 1);
        QCOMPARE(options.StopOnMissingFolder(), safety == 1);
    }

    void OneBrokenValueStopsNothing() {
        RecordingSettings settings;
        settings.Put(keys.at(0), QStringLiteral("broken"));
        settings.Put(keys.at(4), QStringLiteral("1"));
        settings.Put(keys.at(7), QStringLiteral("0"));
        clsWatcher options(settings);
        options.ReadRegistry();
        QCOMPARE(switches(options), (QList<int>{0, 0, 0, 1, 0, 1, 0}));
    }

    void WritesWhatItRead() {
        RecordingSettings settings;
        const QStringList values{QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("/var/log/a, b; \"c\".log"),
                                 QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("255"),
                                 QStringLiteral("0"), QStringLiteral("7")};
        for (qsizetype i = 0; i < keys.size(); ++i)
            settings.Put(keys.at(i), values.at(i));
        settings.Put(QStringLiteral("Accepted"), QStringLiteral("Yes"));
        const auto before = settings.store.values;
        clsWatcher options(settings);
        options.ReadRegistry();
        QVERIFY(!options.WriteRegistry());
        QCOMPARE(settings.store.values, before);
        QStringList twice;
        for (int round = 0; round < 2; ++round)
            for (const QString& key : keys)
                twice.append(QStringLiteral("Kalvenor/Options/") + key);
        QCOMPARE(settings.asked, twice);
    }

    void WriteErrorIsToldAndTheRestWritten() {
        RecordingSettings settings;
        settings.failing = keys.at(1);
        clsWatcher options(settings);
        options.StopIfFolderNotExist = 0;
        QCOMPARE(options.WriteRegistry(), std::make_error_code(std::errc::no_space_on_device));
        QCOMPARE(settings.Stored(keys.at(7)), QStringLiteral("0"));
    }
};

QTEST_APPLESS_MAIN(WatcherTest)
#include "test_clswatcher.moc"
