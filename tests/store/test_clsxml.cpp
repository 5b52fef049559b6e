// The document in memory: what a path finds, what a write changes, which operations throw.
#include <QtTest>

#include "LinuxOwnFiles.h"
#include "StoreError.h"
#include "clsXML.h"

#include <QRandomGenerator>

namespace {

const QString sample = QStringLiteral(
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
    "<items>\n  <!-- note -->\n"
    "  <A><sourcedir>/a1</sourcedir><comment/></A>\n"
    "  <B x=\"1\" y=\"two\"><sourcedir>/b</sourcedir></B>\n"
    "  <A><sourcedir>/a2</sourcedir><activ>1</activ><mixed>one<!-- c --><![CDATA[<two>]]><d>3</d></mixed></A>\n"
    "</items>\n");

QStringList names(const clsXML& document) {
    QStringList found;
    for (int i = 0; i < document.NodeCount(QStringLiteral("/items")); ++i)
        found.append(document.GetChildName(QStringLiteral("/items"), i));
    return found;
}

} // namespace

class TestClsXml : public QObject {
    Q_OBJECT

    LinuxOwnFiles m_files;

  private Q_SLOTS:
    void pathFindsFirstMatch_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("count");
        const auto row = [](const char* path, const char* text, int count) {
            QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(text) << count;
        };
        row("/items/A/sourcedir", "/a1", 1);
        row("/items/A/activ", "1", 1); // only the second A has it
        row("/items/A[2]/sourcedir", "/a2", 1);
        row("/items/A/mixed", "one<two>3", 4);
        row("/items/B/@y", "two", 1);
        row("/items/*[@x='1']/sourcedir", "/b", 1);
        row("B/sourcedir", "/b", 1);
        row("/items/B[sourcedir='//no'] | /items/B/sourcedir", "/b", 1);
        row("/items/A/comment", "", 0);
        row("/items/B", "/b", 1);
        for (const char* missing :
             {"", "/items/", "/items/C/sourcedir", "/items/a/sourcedir", "/Items", "/items//sourcedir", "//sourcedir",
              "/items/My Backup/sourcedir", "/items/A'/sourcedir", "/items/1a/sourcedir", "/items/A[",
              "/items/p:A/sourcedir", "/items/A/namespace::*", "count(/items)", "'//'"})
            row(missing, "", -1);
        QTest::newRow("cut at NUL") << QStringLiteral("/items/B") + QChar(u'\0') + QStringLiteral("/x") << QString()
                                    << -1;
    }
    void pathFindsFirstMatch() {
        QFETCH(QString, path);
        clsXML document(m_files);
        QVERIFY(document.OpenXML(sample, 1));
        QTEST(document.ReadNode(path), "text");
        QTEST(document.NodeCount(path), "count");
    }

    void childrenOfRootAreElementsOnly() {
        clsXML document(m_files);
        QVERIFY(document.OpenXML(sample, 1));
        QCOMPARE(document.NodeCount(QStringLiteral("/items")), 3);
        QCOMPARE(names(document), (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A")}));
        QCOMPARE(document.GetChildValue(QStringLiteral("/items"), 1), QStringLiteral("/b"));
        QCOMPARE(document.GetChildAttribute(QStringLiteral("/items"), 1, QStringLiteral("y")), QStringLiteral("two"));
        QCOMPARE(document.GetChildName(QStringLiteral("/items/A/mixed"), 1), QStringLiteral("#comment"));
        for (const int outside : {-1, 3}) {
            QCOMPARE(document.GetChildValue(QStringLiteral("/items"), outside), QString());
            QCOMPARE(document.GetChildAttribute(QStringLiteral("/items"), outside, QStringLiteral("y")), QString());
            QVERIFY_THROWS_EXCEPTION(StoreError,
                                     static_cast<void>(document.GetChildName(QStringLiteral("/items"), outside)));
        }
    }

    void undeclaredPrefixIsPartOfTheName() {
        clsXML document(m_files);
        QVERIFY(
            document.OpenXML(QStringLiteral("<items><p:x xmlns:p='u'/><q:y/><z xmlns='u'><f>1</f></z></items>"), 1));
        QCOMPARE(names(document), (QStringList{QStringLiteral("p:x"), QStringLiteral("q:y"), QStringLiteral("z")}));
        QCOMPARE(document.ReadNode(QStringLiteral("/items/z/f")), QString());
    }

    void missingDataIsNeutralOrThrows() {
        clsXML document(m_files);
        const QString path = QStringLiteral("/items/none");
        for (const bool isLoaded : {false, true}) {
            QCOMPARE(document.OpenXML(isLoaded ? sample : QStringLiteral("no xml"), 1), isLoaded);
            const QString before = document.XML();
            document.WriteNode(path, QStringLiteral("x"));
            document.WriteAttribute(path, {QStringLiteral("a")}, {QStringLiteral("b")});
            document.DeleteNode(path);
            document.EncryptNode(path);
            QCOMPARE(document.ReadAttribute(path, QStringLiteral("a")), QString());
            QCOMPARE(document.NodeCount(path), -1);
            QVERIFY_THROWS_EXCEPTION(StoreError, static_cast<void>(document.ReadNodeXML(path)));
            QVERIFY_THROWS_EXCEPTION(StoreError, document.MakeNode(path, QStringLiteral("a")));
            QVERIFY_THROWS_EXCEPTION(StoreError, document.DeleteAttribute(path, QStringLiteral("a")));
            QCOMPARE(document.XML(), before);
        }
        QVERIFY(!document.OpenXML(sample, 2));
        QCOMPARE(document.NodeCount(QStringLiteral("/items")), -1);
    }

    void declarationIsReadFromTheProlog_data() {
        QTest::addColumn<QString>("prolog");
        QTest::addColumn<QStringList>("parts"); // empty: throws
        const auto row = [](const char* prolog, const QStringList& parts) {
            QTest::newRow(prolog) << QString::fromLatin1(prolog) << parts;
        };
        row("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone='yes'?>",
            {QStringLiteral("1.0"), QStringLiteral("ISO-8859-1"), QStringLiteral("yes")});
        row("<?xml version='1.0'?>", {QStringLiteral("1.0"), QString(), QString()});
        row("<?xml version='1.0' encoding='UTF-16'?>", {QStringLiteral("1.0"), QStringLiteral("UTF-16"), QString()});
        row("", {});
        row("<!-- none -->", {});
    }
    void declarationIsReadFromTheProlog() {
        QFETCH(QString, prolog);
        QFETCH(QStringList, parts);
        clsXML document(m_files);
        QVERIFY(document.OpenXML(prolog + QStringLiteral("<items><A>\u00E4\u20AC</A></items>"), 1));
        QCOMPARE(document.ReadNode(QStringLiteral("/items/A")), QStringLiteral("\u00E4\u20AC"));
        for (int kind = 0; kind < parts.size(); ++kind)
            QCOMPARE(document.XMLDocumentInfo(kind), parts[kind]);
        if (parts.isEmpty())
            QVERIFY_THROWS_EXCEPTION(StoreError, static_cast<void>(document.XMLDocumentInfo(0)));
        // The markup as text opens again with the same declaration.
        const QString markup = document.XML();
        QVERIFY(document.OpenXML(markup, 1));
        QCOMPARE(document.XML(), markup);
    }

    void textIsTakenLiterally_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("stored");
        const auto row = [](const char* name, const QString& value, const QString& stored) {
            QTest::newRow(name) << value << stored;
        };
        const QString markup = QStringLiteral("<b>&amp; & \"'&#65; ]]> --%1");
        row("markup", markup, markup);
        row("line breaks and blanks", QStringLiteral(" a\r\nb\tc\n "), QStringLiteral(" a\r\nb\tc\n "));
        row("control characters", QStringLiteral("a\x01\x1F\x0B") + QChar(u'\0') + QStringLiteral("b"),
            QStringLiteral("ab"));
        row("broken surrogates", QString(QChar(0xD800)) + u'a' + QChar(0xDC00), QStringLiteral("a"));
        row("astral and non-characters", QString::fromUcs4(U"\U0001F600\uFFFE\uFFFD"),
            QString::fromUcs4(U"\U0001F600\uFFFD"));
        row("empty", QString(), QString());
    }
    void textIsTakenLiterally() {
        QFETCH(QString, value);
        QFETCH(QString, stored);
        clsXML document(m_files);
        QVERIFY(document.OpenXML(sample, 1));
        document.WriteNode(QStringLiteral("/items/A/mixed"), value);
        document.WriteAttribute(QStringLiteral("/items/B"), {QString(), QStringLiteral("y")},
                                {QStringLiteral("skipped"), value});
        document.MakeNode(QStringLiteral("/items/B"), QStringLiteral("made"), value);
        QVERIFY(document.OpenXML(document.XML(), 1));
        QCOMPARE(document.ReadNode(QStringLiteral("/items/A/mixed")), stored);
        QCOMPARE(document.ReadAttribute(QStringLiteral("/items/B"), QStringLiteral("y")), stored);
        QCOMPARE(document.ReadNode(QStringLiteral("/items/B/made")), stored);
        document.DeleteAttribute(QStringLiteral("/items/B"), QStringLiteral("y"));
        QVERIFY(!document.ReadNodeXML(QStringLiteral("/items/B")).contains(QStringLiteral("y=")));
    }

    void refusedNamesChangeNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("inLatin1");
        QTest::addColumn<bool>("inUtf8");
        const auto row = [](const QString& name, bool inLatin1, bool inUtf8) {
            QTest::newRow(qPrintable(QStringLiteral("'%1'").arg(name.left(12)))) << name << inLatin1 << inUtf8;
        };
        for (const char* bad :
             {"", " ", "My Backup", "1abc", "-a", ".a", "a:b", "a/b", "a<b", "a&b", "a'b", "a\"b", "@a", "a\n", "a*"})
            row(QString::fromLatin1(bad), false, false);
        row(QStringLiteral("a") + QChar(0xD800), false, false);
        row(QStringLiteral("a\u00D7"), false, false);
        row(QString(1001, QLatin1Char('a')), false, false);
        row(QStringLiteral("a"), true, true);
        row(QStringLiteral("_a-1.b"), true, true);
        row(QStringLiteral("\u00DCbung\u00B7"), true, true);
        row(QStringLiteral("\u0416"), false, true);
        row(QString::fromUcs4(U"\U00020000"), false, true);
    }
    void refusedNamesChangeNothing() {
        QFETCH(QString, name);
        for (const bool isLatin1 : {true, false}) {
            QFETCH(bool, inLatin1);
            QFETCH(bool, inUtf8);
            const bool isUsable = isLatin1 ? inLatin1 : inUtf8;
            clsXML document(m_files);
            QString text = sample;
            QVERIFY(document.OpenXML(
                isLatin1 ? text : text.replace(QLatin1String("ISO-8859-1"), QLatin1String("UTF-8")), 1));
            QCOMPARE(document.IsUsableName(name), isUsable);
            if (isUsable)
                continue;
            const QString before = document.XML();
            QVERIFY_THROWS_EXCEPTION(StoreError,
                                     document.MakeNode(QStringLiteral("/items"), name, QStringLiteral("x")));
            QVERIFY_THROWS_EXCEPTION(StoreError,
                                     document.ReplaceElement(QStringLiteral("/items"), QStringLiteral("B"), name, {}));
            QVERIFY_THROWS_EXCEPTION(StoreError, document.ReplaceElement(QStringLiteral("/items"), QStringLiteral("B"),
                                                                         QStringLiteral("C"), {{name, QString()}}));
            document.WriteAttribute(QStringLiteral("/items/B"), {name}, {QStringLiteral("v")});
            QCOMPARE(document.XML(), before);
        }
    }

    /// The index must never tell anything else than a walk over the whole document.
    void indexFollowsEveryChange() {
        clsXML document(m_files);
        QVERIFY(document.OpenXML(QStringLiteral("<items/>"), 1));
        QRandomGenerator random(4711);
        QStringList model; // names in order
        for (int step = 0; step < 3000; ++step) {
            const QString name = QStringLiteral("N%1").arg(random.bounded(12));
            const QString path = QStringLiteral("/items/") + name;
            switch (random.bounded(6)) {
            case 0:
            case 1:
                document.MakeNode(QStringLiteral("/items"), name);
                document.MakeNode(QStringLiteral("/items/%1[last()]").arg(name), QStringLiteral("f"),
                                  QString::number(step));
                model.append(name);
                break;
            case 2:
                document.DeleteNode(path);
                model.removeOne(name);
                break;
            case 3:
                document.ReplaceElement(QStringLiteral("/items"), name, QStringLiteral("R%1").arg(step % 3),
                                        {{QStringLiteral("f"), QString::number(step)}});
                model.removeOne(name);
                model.append(QStringLiteral("R%1").arg(step % 3));
                break;
            case 4:
                document.WriteNode(path + QStringLiteral("/f"), QString::number(step));
                break;
            default:
                document.DeleteNode(path + QStringLiteral("/f"));
            }
            if (step % 500 == 499) {
                document.WriteNode(QStringLiteral("/items"), QString());
                model.clear();
            }
            QCOMPARE(names(document), model);
            // A predicate keeps the second path off the index.
            QCOMPARE(document.ReadNode(path + QStringLiteral("/f")), document.ReadNode(path + QStringLiteral("/f[1]")));
        }
        QVERIFY(document.NodeCount(QStringLiteral("/items")) == model.size());
    }

    void scramblingShiftsEveryCharacterOrNone_data() {
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("scrambled");
        QTest::newRow("letters") << QStringLiteral("AMz 1") << QStringLiteral("NZ\u0087->");
        QTest::newRow("astral") << QString::fromUcs4(U"\U0001F600") << QString::fromUcs4(U"\U0001F60D");
        QTest::newRow("into surrogates") << QStringLiteral("a\uD7F8") << QStringLiteral("a\uD7F8");
        QTest::newRow("into a non-character") << QStringLiteral("\uFFF1") << QStringLiteral("\uFFF1");
    }
    void scramblingShiftsEveryCharacterOrNone() {
        QFETCH(QString, plain);
        QFETCH(QString, scrambled);
        const QString path = QStringLiteral("/items/B/sourcedir");
        clsXML document(m_files);
        QVERIFY(document.OpenXML(sample, 1));
        document.WriteNode(path, plain);
        document.EncryptNode(path);
        QCOMPARE(document.ReadNode(path), scrambled);
        if (plain == scrambled)
            return;
        document.DecryptNode(path);
        QCOMPARE(document.ReadNode(path), plain);
        document.WriteNode(path, QStringLiteral("a\tb"));
        document.DecryptNode(path); // a tab has no character 13 below it
        QCOMPARE(document.ReadNode(path), QStringLiteral("a\tb"));
    }

    void coloursAreBracketedTriples() {
        const QString path = QStringLiteral("/items/B/sourcedir");
        clsXML document(m_files);
        QVERIFY(document.OpenXML(sample, 1));
        document.SetColorValue(path, 1, 2, 255);
        QCOMPARE(document.ReadNode(path), QStringLiteral("(1, 2, 255)"));
        QCOMPARE(document.GetColorValue(path), 1U + 2U * 256U + 255U * 65536U);
        for (const char* other : {"", "1, 2, 3", "(1, 2)", "(1, 2, 256)", "(-1, 2, 3)", "(1, 2, 3, 4)", "red"}) {
            document.WriteNode(path, QString::fromLatin1(other));
            QCOMPARE(document.GetColorValue(path), 0U);
        }
    }
};

QTEST_GUILESS_MAIN(TestClsXml)
#include "test_clsxml.moc"
