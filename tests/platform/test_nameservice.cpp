// The resolver's configuration of this very machine, read a second time by hand.
#include "LinuxNameService.h"

#include <QFile>
#include <QTest>

class TestNameService final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Stands for a search line; the C library reads it once in the life of a process.
    void initTestCase() { qputenv("LOCALDOMAIN", "first.test. second.test"); }

    void readsTheServersInTheirOrder() {
        constexpr int most = 3; // the resolver's own limit
        QStringList expected;
        QFile configuration(QStringLiteral("/etc/resolv.conf"));
        if (configuration.open(QIODevice::ReadOnly)) {
            for (const QByteArray& line : configuration.readAll().split('\n')) {
                const QByteArrayList words = line.simplified().split(' ');
                if (words.size() > 1 && words.first() == "nameserver" && expected.size() < most)
                    expected.append(QString::fromLatin1(words.at(1)));
            }
        }
        if (expected.isEmpty())
            expected.append(QStringLiteral("127.0.0.1"));
        QStringList found;
        for (const NameServer& server : LinuxNameService().Discover().servers) {
            found.append(server.address);
            QCOMPARE(server.port, quint16(53));
        }
        QCOMPARE(found, expected);
    }

    void takesTheFirstDomainToSearchWithoutItsDot() {
        QCOMPARE(LinuxNameService().Discover().localDomain, QStringLiteral("first.test"));
    }
};

QTEST_GUILESS_MAIN(TestNameService)
#include "test_nameservice.moc"
