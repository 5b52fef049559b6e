// How the general options are read from the store. Writing them is part of the dialog's test.
#include "Fakes.h"
#include "clsWatcher.h"

#include <QTest>

class TestWatcher final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void whatIsNoNumberSwitchesNoSafetyOff() {
        const auto read = [](const std::optional<QString>& stored) {
            MemorySettings settings;
            if (stored)
                for (const char* key : {"Shutdown", "StartUp", "ExitAlert", "StopIfFolderNotExist"})
                    settings.values[u"Kalvenor/Options/"_qs + QLatin1String(key)] = *stored;
            clsWatcher options(settings);
            options.Shutdown = 9; // must not be left over
            options.ReadRegistry();
            return QList<int>{options.Shutdown, options.StartUp, options.ExitAlert, options.StopIfFolderNotExist};
        };
        const QList byDefault{0, 0, 1, 1};
        QCOMPARE(read(u" 1 "_qs), QList({1, 1, 1, 1}));
        QCOMPARE(read(u"0"_qs), QList({0, 0, 0, 0}));
        QCOMPARE(read(std::nullopt), byDefault);
        for (const QString& broken : {QString(), u"256"_qs, u"4294967296"_qs, u"-1"_qs, u"0x"_qs})
            QCOMPARE(read(broken), byDefault);
    }
};

QTEST_APPLESS_MAIN(TestWatcher)
#include "test_clswatcher.moc"
