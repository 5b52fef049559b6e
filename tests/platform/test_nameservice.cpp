// The resolver's configuration of this very machine, read a second time by hand.
#include "LinuxNameService.h"

#include <QFile>
#include <QTest>

class TestNameService final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void readsTheServers() {
        constexpr int most = 3; // the resolver's own limit
        QStringList expected;
        QFile configuration(u"/etc/resolv.conf"_qs);
        if (configuration.open(QIODevice::ReadOnly)) {
            for (const QByteArray& line : configuration.readAll().split('\n')) {
                const QByteArrayList words = line.simplified().split(' ');
                if (words.size() > 1 && words.first() == "nameserver" && expected.size() < most)
                    expected.append(QString::fromLatin1(words.at(1)) + u":53");
            }
        }
        if (expected.isEmpty())
            expected.append(u"127.0.0.1:53"_qs);
        const NameServers found = LinuxNameService().Discover();
        QStringList servers;
        for (const NameServer& server : found.servers)
            servers.append(u"%1:%2"_qs.arg(server.address).arg(server.port));
        QCOMPARE(servers, expected);
    }
};

QTEST_GUILESS_MAIN(TestNameService)
#include "test_nameservice.moc"
