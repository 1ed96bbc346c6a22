// The whole generated benchmark corpus, analysed by tarnwick-lint and opened
// in a real main window, must give exactly the results recorded in
// tests/app/data/corpus.sums: every line's text, state, formats and record,
// every report (id, line, column, block, type, message) and every row of the
// report dock in its order. The analyser and the dock are tuned for speed
// again and again; this is what proves a tuning changed nothing.
//
// The sums cover chunks of the results, so a failure names the lines that
// changed. After a deliberate change of behaviour, rewrite the file with
//   TARNWICK_UPDATE_CORPUS_SUMS=1 tst_app TestCorpus
// and explain the difference in the commit.

#include "appsupport.h"
#include "testsuite.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

constexpr int CorpusLines = 20000;
constexpr int CorpusSeed = 1;
constexpr int ChunkSize = 500;

QString sumsPath()
{
    return QStringLiteral(TARNWICK_TEST_DATA_DIR "/corpus.sums");
}

// Hashes a list of canonical records chunk by chunk, under names like
// "lines 0-499".
class ChunkSums
{
public:
    void add(const QString &kind, const QList<QByteArray> &records)
    {
        for (int first = 0; first < records.size(); first += ChunkSize) {
            const int last = std::min<int>(first + ChunkSize, records.size()) - 1;
            QCryptographicHash hash(QCryptographicHash::Sha256);
            for (int i = first; i <= last; ++i) {
                hash.addData(records.at(i));
                hash.addData(QByteArrayView("\n"));
            }
            sums.append({QStringLiteral("%1 %2-%3").arg(kind).arg(first).arg(last),
                         QString::fromLatin1(hash.result().toHex())});
        }
        counts.append({kind, records.size()});
    }

    QString text() const
    {
        QString out;
        for (const auto &c : counts)
            out += QStringLiteral("count %1 %2\n").arg(c.first).arg(c.second);
        for (const auto &s : sums)
            out += s.first + QLatin1Char(' ') + s.second + QLatin1Char('\n');
        return out;
    }

private:
    QList<QPair<QString, QString>> sums;
    QList<QPair<QString, int>> counts;
};

QByteArray compact(const QJsonObject &o)
{
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

} // namespace

class TestCorpus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void resultsUnchanged();

private:
    void generateCorpus();
    void addLintResults(ChunkSums &sums);
    void addDockResults(ChunkSums &sums);
    static QList<QByteArray> dockRows(QStandardItemModel *model);

    QTemporaryDir files;
    QTemporaryDir settings;
    QString corpus;
};

void TestCorpus::initTestCase()
{
    QVERIFY(files.isValid());
    QVERIFY(settings.isValid());
    QStandardPaths::setTestModeEnabled(true);
    redirectSettings(settings.path());
    initialiseAnalyser();
    generateCorpus();
}

void TestCorpus::generateCorpus()
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    QVERIFY2(!python.isEmpty(), "python3 is needed to generate the corpus (scripts/bootstrap)");
    corpus = files.filePath(QStringLiteral("corpus.mrc"));
    QProcess gen;
    gen.setStandardOutputFile(corpus);
    gen.start(python,
              {QStringLiteral(TARNWICK_SOURCE_DIR "/bench/gen_corpus.py"),
               QString::number(CorpusLines), QString::number(CorpusSeed)});
    QVERIFY(gen.waitForFinished(120000));
    QCOMPARE(gen.exitStatus(), QProcess::NormalExit);
    QCOMPARE(gen.exitCode(), 0);
    QFile f(corpus);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll().count('\n'), CorpusLines);
}

void TestCorpus::addLintResults(ChunkSums &sums)
{
    QProcess lint;
    lint.start(QStringLiteral(TARNWICK_LINT_PATH), {QStringLiteral("--dump"), corpus});
    QVERIFY(lint.waitForFinished(300000));
    QCOMPARE(lint.exitStatus(), QProcess::NormalExit);
    QCOMPARE(lint.exitCode(), 1); // the corpus holds errors on purpose
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(lint.readAllStandardOutput(), &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    const QJsonObject file = doc.object().value(QStringLiteral("files")).toArray().at(0).toObject();

    QList<QByteArray> lines;
    for (const QJsonValue &line : file.value(QStringLiteral("lines")).toArray())
        lines.append(compact(line.toObject()));
    QCOMPARE(lines.size(), CorpusLines + 1); // the document's empty last line
    sums.add(QStringLiteral("lines"), lines);

    QList<QByteArray> reports;
    for (const QJsonValue &report : file.value(QStringLiteral("reports")).toArray())
        reports.append(compact(report.toObject()));
    QVERIFY(reports.size() > CorpusLines / 20);
    sums.add(QStringLiteral("reports"), reports);
}

QList<QByteArray> TestCorpus::dockRows(QStandardItemModel *model)
{
    QList<QByteArray> rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            const QStandardItem *item = model->item(row, column);
            cells.append(item ? item->text() : QStringLiteral("<none>"));
        }
        rows.append(cells.join(QLatin1Char('\t')).toUtf8());
    }
    return rows;
}

void TestCorpus::addDockResults(ChunkSums &sums)
{
    MainWindow window(nullptr);
    MainWindowTestAccess access(&window);
    access.openFile(corpus, false);
    QCoreApplication::processEvents();
    QCOMPARE(access.editors().size(), 1);
    // The file column holds the absolute path of a temporary folder; the
    // sums must not depend on where that is.
    const QString path = QFileInfo(corpus).absoluteFilePath();
    auto relative = [&path](QList<QByteArray> rows) {
        for (QByteArray &row : rows)
            row.replace(path.toUtf8(), QByteArrayLiteral("corpus.mrc"));
        return rows;
    };
    sums.add(QStringLiteral("debug"), relative(dockRows(access.debug())));
    sums.add(QStringLiteral("messages"), relative(dockRows(access.messages())));
}

void TestCorpus::resultsUnchanged()
{
    ChunkSums sums;
    addLintResults(sums);
    if (QTest::currentTestFailed())
        return;
    addDockResults(sums);
    if (QTest::currentTestFailed())
        return;

    if (qEnvironmentVariableIsSet("TARNWICK_UPDATE_CORPUS_SUMS")) {
        QFile out(sumsPath());
        QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text));
        out.write(sums.text().toUtf8());
        QSKIP("corpus.sums rewritten");
    }

    QFile in(sumsPath());
    QVERIFY2(in.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(sumsPath()));
    const QStringList expected
        = QString::fromUtf8(in.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList actual = sums.text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QStringList differing;
    for (int i = 0; i < std::max(expected.size(), actual.size()); ++i) {
        const QString e = expected.value(i);
        const QString a = actual.value(i);
        if (e != a)
            differing.append(QStringLiteral("expected \"%1\", got \"%2\"").arg(e, a));
    }
    QVERIFY2(differing.isEmpty(), qPrintable(differing.mid(0, 10).join(QLatin1Char('\n'))));
}

TARNWICK_TEST(TestCorpus);
#include "tst_corpus.moc"
