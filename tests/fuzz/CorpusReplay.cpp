#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

// Goes over the inputs that are kept for one target: those that once did harm, and those that reach each part of the
// code.
class CorpusReplay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        // Most of the inputs are damaged, and complained of.
        qInstallMessageHandler(dropMessage);
    }

    void keptInputDoesNoHarm_data() {
        QTest::addColumn<QString>("path");
        const QDir corpus(QStringLiteral(ZELMO_CORPUS));
        const QFileInfoList files = corpus.entryInfoList(QDir::Files, QDir::Name);
        QVERIFY2(!files.isEmpty(), "nothing is kept in " ZELMO_CORPUS);
        for (const QFileInfo& file : files)
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
    void keptInputDoesNoHarm() {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QFile::ReadOnly));
        const QByteArray bytes = file.readAll();
        QCOMPARE(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                        static_cast<std::size_t>(bytes.size())),
                 0);
    }
};

QTEST_MAIN(CorpusReplay)
#include "CorpusReplay.moc"
