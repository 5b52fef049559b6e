// The document and its file: what is refused on reading, and that saving keeps every character and never harms a file.
#include <QtTest>

#include "LinuxOwnFiles.h"
#include "ScratchStore.h"
#include "StoreError.h"

#include <QProcess>
#include <QStandardPaths>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace {

const QString umlauts = QStringLiteral("\u00E4\u00F6\u00FC\u00DF");
const QString mixed = QStringLiteral("\u00E4\u20AC\u0080\u0416 <&>\r\n");

QByteArray manyAttributes() {
    QByteArray tag = "<items><A ";
    for (int i = 0; i < 100'000; ++i)
        tag += "a" + QByteArray::number(i) + "='' ";
    return tag + "/></items>";
}

QByteArray entityBomb() {
    QByteArray text = "<?xml version='1.0'?><!DOCTYPE items [<!ENTITY a0 'ha'>";
    for (int i = 1; i < 30; ++i)
        text += "<!ENTITY a" + QByteArray::number(i) + " '" +
                QByteArray("&a" + QByteArray::number(i - 1) + ";").repeated(10) + "'>";
    return text + "]><items><A>&a29;</A></items>";
}

QByteArray utf16(const QString& text, bool hasMark) {
    return (hasMark ? QByteArray("\xFF\xFE") : QByteArray()) +
           QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

/// What is written to the process's stderr while it lives.
class StderrCatcher final {
  public:
    explicit StderrCatcher(const QString& file) : m_file(file), m_saved(::dup(2)) {
        static_cast<void>(std::freopen(qPrintable(file), "w", stderr));
    }
    ~StderrCatcher() { ::close(m_saved); }
    QByteArray Finish() const {
        std::fflush(stderr);
        ::dup2(m_saved, 2);
        return ScratchStore::Bytes(m_file);
    }

  private:
    QString m_file;
    int m_saved;
};

} // namespace

class TestClsXmlFiles : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void onlyWholeDocumentsAreTaken_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("count"); // -1: refused
        const auto row = [](const char* name, const QByteArray& bytes, int count) {
            QTest::newRow(name) << bytes << count;
        };
        row("zero bytes", "", -1);
        row("plain text", "not an activity file", -1);
        row("half a file", "<items><A><sourcedir>/a</sourcedir></A><B>", -1);
        row("two roots", "<items/><items/>", -1);
        row("garbage behind", "<items><A/></items>x", -1);
        row("bad byte", "<?xml version='1.0' encoding='UTF-8'?><items><A>\xE4</A></items>", -1);
        row("control character", "<items><A>\x01</A></items>", -1);
        row("unknown encoding", "<?xml version='1.0' encoding='none-such'?><items/>", -1);
        row("doctype", "<!DOCTYPE items><items><A/></items>", -1);
        row("doctype behind a comment", "<!-- <x> --><!DOCTYPE items SYSTEM 'file:///etc/passwd'><items><A/></items>",
            -1);
        row("entity bomb", entityBomb(), -1);
        row("undefined entity", "<items><A>&a;</A></items>", -1);
        row("100,000 attributes", manyAttributes(), -1);
        row("100,000 attributes in UTF-16", utf16(QString::fromLatin1(manyAttributes()), true), -1);
        row("the same without mark",
            utf16(QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>") + QString::fromLatin1(manyAttributes()),
                  false),
            -1);
        row("UTF-32", QByteArray("\xFF\xFE\0\0<\0\0\0", 8), -1);
        row("nested deeply", QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000), -1);
        row("empty list", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n", 0);
        row("pretty-printed", "<items>\r\n\t<!-- <a \" -->\r\n\t<A>\r\n\t\t<x/>\r\n\t</A>\r\n\t<B/>\r\n</items>\r\n",
            2);
        row("long text", "<items><A>" + QByteArray(1'000'000, 'x') + "</A></items>", 1);
        row("long section", "<items><A><![CDATA[" + QByteArray("<a b=\"").repeated(10'000) + "]]></A></items>", 1);
        row("UTF-8 mark", "\xEF\xBB\xBF<items><A/></items>", 1);
        row("UTF-16", utf16(QStringLiteral("<?xml version='1.0' encoding='UTF-16'?><items><A/></items>"), true), 1);
        row("other root", "<things><A/></things>", -1);
    }
    void onlyWholeDocumentsAreTaken() {
        QFETCH(QByteArray, bytes);
        ScratchStore store;
        const QString file = store.Path("a%20b.kvd");
        QVERIFY(ScratchStore::Put(file, bytes));
        QVERIFY(store.document.OpenXML(QStringLiteral("<items><old/></items>"), 1));
        const StderrCatcher errors(store.Path("stderr"));
        const bool isOpen = store.document.OpenXML(file, 0);
        const int count = store.document.NodeCount(QStringLiteral("/items"));
        const QByteArray printed = errors.Finish();
        QTEST(count, "count");
        QVERIFY(isOpen || store.document.XML().isEmpty());
        QVERIFY(isOpen == (count >= 0) || store.document.NodeCount(QStringLiteral("/things")) == 1);
        QCOMPARE(printed, QByteArray());
    }

    void hugeFileIsRefusedUnread() {
        ScratchStore store;
        QFile file(store.Path("huge.kvd"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<items>");
        QVERIFY(file.resize((64 << 20) + 1)); // a hole: costs no disk
        QVERIFY(!store.document.OpenXML(file.fileName(), 0));
    }

    void savedBytes_data() {
        QTest::addColumn<QByteArray>("prolog");
        QTest::addColumn<QByteArray>("saved");
        const QByteArray items = "<items><A><f>%1</f></A></items>\n";
        const auto row = [&](const char* prolog, const QByteArray& text, const char* savedProlog = nullptr) {
            QTest::newRow(prolog) << QByteArray(prolog)
                                  << (savedProlog ? savedProlog : prolog) + QByteArray(items).replace("%1", text);
        };
        row("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n", "\xE4&#8364;\x80&#1046; &lt;&amp;&gt;&#13;\n");
        row("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\"?>\n",
            "\xE4&#8364;\x80&#1046; &lt;&amp;&gt;&#13;\n");
        row("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n",
            mixed.toUtf8().replace("<&>\r", "&lt;&amp;&gt;&#13;"));
        row("<?xml version=\"1.0\"?>\n", "&#xE4;&#x20AC;&#x80;&#x416; &lt;&amp;&gt;&#xD;\n");
        row("", mixed.toUtf8().replace("<&>\r", "&lt;&amp;&gt;&#13;"));
    }
    void savedBytes() {
        QFETCH(QByteArray, prolog);
        ScratchStore store;
        const QString file = store.Path("a.kvd");
        QVERIFY(store.document.OpenXML(QString::fromLatin1(prolog) + QStringLiteral("<items><A><f/></A></items>"), 1));
        store.document.WriteNode(QStringLiteral("/items/A/f"), mixed);
        store.document.Save(file);
        QTEST(ScratchStore::Bytes(file), "saved");
        QVERIFY(store.document.OpenXML(file, 0));
        QCOMPARE(store.document.ReadNode(QStringLiteral("/items/A/f")), mixed);
    }

    /// A reader that shares nothing with ours must find the same.
    void otherReadersAgree() {
        const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
        if (python.isEmpty())
            QSKIP("no python3 to compare with");
        ScratchStore store;
        const QString file = store.Path("a.kvd");
        for (const char* encoding : {"ISO-8859-1", "UTF-8", "UTF-16"}) {
            QVERIFY(store.document.OpenXML(
                QStringLiteral("<?xml version='1.0' encoding='%1'?><items/>").arg(QLatin1String(encoding)), 1));
            store.document.ReplaceElement(QStringLiteral("/items"), {}, umlauts, {{QStringLiteral("f"), mixed}});
            store.document.Save(file);
            QProcess reader;
            reader.start(python, {QStringLiteral("-c"),
                                  QStringLiteral("import sys, xml.etree.ElementTree as e\n"
                                                 "for a in e.parse(sys.argv[1]).getroot():\n"
                                                 "  print(ascii(a.tag), ascii(a[0].text))"),
                                  file});
            QVERIFY(reader.waitForFinished());
            QCOMPARE(reader.readAllStandardOutput().trimmed(),
                     QByteArray("'\\xe4\\xf6\\xfc\\xdf' '\\xe4\\u20ac\\x80\\u0416 <&>\\r\\n'"));
        }
    }

    void unsavableDocumentLeavesTheFile_data() {
        QTest::addColumn<QString>("markup");
        QTest::newRow("unknown encoding") << QStringLiteral("<?xml version='1.0' encoding='none-such'?><items/>");
        QTest::newRow("no document") << QStringLiteral("damaged");
        QTest::newRow("name outside the encoding")
            << QStringLiteral("<?xml version='1.0' encoding='ISO-8859-1'?><items><\u0416/></items>");
    }
    void unsavableDocumentLeavesTheFile() {
        QFETCH(QString, markup);
        ScratchStore store;
        const QString file = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(file, "old"));
        store.document.OpenXML(markup, 1);
        QVERIFY_THROWS_EXCEPTION(StoreError, store.document.Save(file));
        QCOMPARE(ScratchStore::Bytes(file), QByteArray("old"));
    }

    void overlongTagIsNotSaved() {
        ScratchStore store;
        const QString file = store.Path("a.kvd");
        QVERIFY(store.document.OpenXML(QStringLiteral("<items><A/></items>"), 1));
        store.document.WriteAttribute(QStringLiteral("/items/A"), {QStringLiteral("a")},
                                      {QString(10'000, QLatin1Char('x'))});
        QVERIFY_THROWS_EXCEPTION(StoreError, store.document.Save(file)); // it could not be loaded again
        QVERIFY(!QFile::exists(file));
    }

    void fullDiskLeavesTheFile() {
        ScratchStore store;
        const QString file = store.Path("a.kvd");
        QVERIFY(store.document.OpenXML(QStringLiteral("<items><A/></items>"), 1));
        store.document.Save(file);
        const QByteArray old = ScratchStore::Bytes(file);
        store.document.WriteNode(QStringLiteral("/items/A"), QString(100'000, QLatin1Char('x')));
        // A limit on file sizes makes a write come up short, as a full disk does.
        struct rlimit before {};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit small { 65'536, before.rlim_max };
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
        QString reason;
        try {
            store.document.Save(file);
        } catch (const StoreError& error) {
            reason = error.Text();
        }
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QVERIFY(!reason.isEmpty());
        QCOMPARE(ScratchStore::Bytes(file), old);
        QCOMPARE(QDir(store.folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.kvd")});
    }
};

QTEST_GUILESS_MAIN(TestClsXmlFiles)
#include "test_clsxml_files.moc"
