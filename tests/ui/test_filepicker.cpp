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
    void filters() {
        QTemporaryDir folder;
        for (const char* name : {"a.log", "b.txt", "dotless"})
            QVERIFY(QFile(folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
        FileRequest request;
        request.filters = QStringList{u"Log file (*.log)"_qs, u"All files (*.*)"_qs};
        request.folder = folder.path();
        WhenOpen<QFileDialog>([&](const QFileDialog& dialog) {
            auto& choice = Find<QComboBox>(dialog, "fileTypeCombo");
            const auto& list = Find<QListView>(dialog, "listView");
            for (const int filter : {0, 1}) {
                choice.setCurrentIndex(filter);
                Q_EMIT choice.activated(filter);
                QCOMPARE(choice.currentText(), request.filters[filter]);
                QTRY_COMPARE(list.model()->rowCount(list.rootIndex()), filter == 0 ? 1 : 3);
            }
        });
        QVERIFY(!DialogFilePicker().SaveFile(request, false));
    }
};

QTEST_MAIN(TestFilePicker)
#include "test_filepicker.moc"
