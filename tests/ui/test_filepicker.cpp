// The file dialog: its filters read as they were written, and "*.*" lets every file through.
#include "DialogFilePicker.h"
#include "ModalForm.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QListView>
#include <QTemporaryDir>
#include <QtTest>

class TestFilePicker : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void filters_data() {
        QTest::addColumn<int>("filter");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("files");
        QTest::newRow("logs") << 0 << QStringLiteral("Log file (*.log)") << 1;
        QTest::newRow("all") << 1 << QStringLiteral("All files (*.*)") << 3;
    }
    void filters() {
        QFETCH(int, filter);
        QTemporaryDir folder;
        for (const char* name : {"a.log", "b.txt", "dotless"}) {
            QFile file(folder.filePath(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        WhenOpen<QFileDialog>([&](const QFileDialog& dialog) {
            auto& choice = Find<QComboBox>(dialog, "fileTypeCombo");
            choice.setCurrentIndex(filter);
            Q_EMIT choice.activated(filter);
            QTEST(choice.currentText(), "shown");
            const auto& list = Find<QListView>(dialog, "listView");
            QFETCH(int, files);
            QTRY_COMPARE(list.model()->rowCount(list.rootIndex()), files);
        });
        FileRequest request;
        request.filters = QStringList{QStringLiteral("Log file (*.log)"), QStringLiteral("All files (*.*)")};
        request.folder = folder.path();
        QVERIFY(!DialogFilePicker().SaveFile(request, false));
    }
};

QTEST_MAIN(TestFilePicker)
#include "test_filepicker.moc"
