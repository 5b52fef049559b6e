// How the general options are read from the store. Writing them is part of the dialog's test.
#include "Fakes.h"
#include "clsWatcher.h"

#include <QSet>
#include <QTest>
#include <array>

class TestWatcher final : public QObject {
    Q_OBJECT

    static constexpr std::array plainSwitches{&clsWatcher::ActivateWhileWindowsStarting, &clsWatcher::ToTray,
                                              &clsWatcher::Shutdown, &clsWatcher::StartUp, &clsWatcher::LogfileRefresh};
    static constexpr std::array safetySwitches{&clsWatcher::ExitAlert, &clsWatcher::StopIfFolderNotExist};

    /// "plain safety": what the switches become that are off and on by default.
    static QString read(const std::optional<QString>& stored) {
        MemorySettings settings;
        clsWatcher options(settings);
        if (options.WriteRegistry())
            return u"not written"_qs;
        for (QString& value : settings.values)
            value = stored.value_or(QString());
        if (!stored)
            settings.values.clear();
        const auto before = settings.values;
        for (const auto member : plainSwitches)
            options.*member = 9; // must not be left over
        options.ReadRegistry();
        QSet<int> plain;
        QSet<int> safety;
        for (const auto member : plainSwitches)
            plain.insert(options.*member);
        for (const auto member : safetySwitches)
            safety.insert(options.*member);
        const bool isRight =
            plain.size() == 1 && safety.size() == 1 && settings.values == before &&
            options.LoggingPath == stored.value_or(QString()) && options.ShutdownWhenIdle() == plain.contains(1) &&
            options.SafeExit() == safety.contains(1) && options.StopOnMissingFolder() == safety.contains(1);
        return isRight ? u"%1 %2"_qs.arg(*plain.begin()).arg(*safety.begin()) : u"not what is stored"_qs;
    }

  private Q_SLOTS:
    void reads() {
        QCOMPARE(read(u" 1 "_qs), u"1 1"_qs);
        QCOMPARE(read(u"0"_qs), u"0 0"_qs);
        QCOMPARE(read(u"255"_qs), u"255 255"_qs);
        // Nothing, or no number: no safety is switched off by that.
        QCOMPARE(read(std::nullopt), u"0 1"_qs);
        for (const QString& broken : {QString(), u"256"_qs, u"4294967296"_qs, u"-1"_qs, u"0x"_qs})
            QCOMPARE(read(broken), u"0 1"_qs);
    }
};

QTEST_APPLESS_MAIN(TestWatcher)
#include "test_clswatcher.moc"
