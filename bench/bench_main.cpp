// Benchmarks of the analyser and the paths around it, on generated scripts
// of 20,000 and 40,000 lines.

#include "corpus.h"
#include "devsettings.h"
#include "mainwindow.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"
#include "msltextedit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QProcess>
#include <QSyntaxHighlighter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <benchmark/benchmark.h>

#include <map>

class MainWindowTestAccess
{
public:
    static void open(MainWindow &w, const QFileInfo &file) { w.openFile(file, false); }
    static QTabWidget *tabs(MainWindow &w) { return w.mdiContainer; }
};

namespace {

QTemporaryDir &workDir()
{
    static QTemporaryDir dir;
    return dir;
}

} // namespace

// The corpus file of `lines` lines, generated once per run.
QString corpusFile(int lines)
{
    static std::map<int, QString> made;
    auto it = made.find(lines);
    if (it != made.end())
        return it->second;
    const QString path = workDir().filePath(QStringLiteral("corpus%1.mrc").arg(lines));
    QProcess gen;
    gen.setStandardOutputFile(path);
    gen.start(QStringLiteral(TARNWICK_PYTHON),
              {QStringLiteral(TARNWICK_CORPUS_GENERATOR), QString::number(lines),
               QStringLiteral("1")});
    gen.waitForFinished(-1);
    made[lines] = path;
    return path;
}

QString corpusText(int lines)
{
    QFile f(corpusFile(lines));
    f.open(QIODevice::ReadOnly);
    return QString::fromUtf8(f.readAll());
}

namespace {

// The cost of Qt's highlighting machinery alone.
class FloorHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &) override { setCurrentBlockState(1); }
};

class CountingSink : public QObject
{
public:
    explicit CountingSink(MslSyntaxHighlighter *hl)
    {
        connect(hl, &MslSyntaxHighlighter::updateError, this,
                [this](int, int, QString, QString, QString, int, QString, int &errId) {
                    errId = ++reports;
                },
                Qt::DirectConnection);
    }
    long reports = 0;
};

void setRate(benchmark::State &state, int lines)
{
    state.counters["lines/s"] = benchmark::Counter(double(lines),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}

void BM_floor(benchmark::State &state)
{
    const int lines = int(state.range(0));
    QTextDocument doc;
    doc.setPlainText(corpusText(lines));
    FloorHighlighter hl(&doc);
    for (auto _ : state)
        hl.rehighlight();
    setRate(state, lines);
}

void BM_analyse(benchmark::State &state)
{
    const int lines = int(state.range(0));
    QTextDocument doc;
    doc.setPlainText(corpusText(lines));
    auto *hl = new MslSyntaxHighlighter(&doc);
    CountingSink sink(hl);
    for (auto _ : state)
        hl->rehighlight();
    state.counters["reports"] = double(sink.reports) / double(state.iterations());
    setRate(state, lines);
}

// What opening costs before any analysis: the text set into an editor's
// document, laid out, without a highlighter.
void BM_load(benchmark::State &state)
{
    const int lines = int(state.range(0));
    const QString text = corpusText(lines);
    MslTextEditor editor;
    for (auto _ : state) {
        editor.setPlainText(text);
        state.PauseTiming();
        editor.clear();
        state.ResumeTiming();
    }
    setRate(state, lines);
}

void BM_open(benchmark::State &state)
{
    const int lines = int(state.range(0));
    const QFileInfo file(corpusFile(lines));
    for (auto _ : state) {
        state.PauseTiming();
        auto *w = new MainWindow(nullptr);
        state.ResumeTiming();
        MainWindowTestAccess::open(*w, file);
        state.PauseTiming();
        delete w;
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    setRate(state, lines);
}

// The editor of the corpus opened in `w`, reports and all.
MslTextEditor *openCorpus(MainWindow &w, int lines)
{
    MainWindowTestAccess::open(w, QFileInfo(corpusFile(lines)));
    auto *doc = qobject_cast<MdiChildEditor *>(MainWindowTestAccess::tabs(w)->currentWidget());
    return doc->getEditor();
}

void BM_enter(benchmark::State &state)
{
    const int lines = int(state.range(0));
    MainWindow w(nullptr);
    MslTextEditor *editor = openCorpus(w, lines);
    QTextCursor middle(editor->document()->findBlockByNumber(lines / 2));
    middle.movePosition(QTextCursor::EndOfBlock);
    for (auto _ : state) {
        editor->setTextCursor(middle);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QCoreApplication::sendEvent(editor, &press);
        state.PauseTiming();
        editor->document()->undo();
        middle = QTextCursor(editor->document()->findBlockByNumber(lines / 2));
        middle.movePosition(QTextCursor::EndOfBlock);
        state.ResumeTiming();
    }
}

// One character that changes the state of most later lines: "alias
// proc1 {x" no longer opens a block, so the analysis ripples down the
// document and the dock trades the reports of every line it reaches.
void BM_ripple(benchmark::State &state)
{
    MainWindow w(nullptr);
    MslTextEditor *editor = openCorpus(w, int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        QTextCursor first(editor->document()->firstBlock());
        first.movePosition(QTextCursor::EndOfBlock);
        editor->setTextCursor(first);
        state.ResumeTiming();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QCoreApplication::sendEvent(editor, &press);
        state.PauseTiming();
        editor->document()->undo();
        state.ResumeTiming();
    }
}

#ifdef TARNWICK_LINT_PATH
void BM_lint(benchmark::State &state)
{
    const int lines = int(state.range(0));
    const QString file = corpusFile(lines);
    for (auto _ : state) {
        QProcess lint;
        lint.setStandardOutputFile(QProcess::nullDevice());
        lint.setStandardErrorFile(QProcess::nullDevice());
        lint.start(QStringLiteral(TARNWICK_LINT_PATH), {file});
        lint.waitForFinished(-1);
    }
    setRate(state, lines);
}
BENCHMARK(BM_lint)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

} // namespace

BENCHMARK(BM_floor)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_analyse)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_load)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_open)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_enter)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ripple)->Arg(20000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                     : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    DevSettings::InitializeAllSettings();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
