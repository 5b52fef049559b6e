// The document: what a path finds, what a write changes, what is refused on load and save. Saving keeps every character
// and never damages a file.
#include "ScratchStore.h"
#include "StoreError.h"

#include <QRandomGenerator>
#include <QtTest>
#include <array>
#include <tuple>

using namespace std::string_view_literals;

namespace {

const QString items = u"/items"_qs;
const QString nodeB = u"/items/B"_qs;
const QString own = u"a%20b.kvd"_qs;
const QString mixed = u"\u00E4\u20AC\u0080\u0416 <&>\r\n"_qs;
const QString sample = u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                       "<items>\n  <!-- note -->\n"
                       "  <A><sourcedir>/a1</sourcedir><comment/></A>\n"
                       "  <B x=\"1\" y=\"two\"><sourcedir>/b</sourcedir></B>\n"
                       "  <A><sourcedir>/a2</sourcedir><activ>1</activ>"
                       "<mixed>one<!-- c --><![CDATA[<two>]]><d>3</d></mixed></A>\n"
                       "</items>\n"_qs;

struct Store : ScratchStore {
    explicit Store(const QString& markup = sample) { document.OpenXML(markup, 1); }
    [[nodiscard]] bool IsSaved() {
        try {
            document.Save(Path(own));
        } catch (const StoreError&) {
            return false;
        }
        return true;
    }
};

QByteArray utf16(const QByteArray& utf8, const QByteArray& mark = "\xFF\xFE") {
    const QString units = QString::fromUtf8(utf8);
    return mark + QByteArray(reinterpret_cast<const char*>(units.utf16()), units.size() * 2);
}

} // namespace

class TestClsXml : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void pathFindsFirstMatch() {
        const Store store;
        /// How many children it has, and its text.
        const auto found = [&](const char* latin) {
            const QString path = QString::fromLatin1(latin);
            const bool isCutOff = store.document.NodeCount(path + QChar(u'\0') + u"/x") != -1;
            const QString count = QString::number(store.document.NodeCount(path));
            return QString(count + (isCutOff ? u"? " : u" ") + store.document.ReadNode(path));
        };
        QCOMPARE(found("/items/A/sourcedir"), u"1 /a1"_qs);
        QCOMPARE(found("/items/A/activ"), u"1 1"_qs); // only the second A has it
        QCOMPARE(found("/items/A[2]/sourcedir"), u"1 /a2"_qs);
        QCOMPARE(found("/items/B/@y"), u"1 two"_qs);
        QCOMPARE(found("/items/*[@x='1']/sourcedir"), u"1 /b"_qs);
        QCOMPARE(found("/items/B[sourcedir='//no'] | /items/B/sourcedir"), u"1 /b"_qs);
        for (const char* missing : {"", "/items/", "/items/a/sourcedir", "//sourcedir", "/items/My Backup/sourcedir",
                                    "/items/A[", "/items/p:A/sourcedir", "count(/items)"})
            QCOMPARE(found(missing), u"-1 "_qs);
    }

    void missingDataIsNeutralOrThrows() {
        const QString path = u"/items/none"_qs;
        for (const bool isLoaded : {false, true}) {
            Store store(isLoaded ? sample : u"no xml"_qs);
            const QString before = store.document.XML();
            store.document.WriteNode(path, u"x"_qs);
            store.document.WriteAttribute(path, {u"a"_qs}, {u"b"_qs});
            store.document.DeleteNode(path);
            QCOMPARE(store.document.ReadAttribute(path, u"a"_qs) + store.document.GetChildValue(path, 0), QString());
            QVERIFY_THROWS_EXCEPTION(StoreError, std::ignore = store.document.ReadNodeXML(path));
            QVERIFY_THROWS_EXCEPTION(StoreError, store.document.MakeNode(path, u"a"_qs));
            QCOMPARE(store.document.XML(), before);
            QVERIFY(!store.document.OpenXML(sample, 2));
            QCOMPARE(store.document.NodeCount(items), -1);
        }
    }

    void textIsTakenLiterally() {
        const QString markup = u"<b>&amp; & \"'&#65; ]]> --%1 a\r\nb\tc\n "_qs;
        const std::pair<QString, QString> rows[]{
            {markup, markup},
            {u"a\x01\x1F\x0B"_qs + QChar(u'\0') + u'b', u"ab"_qs},
            {QString(QChar(0xD800)) + u'a' + QChar(0xDC00), u"a"_qs}, // broken surrogates
            {QString::fromUcs4(U"\U0001F600\uFFFE\uFFFD"), QString::fromUcs4(U"\U0001F600\uFFFD")},
            {u"\uFEFFa"_qs, u"\uFEFFa"_qs},
            {{}, {}},
        };
        for (const auto& [value, stored] : rows) {
            Store store;
            store.document.WriteNode(u"/items/A/mixed"_qs, value);
            store.document.WriteAttribute(nodeB, {QString(), u"y"_qs}, {u"skipped"_qs, value});
            store.document.MakeNode(nodeB, u"made"_qs, value);
            QVERIFY(store.document.OpenXML(store.document.XML(), 1));
            QCOMPARE(store.document.ReadNode(u"/items/A/mixed"_qs), stored);
            QCOMPARE(store.document.ReadAttribute(nodeB, u"y"_qs), stored);
            QCOMPARE(store.document.ReadNode(u"/items/B/made"_qs), stored);
            store.document.DeleteAttribute(nodeB, u"y"_qs);
            QVERIFY(!store.document.ReadNodeXML(nodeB).contains(u"y="));
        }
    }

    void refusedNamesChangeNothing() {
        QStringList refused{QString(1001, u'a'), u"a\u00D7"_qs, u"a"_qs + QChar(0xD800)};
        for (const char* bad : {"", "My Backup", "1abc", "a:b", "a/b", "a<b", "a&b", "a\"b", "@a", "a\n", "a*"})
            refused.append(QString::fromLatin1(bad));
        const QString beyondLatin1 = u"\u0416"_qs;
        const Store unicode(QString(sample).replace(u"ISO-8859-1"_qs, u"UTF-8"_qs));
        QVERIFY(unicode.document.IsUsableName(beyondLatin1) && unicode.document.IsUsableName(u"_a-1.b\u00B7"_qs));
        for (const QString& name : refused)
            QVERIFY2(!unicode.document.IsUsableName(name), qPrintable(name));
        Store latin;
        const QString before = latin.document.XML();
        for (const QString& name : refused + QStringList{beyondLatin1}) {
            QVERIFY_THROWS_EXCEPTION(StoreError, latin.document.MakeNode(items, name, u"x"_qs));
            QVERIFY_THROWS_EXCEPTION(StoreError, latin.document.ReplaceElement(items, u"B"_qs, name, {}));
            QVERIFY_THROWS_EXCEPTION(StoreError, latin.document.ReplaceElement(items, u"B"_qs, u"C"_qs, {{name, {}}}));
            latin.document.WriteAttribute(nodeB, {name}, {u"v"_qs});
            QCOMPARE(latin.document.XML(), before);
        }
    }

    /// The index must always agree with a walk over the whole document.
    void indexFollowsEveryChange() {
        Store store(u"<items/>"_qs);
        clsXML& document = store.document;
        QRandomGenerator random(4711);
        QStringList model; // names in order
        for (int step = 0; step < 3000; ++step) {
            const QString name = u"N%1"_qs.arg(random.bounded(12));
            const QString path = u"/items/"_qs + name;
            const QString value = QString::number(step);
            const int change = random.bounded(6);
            if (change <= 1) {
                document.MakeNode(items, name);
                document.MakeNode(path + u"[last()]", u"f"_qs, value);
                model.append(name);
            } else if (change == 2 && step % 2 == 0) {
                document.DeleteNode(path);
                model.removeOne(name);
            } else if (change == 2) {
                document.DeleteChildren(items, {name, u"None"_qs, u"R1"_qs, name});
                for (const QString& gone : {name, u"R1"_qs, name})
                    model.removeOne(gone);
            } else if (change == 3) {
                const QString next = step % 4 == 0 ? name : u"R%1"_qs.arg(step % 3);
                document.ReplaceElement(items, name, next, {{u"f"_qs, value}});
                if (next != name || model.count(name) <= 1) { // else it takes the place of the first
                    model.removeOne(name);
                    model.append(next);
                }
            } else if (change == 4) {
                document.WriteNode(path + u"/f", value);
            } else {
                document.DeleteNode(path + u"/f");
            }
            if (step % 500 == 499) {
                document.WriteNode(items, QString());
                model.clear();
            }
            QCOMPARE(store.file.Names(), model);
            // A predicate keeps the second path off the index.
            QCOMPARE(document.ReadNode(path + u"/f"), document.ReadNode(path + u"/f[1]"));
        }
    }

    void onlyWholeDocumentsAreTaken() {
        const QByteArray longTag = "<items><A a='" + QByteArray(8192, 'x') + "'/></items>";
        QByteArray many("<items>");
        for (int i = 0; i < 200'000; ++i)
            many += "<N" + QByteArray::number(i) + "/>";
        const std::tuple<const char*, QByteArray, int> rows[]{
            {"zero bytes", "", -1},
            {"half a file", "<items><A><sourcedir>/a</sourcedir></A><B>", -1},
            {"bad byte", "<?xml version='1.0' encoding='UTF-8'?><items><A>\xE4</A></items>", -1},
            {"unknown encoding", "<?xml version='1.0' encoding='none-such'?><items/>", -1},
            {"doctype later", "<!-- <x> --><!DOCTYPE items SYSTEM 'file:///etc/passwd'><items><A/></items>", -1},
            {"long tag", longTag, -1},
            {"long tag without mark", utf16("<?xml version='1.0' encoding='UTF-16'?>" + longTag, ""), -1},
            {"UTF-32", QByteArray("\xFF\xFE\0\0<\0\0\0", 8), -1},
            {"nested deeply", QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000), -1},
            {"too many activities", many + "</items>", -1},
            {"too many names", "<items><A>" + many.mid(7) + "</A></items>", -1},
            {"too many comments", "<items>" + QByteArray("<!---->").repeated(500'000) + "</items>", -1},
            {"many namesakes", "<items>" + QByteArray("<A/>").repeated(20'000) + "</items>", 20'000},
            {"many fields", "<items><A>" + QByteArray("<f>x</f>").repeated(100'000) + "</A></items>", 1},
            {"too large", "<items><A/></items>" + QByteArray(64 << 20, ' '), -1},
            {"empty list", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n", 0},
            {"pretty-printed", "<items>\r\n\t<!-- <a \" -->\r\n\t<A>\r\n\t\t<x/>\r\n\t</A>\r\n\t<B/>\r\n</items>", 2},
            {"long text", "<items><A>" + QByteArray(1'000'000, 'x') + "</A></items>", 1},
            {"long section", "<items><A><![CDATA[" + QByteArray("<a b=\"").repeated(10'000) + "]]></A></items>", 1},
            {"UTF-8 mark", "\xEF\xBB\xBF<items><A/></items>", 1},
            {"UTF-16", utf16("<?xml version='1.0' encoding='UTF-16'?><items><A/></items>"), 1},
        };
        for (const auto& [name, bytes, count] : rows) { // a count of -1: refused
            Store store;
            QVERIFY(store.Write(own, bytes));
            QVERIFY2(store.document.OpenXML(store.Path(own), 0) == (count >= 0), name);
            QVERIFY2(store.document.NodeCount(items) == count, name);
            QCOMPARE(store.document.XML().isEmpty(), count < 0);
        }
    }

    void savedBytes() {
        const QByteArray utf8 = mixed.toUtf8().replace("<&>\r", "&lt;&amp;&gt;&#13;");
        const std::pair<QByteArray, QByteArray> rows[]{
            {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\"?>\n",
             "\xE4&#8364;\x80&#1046; &lt;&amp;&gt;&#13;\n"},
            {"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n", utf8},
            {"<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n", "\xE4\x80&#128;&#1046; &lt;&amp;&gt;&#13;\n"},
            {"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n", utf8},
            {"<?xml version=\"1.0\"?>\n", "&#xE4;&#x20AC;&#x80;&#x416; &lt;&amp;&gt;&#xD;\n"},
            {"", utf8},
        };
        for (const auto& [prolog, saved] : rows) {
            Store store(QString::fromLatin1(prolog) + u"<items><A><f/></A></items>");
            store.document.WriteNode(u"/items/A/f"_qs, mixed);
            const auto changeAndFail = [&store] {
                store.document.DeleteNode(u"/items/A"_qs);
                throw StoreError({});
            };
            QVERIFY_THROWS_EXCEPTION(StoreError, store.document.AllOrNothing(changeAndFail)); // leaves no trace
            QVERIFY(store.IsSaved());
            const QByteArray text = prolog + "<items><A><f>" + saved + "</f></A></items>\n";
            QCOMPARE(store.Read(own), prolog.contains("UTF-16") ? utf16(text) : text);
            QVERIFY(store.document.OpenXML(store.Path(own), 0));
            QCOMPARE(store.document.ReadNode(u"/items/A/f"_qs), mixed);
            const QByteArray before = store.Read(own);
            QVERIFY(store.IsSaved());
            QCOMPARE(store.Read(own), before);
        }
    }

    /// An activity is read and written in its markup where it is simple, and in its nodes where it is not.
    void bothFormsOfAnActivityAgree_data() {
        QTest::addColumn<QByteArray>("inside");
        for (const char* inside :
             {"<f>plain</f>", "<f/>", "<f></f><f>2</f>", "<g/><f>a &lt;b&gt; &amp; &#228;&#xFEFF;&#x20AC;&#13;\n c</f>",
              "<f a='>'>with</f>", "<x><f>no</f></x><f>yes</f>", "<!-- <f>no</f> --><f>yes</f>", "<f>1<!-- -->2</f>",
              "<f><![CDATA[<f>]]></f>", "<![CDATA[<f>no</f>]]><f>yes</f>", "<?f <f>no</f> ?><f>yes</f>", "text<f>1</f>",
              "<f xmlns='u'>no</f>", "<p:f>no</p:f><f>yes</f>", "<ff>no</ff>", "<x a='&lt;f>no&lt;/f>'/><f>yes</f>"})
            QTest::newRow(inside) << QByteArray(inside);
    }
    void bothFormsOfAnActivityAgree() {
        QFETCH(QByteArray, inside);
        for (const auto& prolog :
             {u"<?xml version='1.0'?>"_qs, u"<?xml version='1.0' encoding='ISO-8859-1'?>"_qs, QString()}) {
            const QString markup =
                prolog + u"<items xmlns:p='q'><A>"_qs + QString::fromLatin1(inside) + u"</A></items>"_qs;
            for (const QString& value : {u"9"_qs, QString(), u"<\u00E4\u20AC\r>"_qs}) {
                const auto outcome = [&](bool isUnfolded) {
                    Store store(markup);
                    if (isUnfolded)
                        std::ignore = store.document.NodeCount(u"/items[1]"_qs); // no plain path: works on nodes
                    QStringList texts{store.document.ReadNode(u"/items/A/f"_qs)};
                    texts += store.document.ReadChildren(u"/items/A"_qs, std::array{"none"sv, "f"sv, "g"sv});
                    store.document.WriteNode(u"/items/A/f"_qs, value);
                    texts += store.document.ReadNode(u"/items/A/f"_qs);
                    texts += store.document.ReadNode(items);
                    texts += store.IsSaved() ? QString::fromLatin1(store.Read(own)) : u"not saved"_qs;
                    return texts;
                };
                QCOMPARE(outcome(false), outcome(true));
            }
        }
    }

    void whatCannotBeSavedLeavesTheFile() {
        for (const auto& markup : {u"<?xml version='1.0' encoding='none-such'?><items/>"_qs, u"damaged"_qs,
                                   u"<?xml version='1.0' encoding='SHIFT_JIS'?><items><A>C:\\a</A></items>"_qs,
                                   u"<?xml version='1.0' encoding='ISO-8859-1'?><items><\u0416/></items>"_qs}) {
            Store store(markup);
            QVERIFY(store.Write(own, "old"));
            QVERIFY(!store.IsSaved());
            QCOMPARE(store.Read(own), QByteArray("old"));
        }
        Store store(u"<items><A/></items>"_qs);
        store.document.WriteAttribute(u"/items/A"_qs, {u"a"_qs}, {QString(10'000, u'x')});
        QVERIFY(!store.IsSaved()); // it could not be loaded again
        QVERIFY(!store.Exists(own));
    }
};

QTEST_GUILESS_MAIN(TestClsXml)
#include "test_clsxml.moc"
