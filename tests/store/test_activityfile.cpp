// The activity file on disk: where it is, how it is created, saved and repaired without losing anything.
#include "ScratchStore.h"
#include "StoreError.h"
#include "SystemWorld.h"

#include <QtTest>

namespace {

const QByteArray emptyFile = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n";
const QByteArray oneActivity = "<items><A><activ>1</activ></A></items>";
const QString A = u"A"_qs;
const QString own = u"a.kvd"_qs;
const QString other = u"b.kvd"_qs;

/// Why a save was refused, "" if it was not.
QString refusal(ActivityFile& file) {
    try {
        file.Save();
    } catch (const StoreError& error) {
        return error.Text();
    }
    return {};
}

/// A damaged file; the current directory is "cwd" and the user agrees to the repair.
struct DamagedStore : ScratchStore {
    DamagedStore() : ScratchStore("damaged") {
        QDir::setCurrent(Path(u"cwd"_qs));
        prompter.yes = true;
    }
    ~DamagedStore() { QDir::setCurrent(before); } // not every system removes it while it is current
    DamagedStore(const DamagedStore&) = delete;
    DamagedStore& operator=(const DamagedStore&) = delete;

    const QString before = QDir::currentPath();
};

} // namespace

class TestActivityFile : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void defaultFile() {
        /// Where it is made, or found among those that are there already.
        const auto place = [](const QStringList& existing, bool hasProgramFolder = true, bool isInstalled = false) {
            ScratchStore store;
            store.places.isInstalled = isInstalled;
            for (const QString& name : existing)
                store.Write(name, oneActivity);
            // A folder that is not there cannot be written to either, and that holds for root as well.
            if (!hasProgramFolder)
                QDir(store.Path(u"program"_qs)).removeRecursively();
            ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
            const QString found = QDir(store.Path()).relativeFilePath(file.CurrentPath());
            const bool isThere = file.EnsureDefaultExists() && file.IsDefault();
            const bool isKept = store.Read(found) == (existing.isEmpty() ? emptyFile : oneActivity) &&
                                (existing.isEmpty() || store.Entries(u"program"_qs).size() == existing.size());
            return isThere && isKept ? found : u"not "_qs + found;
        };
        QCOMPARE(place({}), u"program/Kalvenor.kvd"_qs);
        const bool hasTwins = SystemWorld::CanMake("case twins");
        const QStringList spelt{u"program/KALVENOR.KVD"_qs, u"program/kalvenor.KVD"_qs};
        QCOMPARE(place(hasTwins ? spelt : spelt.first(1)), spelt.first());
        QCOMPARE(place({}, false), u"data/Kalvenor.kvd"_qs);
        QCOMPARE(place({}, true, true), u"data/Kalvenor.kvd"_qs); // root could write below /usr
    }

    void changedFileIsNotOverwritten() {
        const QByteArray sameSize = QByteArray(oneActivity).replace("1", "7");
        // By another program, after the load; as a new file, or written into the old one.
        for (const auto& [bytes, time, isReplaced] : {std::tuple(QByteArray("<items><B/></items>"), 1000, false),
                                                      {sameSize, 2000, false},
                                                      {sameSize, 1000, true}}) {
            ScratchStore store(oneActivity);
            const auto setTime = [](const QString& file, int seconds) {
                QFile opened(file);
                return opened.open(QIODevice::ReadWrite) &&
                       opened.setFileTime(QDateTime::fromSecsSinceEpoch(seconds), QFileDevice::FileModificationTime);
            };
            QVERIFY(setTime(store.Path(own), 1000) && store.file.Load());
            const QString& changed = isReplaced ? other : own;
            QVERIFY(store.Write(changed, bytes) && setTime(store.Path(changed), time));
            if (isReplaced)
                fs::rename(store.Native(other), store.Native(own));
            store.file.Write(A, ActivityField::Active, u"0"_qs);
            QCOMPARE(refusal(store.file), store.texts[Text::FileChangedOutside]);
            QCOMPARE(store.Read(own), bytes);
            // The change is still in memory until the user loads again.
            QCOMPARE(store.file.Read(A, ActivityField::Active), u"0"_qs);
            if (store.file.Load())
                QCOMPARE(refusal(store.file), QString());
        }
    }

    void savesFollowEachOther() {
        ScratchStore store(oneActivity);
        QVERIFY(store.file.Load());
        for (const char* value : {"0", "1", "0"}) {
            store.file.Write(A, ActivityField::Active, QLatin1String(value));
            QCOMPARE(refusal(store.file), QString());
        }
        QVERIFY(store.Read(own).contains("<activ>0</activ>"));
        // A file that has gone holds nothing that could be overwritten: the activities in memory are all there is.
        QVERIFY(QFile::remove(store.Path(own)));
        QCOMPARE(refusal(store.file), QString());
        QVERIFY(store.file.Load());
    }

    void unloadedDocumentSavesNothing() {
        for (const char* bytes : {"damaged", "<things/>"}) {
            ScratchStore store(bytes);
            QVERIFY(!store.file.Load());
            QCOMPARE(refusal(store.file), store.texts[Text::FileNotLoaded]);
            QVERIFY_THROWS_EXCEPTION(StoreError, store.file.ChangeAndSave([] { QFAIL("nothing to change"); }));
            QVERIFY_THROWS_EXCEPTION(StoreError, store.file.SaveAs(store.Path(other)));
            QCOMPARE(store.Read(own), QByteArray(bytes));
            QVERIFY(!store.Exists(other));
        }
    }

    void anotherFileIsNotOverwrittenUnloaded() {
        ScratchStore store(oneActivity);
        QVERIFY(store.Write(other, emptyFile));
        QVERIFY(store.file.Load());
        store.file.SetCurrentPath(store.Path(other));
        QCOMPARE(refusal(store.file), store.texts[Text::FileChangedOutside]);
        QCOMPARE(store.Read(other), emptyFile);
        store.file.SetCurrentPath(store.Path(own)); // back: it is still the one that was loaded
        QCOMPARE(refusal(store.file), QString());
    }

    void repairTakesTheFirstFreeName() {
        DamagedStore store;
        QMap<QString, QByteArray> kept;
        for (const auto& moved : {u"a.OLD"_qs, u"a.OLD1"_qs, u"a.OLD2"_qs}) {
            kept[moved] = "<items><A><sourcedir>/only/copy/" + moved.toLatin1() + "</sourcedir></A>";
            QVERIFY(store.Write(own, kept[moved]));
            QVERIFY(!store.file.Load());
            store.prompter.yes = false;
            QVERIFY(!store.file.OfferRepair());
            QCOMPARE(store.Read(own), kept[moved]);
            store.prompter.yes = true;
            QVERIFY(store.file.OfferRepair());
            QCOMPARE(store.Read(own), emptyFile);
            for (auto old = kept.cbegin(); old != kept.cend(); ++old)
                QCOMPARE(store.Read(u"cwd/"_qs + old.key()), old.value());
            QVERIFY(store.file.Load());
        }
        QCOMPARE(store.Entries(u"cwd"_qs), QStringList(kept.keys()));
        QCOMPARE(store.prompter.shown.size(), 6U);
        QCOMPARE(store.prompter.shown[0].text, store.texts[Text::FileCorrupted]);
    }

    void failedMoveLeavesTheDamagedFile() {
        DamagedStore store;
        const auto obstacle = SystemWorld::PreventMove(store.Native(own));
        QVERIFY(!store.file.OfferRepair());
        QCOMPARE(store.Read(own), QByteArray("damaged"));
        QVERIFY(store.prompter.shown.back().text.startsWith(store.texts[Text::FileNotMovedAway]));
    }

    void onlyADamagedFileIsRepaired() {
        for (const bool isDanglingLink : {false, true}) {
            DamagedStore store;
            store.file.SetCurrentPath(store.Path(u"none/a.kvd"_qs));
            QVERIFY(!isDanglingLink || QDir(store.Path()).mkdir(u"none"_qs));
            if (isDanglingLink && !SystemWorld::Link(store.Native(u"nowhere"_qs), store.Native(u"none/a.kvd"_qs)))
                QSKIP("this system makes no links");
            QVERIFY(!store.file.OfferRepair());
            QCOMPARE(store.prompter.shown.size(), 1U);
            QVERIFY(store.prompter.shown[0].text.startsWith(store.texts[Text::FileUnreadable]));
            QVERIFY(!store.Exists(u"none/a.kvd"_qs) && store.Exists(u"none"_qs) == isDanglingLink);
        }
    }

    void tooLargeAFileIsLeftAlone() {
        DamagedStore store;
        const QByteArray large = "<items>" + QByteArray("<A/>").repeated(200'000) + "</items>";
        QVERIFY(store.Write(own, large));
        QVERIFY(!store.file.Load() && !store.file.OfferRepair());
        QCOMPARE(store.prompter.shown.size(), 1U);
        QVERIFY(store.prompter.shown[0].text.startsWith(store.texts[Text::FileTooCostly]));
        QCOMPARE(store.Read(own), large);
    }

    void fileMendedMeanwhileIsNotMoved() {
        DamagedStore store;
        store.prompter.onAsk = [&](const Message&) { QVERIFY(store.Write(own, oneActivity)); };
        QVERIFY(store.file.OfferRepair());
        QCOMPARE(store.Read(own), oneActivity);
        QCOMPARE(store.Entries(u"cwd"_qs), QStringList());
    }

    void linkedFileIsRepairedToo() {
        DamagedStore store;
        if (!SystemWorld::Link(own.toStdU16String(), store.Native(u"link.kvd"_qs)))
            QSKIP("this system makes no links");
        store.file.SetCurrentPath(store.Path(u"link.kvd"_qs));
        QVERIFY(store.file.OfferRepair());
        QCOMPARE(store.Read(u"cwd/link.OLD"_qs), QByteArray("damaged"));
        QCOMPARE(store.Read(own), QByteArray("damaged"));
        QCOMPARE(store.Read(u"link.kvd"_qs), emptyFile);
    }

    void namesThatAreNoneReadNothing() {
        ScratchStore store(oneActivity);
        QVERIFY(store.file.Load());
        for (const char* name : {"", "*", "..", "A/activ", "A|B"}) {
            QCOMPARE(store.file.Read(QLatin1String(name), ActivityField::Active), QString());
            store.file.Write(QLatin1String(name), ActivityField::Active, u"9"_qs);
        }
        QCOMPARE(store.file.Read(A, ActivityField::Active), u"1"_qs);
    }
};

QTEST_GUILESS_MAIN(TestActivityFile)
#include "test_activityfile.moc"
