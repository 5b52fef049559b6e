// The activity file on disk: where it is, how it is created, saved, repaired and cleared. Nothing may be lost on the
// way.
#include "ScratchStore.h"
#include "StoreError.h"

#include <QtTest>
#include <unistd.h>

namespace {

const QByteArray emptyFile = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><items></items>\r\n";
const QByteArray oneActivity = "<items><A><activ>1</activ></A></items>";

QString readActiv(const ActivityFile& file) {
    return file.Read(QStringLiteral("A"), "activ");
}

} // namespace

class TestActivityFile : public QObject {
    Q_OBJECT

    QString m_before = QDir::currentPath();

    static std::unique_ptr<ActivityFile> openAt(ScratchStore& store, const QString& path) {
        auto file =
            std::make_unique<ActivityFile>(store.document, store.files, store.prompter, store.texts, store.places);
        file->SetCurrentPath(path);
        return file;
    }

    static QString refusal(ActivityFile& file) {
        try {
            file.Save();
        } catch (const StoreError& error) {
            return error.Text();
        }
        return {};
    }

  private Q_SLOTS:
    void cleanup() { QDir::setCurrent(m_before); }

    void defaultFile_data() {
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<bool>("isProgramFolderThere");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const QStringList& existing, bool isThere, const char* expected) {
            QTest::newRow(name) << existing << isThere << QString::fromLatin1(expected);
        };
        row("nothing yet", {}, true, "program/Kalvenor.kvd");
        row("a variant", {QStringLiteral("program/kALVENOR.KVD")}, true, "program/kALVENOR.KVD");
        row("both", {QStringLiteral("program/kalvenor.kvd"), QStringLiteral("program/Kalvenor.kvd")}, true,
            "program/Kalvenor.kvd");
        row("no place", {}, false, "data/Kalvenor.kvd");
    }
    void defaultFile() {
        QFETCH(QStringList, existing);
        QFETCH(bool, isProgramFolderThere);
        QFETCH(QString, expected);
        ScratchStore store;
        for (const QString& name : existing)
            QVERIFY(ScratchStore::Put(store.folder.filePath(name), oneActivity));
        // A folder that is not there cannot be written to either, and that holds for root as well.
        if (!isProgramFolderThere)
            store.places.programFolder = store.Path("none").toStdString();
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        const QString path = store.folder.filePath(expected);
        QCOMPARE(file.CurrentPath(), path);
        QVERIFY(file.EnsureDefaultExists());
        QVERIFY(file.IsDefault());
        QCOMPARE(ScratchStore::Bytes(path), existing.isEmpty() ? emptyFile : oneActivity);
        QCOMPARE(QDir(store.Path("program")).entryList(QDir::Files).size(),
                 isProgramFolderThere ? std::max<qsizetype>(existing.size(), 1) : 0);
        file.SetCurrentPath(path.toUpper());
        QVERIFY(file.IsDefault());
        QVERIFY(store.prompter.shown.empty());
    }

    void uncreatableDefaultIsTold() {
        ScratchStore store;
        store.places.programFolder = store.Path("none").toStdString();
        QVERIFY(ScratchStore::Put(store.Path("data"), "a file where the folder should be"));
        ActivityFile file(store.document, store.files, store.prompter, store.texts, store.places);
        QVERIFY(!file.EnsureDefaultExists());
        QCOMPARE(store.prompter.shown.size(), 1U);
        QVERIFY(store.prompter.shown[0].text.startsWith(store.texts.Text(436)));
    }

    void changedFileIsNotOverwritten_data() {
        QTest::addColumn<QByteArray>("other"); // by another program, after the load
        QTest::addColumn<bool>("isReplaced");  // as a new file; else written into the old one
        QTest::newRow("rewritten") << QByteArray("<items><B/></items>") << false;
        QTest::newRow("same size") << QByteArray(oneActivity).replace("1", "7") << false;
        QTest::newRow("replaced") << oneActivity << true;
        QTest::newRow("emptied") << QByteArray() << false;
    }
    void changedFileIsNotOverwritten() {
        QFETCH(QByteArray, other);
        QFETCH(bool, isReplaced);
        ScratchStore store;
        const QString path = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(path, oneActivity));
        const auto file = openAt(store, path);
        QVERIFY(file->Load());
        QFile changed(path + (isReplaced ? QStringLiteral(".new") : QString()));
        QVERIFY(changed.open(isReplaced ? QIODevice::WriteOnly : QIODevice::ReadWrite | QIODevice::Truncate));
        changed.write(other);
        QVERIFY(changed.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
        changed.close();
        if (isReplaced)
            QCOMPARE(::rename(qPrintable(changed.fileName()), qPrintable(path)), 0);
        file->Write(QStringLiteral("A"), "activ", QStringLiteral("0"));
        QCOMPARE(refusal(*file), store.texts.Text(432));
        QCOMPARE(ScratchStore::Bytes(path), other);
        // The change is still in memory until the user loads again.
        QCOMPARE(readActiv(*file), QStringLiteral("0"));
        if (!file->Load())
            return;
        QCOMPARE(refusal(*file), QString());
    }

    void savesFollowEachOther() {
        ScratchStore store;
        const QString path = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(path, oneActivity));
        const auto file = openAt(store, path);
        QVERIFY(file->Load());
        for (const char* value : {"0", "1", "0"}) {
            file->Write(QStringLiteral("A"), "activ", QLatin1String(value));
            QCOMPARE(refusal(*file), QString());
        }
        QVERIFY(ScratchStore::Bytes(path).contains("<activ>0</activ>"));
        // A file that has gone holds nothing that could be overwritten: the activities in memory are all there is.
        QVERIFY(QFile::remove(path));
        QCOMPARE(refusal(*file), QString());
        QVERIFY(file->Load());
    }

    void unloadedDocumentSavesNothing_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("damaged") << QByteArray("damaged");
        QTest::newRow("other root") << QByteArray("<things/>");
    }
    void unloadedDocumentSavesNothing() {
        QFETCH(QByteArray, bytes);
        ScratchStore store;
        const QString path = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(path, bytes));
        const auto file = openAt(store, path);
        QVERIFY(!file->Load());
        QCOMPARE(refusal(*file), store.texts.Text(433));
        QVERIFY_THROWS_EXCEPTION(StoreError, file->SaveAs(store.Path("b.kvd")));
        QCOMPARE(ScratchStore::Bytes(path), bytes);
        QVERIFY(!QFile::exists(store.Path("b.kvd")));
    }

    void anotherFileIsNotOverwrittenUnloaded() {
        ScratchStore store;
        QVERIFY(ScratchStore::Put(store.Path("a.kvd"), oneActivity));
        QVERIFY(ScratchStore::Put(store.Path("b.kvd"), emptyFile));
        const auto file = openAt(store, store.Path("a.kvd"));
        QVERIFY(file->Load());
        file->SetCurrentPath(store.Path("b.kvd"));
        QCOMPARE(refusal(*file), store.texts.Text(432));
        QCOMPARE(ScratchStore::Bytes(store.Path("b.kvd")), emptyFile);
        file->SetCurrentPath(store.Path("a.kvd")); // back: it is still the one that was loaded
        QCOMPARE(refusal(*file), QString());
    }

    void exportMakesTheNewFileCurrent() {
        ScratchStore store;
        QVERIFY(ScratchStore::Put(store.Path("a.kvd"), oneActivity));
        QVERIFY(ScratchStore::Put(store.Path("b.kvd"), "to be replaced"));
        const auto file = openAt(store, store.Path("a.kvd"));
        QVERIFY(file->Load());
        QVERIFY_THROWS_EXCEPTION(StoreError, file->SaveAs(store.Path("none/b.kvd")));
        QCOMPARE(file->CurrentPath(), store.Path("a.kvd"));
        file->SaveAs(store.Path("b.kvd"));
        QCOMPARE(file->CurrentPath(), store.Path("b.kvd"));
        QCOMPARE(refusal(*file), QString());
        QVERIFY(file->Load());
        QCOMPARE(ScratchStore::Bytes(store.Path("a.kvd")), oneActivity);
    }

    void repair_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("taken"); // in the current directory
        QTest::addColumn<QString>("moved");
        const auto row = [](const char* name, const QStringList& taken, const char* moved) {
            QTest::addRow("%s %d", name, static_cast<int>(taken.size()))
                << QString::fromLatin1(name) << taken << QString::fromLatin1(moved);
        };
        row("a.b.kvd", {}, "a.b.OLD");
        row("plain", {}, "plain.OLD");
        row("a.kvd", {QStringLiteral("a.OLD")}, "a.OLD1");
        row("a.kvd", {QStringLiteral("a.OLD"), QStringLiteral("a.OLD1")}, "a.OLD2");
    }
    void repair() {
        QFETCH(QString, name);
        QFETCH(QStringList, taken);
        QFETCH(QString, moved);
        ScratchStore store;
        QVERIFY(QDir::setCurrent(store.Path("cwd")));
        for (const QString& other : taken)
            QVERIFY(ScratchStore::Put(other, "precious"));
        const QString path = store.folder.filePath(name);
        const QByteArray damaged = "<items><A><sourcedir>/only/copy</sourcedir></A>";
        QVERIFY(ScratchStore::Put(path, damaged));
        const auto file = openAt(store, path);
        QVERIFY(!file->Load());

        store.prompter.yes = false;
        QVERIFY(!file->OfferRepair());
        QCOMPARE(ScratchStore::Bytes(path), damaged);
        const Message question = store.prompter.shown.at(0);
        QCOMPARE(question.text, store.texts.Text(371));
        QCOMPARE(question.title, store.texts.Text(107));
        QVERIFY(question.icon == MessageIcon::Critical && question.buttons == MessageButtons::YesNo);

        store.prompter.yes = true;
        QVERIFY(file->OfferRepair());
        QCOMPARE(ScratchStore::Bytes(path), emptyFile);
        QCOMPARE(ScratchStore::Bytes(store.Path("cwd/") + moved), damaged);
        for (const QString& other : taken)
            QCOMPARE(ScratchStore::Bytes(other), QByteArray("precious"));
        QVERIFY(file->Load());
        QCOMPARE(store.prompter.shown.size(), 2U);
    }

    void failedMoveLeavesTheDamagedFile() {
        ScratchStore store;
        QVERIFY(QDir::setCurrent(store.Path("cwd")));
        QVERIFY(QDir().rmdir(store.Path("cwd"))); // nothing can be moved into a directory that is gone
        const QString path = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(path, "damaged"));
        const auto file = openAt(store, path);
        store.prompter.yes = true;
        QVERIFY(!file->Load());
        QVERIFY(QFile::exists(path));
        const bool isRepaired = file->OfferRepair();
        QCOMPARE(ScratchStore::Bytes(path), QByteArray("damaged"));
        QVERIFY(!isRepaired);
        QVERIFY(store.prompter.shown.back().text.startsWith(store.texts.Text(435)));
    }

    void missingFileIsCreatedAnew_data() {
        QTest::addColumn<bool>("isDanglingLink");
        QTest::newRow("nothing there") << false;
        QTest::newRow("a link to nowhere") << true; // not ours to replace
    }
    void missingFileIsCreatedAnew() {
        QFETCH(bool, isDanglingLink);
        ScratchStore store;
        const QString path = store.Path("a.kvd");
        if (isDanglingLink)
            QVERIFY(QFile::link(store.Path("nowhere"), path));
        const auto file = openAt(store, path);
        store.prompter.yes = true;
        QCOMPARE(file->OfferRepair(), !isDanglingLink);
        QCOMPARE(store.prompter.shown.size(), isDanglingLink ? 2U : 1U);
        QCOMPARE(file->Load(), !isDanglingLink);
    }

    void fileMendedMeanwhileIsNotMoved() {
        ScratchStore store;
        QVERIFY(QDir::setCurrent(store.Path("cwd")));
        const QString path = store.Path("a.kvd");
        QVERIFY(ScratchStore::Put(path, "damaged"));
        const auto file = openAt(store, path);
        store.prompter.yes = true;
        store.prompter.onAsk = [&](const Message&) { QVERIFY(ScratchStore::Put(path, oneActivity)); };
        QVERIFY(file->OfferRepair());
        QCOMPARE(ScratchStore::Bytes(path), oneActivity);
        QVERIFY(QDir(store.Path("cwd")).isEmpty());
    }

    void linkedFileIsRepairedToo() {
        ScratchStore store;
        QVERIFY(QDir::setCurrent(store.Path("cwd")));
        QVERIFY(ScratchStore::Put(store.Path("real.kvd"), "damaged"));
        QVERIFY(QFile::link(QStringLiteral("real.kvd"), store.Path("link.kvd")));
        const auto file = openAt(store, store.Path("link.kvd"));
        store.prompter.yes = true;
        QVERIFY(file->OfferRepair());
        QCOMPARE(ScratchStore::Bytes(QStringLiteral("link.OLD")), QByteArray("damaged"));
        QCOMPARE(ScratchStore::Bytes(store.Path("real.kvd")), QByteArray("damaged"));
        QCOMPARE(ScratchStore::Bytes(store.Path("link.kvd")), emptyFile);
    }

    void clearAll_data() {
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("current");
        QTest::addColumn<QList<int>>("texts");
        QTest::addColumn<QString>("currentAfter");
        const QString own = QStringLiteral("a.kvd");
        const QString standard = QStringLiteral("program/Kalvenor.kvd");
        QTest::newRow("No") << false << own << QList<int>{269} << own;
        QTest::newRow("own file") << true << own << QList<int>{269, 271} << standard;
        QTest::newRow("default file") << true << standard << QList<int>{269} << standard;
        QTest::newRow("no regular file") << true << QStringLiteral("cwd") << QList<int>{269, 0}
                                         << QStringLiteral("cwd");
    }
    void clearAll() {
        QFETCH(bool, answer);
        QFETCH(QString, current);
        QFETCH(QList<int>, texts);
        QFETCH(QString, currentAfter);
        ScratchStore store;
        QVERIFY(ScratchStore::Put(store.Path("a.kvd"), oneActivity));
        QVERIFY(ScratchStore::Put(store.Path("program/Kalvenor.kvd"), "<items><Standard/></items>"));
        const auto file = openAt(store, store.folder.filePath(current));
        file->Load();
        store.prompter.yes = answer;
        file->ClearAll();
        QCOMPARE(file->CurrentPath(), store.folder.filePath(currentAfter));
        QCOMPARE(store.prompter.shown.size(), static_cast<std::size_t>(texts.size()));
        for (qsizetype i = 0; i < texts.size(); ++i)
            if (texts[i] != 0)
                QCOMPARE(store.prompter.shown[static_cast<std::size_t>(i)].text, store.texts.Text(texts[i]));
        const bool isCleared = current != currentAfter || texts.size() == 1;
        QCOMPARE(QFile::exists(store.Path("a.kvd")), !(answer && current == QLatin1String("a.kvd")));
        if (answer && isCleared)
            QCOMPARE(file->Names(), current == currentAfter ? QStringList() : QStringList{QStringLiteral("Standard")});
    }

    void namesThatAreNoneReadNothing() {
        ScratchStore store;
        QVERIFY(ScratchStore::Put(store.Path("a.kvd"), oneActivity));
        const auto file = openAt(store, store.Path("a.kvd"));
        QVERIFY(file->Load());
        QVERIFY(file->Has(QStringLiteral("A")));
        for (const char* name : {"", "*", ".", "..", "A/activ", "A|B", "a"}) {
            QVERIFY(!file->Has(QLatin1String(name)));
            QCOMPARE(file->Read(QLatin1String(name), "activ"), QString());
            file->Write(QLatin1String(name), "activ", QStringLiteral("9"));
        }
        QCOMPARE(readActiv(*file), QStringLiteral("1"));
    }

    void lockIsOnTheFileItself() {
        ScratchStore store;
        FakeLocks locks;
        QVERIFY(ScratchStore::Put(store.Path("a.kvd"), oneActivity));
        QVERIFY(QFile::link(store.Path("a.kvd"), store.Path("link.kvd")));
        const auto file = openAt(store, store.Path("a.kvd"));
        const auto held = ActivityFile::LockForMonitoring(locks, file->CurrentPath());
        QVERIFY(held);
        file->SetCurrentPath(store.Path("link.kvd"));
        QVERIFY(!ActivityFile::LockForMonitoring(locks, file->CurrentPath()));
        file->SetCurrentPath(store.Path("other.kvd"));
        QVERIFY(ActivityFile::LockForMonitoring(locks, file->CurrentPath()));
    }
};

QTEST_GUILESS_MAIN(TestActivityFile)
#include "test_activityfile.moc"
