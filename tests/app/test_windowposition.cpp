// The stored window position: broken values, units, and no drift over many starts.
#include "Fakes.h"
#include "WindowPosition.h"
#include <QtTest>

class TestWindowPosition : public QObject {
    Q_OBJECT

    const QStringList m_keys{u"Kalvenor/WindowPos/Top"_qs, u"Kalvenor/WindowPos/Left"_qs,
                             u"Kalvenor/WindowPos/Width"_qs, u"Kalvenor/WindowPos/Height"_qs,
                             u"Kalvenor/WindowPos/WindowState"_qs};

    /// Texts for top, left, width, height and state, separated by "|".
    MemorySettings stored(const QString& texts) const {
        MemorySettings settings;
        const QStringList values = texts.split(u'|', Qt::SkipEmptyParts);
        for (qsizetype i = 0; i < values.size(); ++i)
            settings.values[m_keys.at(i)] = values.at(i);
        return settings;
    }
    /// What a program makes of such texts: "x,y width x height state".
    QString loaded(const QString& texts) const {
        WindowPosition position;
        position.Load(stored(texts));
        const QRect at = position.Rectangle();
        return u"%1,%2 %3x%4 %5"_qs.arg(at.x())
            .arg(at.y())
            .arg(at.width())
            .arg(at.height())
            .arg(static_cast<int>(position.WindowState()));
    }
    /// What is stored after a window came up `shifted` from where it was asked to be, and then was moved.
    QString saved(const QString& texts, const QPoint& shifted, const QPoint& moved) const {
        MemorySettings settings = stored(texts);
        WindowPosition position;
        position.Load(settings);
        const QRect restored = position.Rectangle().translated(shifted);
        position.SetRestored(restored);
        if (position.Save(settings, restored.translated(moved), position.WindowState()))
            return u"not stored"_qs;
        QStringList after;
        for (const QString& key : m_keys)
            after.append(settings.values.value(key));
        return after.join(u'|');
    }

  private Q_SLOTS:
    void loads() {
        const QString standard = u"13,13 625x464 0"_qs;
        QCOMPARE(loaded(QString()), standard);
        QCOMPARE(loaded(u"150|300|6000|4500|2"_qs), u"20,10 400x300 2"_qs);
        QCOMPARE(loaded(u"157.6|-157,6|6000,0|4.5e3|1"_qs), u"-11,11 400x300 1"_qs);
        QCOMPARE(loaded(u"abc| |1.2.3|nan|x"_qs), standard);
        QCOMPARE(loaded(u"inf|-inf|0|-4500|-1"_qs), standard);
        QCOMPARE(loaded(u"1e300|-1e300|1e300|1|3"_qs), u"-32767,32767 32767x1 0"_qs);
    }

    void saves() {
        const QString before = u"200|207,5|9375|6961|1"_qs;
        QCOMPARE(saved(before, {}, {}), before);
        QCOMPARE(saved(before, {0, 17}, {}), before); // where the window manager put it
        QCOMPARE(saved(before, {0, 17}, {-20, 0}), u"200|-90|9375|6961|1"_qs);
        QCOMPARE(saved(u"x|200|0|6960|9"_qs, {}, {}), u"200|200|9375|6960|0"_qs);
    }

    void staysReachable() {
        const QList<QRect> screens{{0, 20, 1024, 748}, {1024, 0, 1024, 768}};
        for (const QRect& seen : {QRect(-500, 700, 625, 464), QRect(1300, 100, 625, 464)})
            QCOMPARE(WindowPosition::Reachable(seen, screens), seen);
        QCOMPARE(WindowPosition::Reachable({100, -300, 625, 464}, screens), QRect(0, 20, 625, 464));
        QCOMPARE(WindowPosition::Reachable({5000, 100, 9000, 9000}, screens), QRect(0, 20, 1024, 748));
    }
};

QTEST_GUILESS_MAIN(TestWindowPosition)
#include "test_windowposition.moc"
