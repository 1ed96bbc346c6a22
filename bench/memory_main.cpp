// Resident memory that opening a script adds to an empty main window.
//   tarnwick_memory FILE          the real main window and openFile
//   tarnwick_memory --floor FILE  a bare text editor whose highlighter
//                                 gives each line one format: what Qt's
//                                 document, layouts and formats cost alone
// Prints the file's size, the resident size before and after, and the
// growth as a multiple of the file size. For the main window it also
// prints how long that open took: the first in a fresh process, where
// every page the document needs is new to it, unlike the benchmark's
// repeated opens.

#include "devsettings.h"
#include "mainwindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

#include <cstdio>

#include <sys/resource.h>

class MainWindowTestAccess
{
public:
    static void open(MainWindow &w, const QFileInfo &file) { w.openFile(file, false); }
};

namespace {

// VmRSS of this process in bytes, from /proc.
qint64 residentBytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLongLong() * 1024;
    }
    return -1;
}

class FloorHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &text) override
    {
        static const QTextCharFormat format = [] {
            QTextCharFormat f;
            f.setForeground(Qt::darkBlue);
            return f;
        }();
        setFormat(0, int(text.size()), format);
        setCurrentBlockState(1);
    }
};

long minorFaults()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

void report(const char *what, const QFileInfo &file, qint64 before, qint64 after)
{
    const double size = double(file.size());
    std::printf("%s: file %.0f KiB, before %.1f MiB, after %.1f MiB, "
                "growth %.1f MiB = %.1f x the file\n",
                what, size / 1024, double(before) / 1048576, double(after) / 1048576,
                double(after - before) / 1048576, double(after - before) / size);
}

int measureFloor(const QFileInfo &file)
{
    QFile f(file.absoluteFilePath());
    if (!f.open(QIODevice::ReadOnly))
        return 2;
    const QString text = QString::fromUtf8(f.readAll());
    QPlainTextEdit editor;
    editor.resize(1024, 700);
    auto *hl = new FloorHighlighter(editor.document());
    editor.show();
    QCoreApplication::processEvents();
    const qint64 empty = residentBytes();
    editor.setPlainText(text);
    hl->rehighlight();
    QCoreApplication::processEvents();
    report("floor", file, empty, residentBytes());
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const bool floor = argc == 3 && qstrcmp(argv[1], "--floor") == 0;
    if (argc != 2 && !floor) {
        std::fprintf(stderr, "usage: tarnwick_memory [--floor] FILE\n");
        return 2;
    }
    const QFileInfo file(QString::fromLocal8Bit(argv[argc - 1]));
    if (floor)
        return measureFloor(file);
    DevSettings::InitializeAllSettings();

    MainWindow window(nullptr);
    window.show();
    QCoreApplication::processEvents();
    const qint64 empty = residentBytes();

    const long faultsBefore = minorFaults();
    QElapsedTimer clock;
    clock.start();
    MainWindowTestAccess::open(window, file);
    const double opened = double(clock.nsecsElapsed()) / 1e6;
    QCoreApplication::processEvents();
    const double shown = double(clock.nsecsElapsed()) / 1e6;
    const long faults = minorFaults() - faultsBefore;
    const qint64 open = residentBytes();

    report("open", file, empty, open);
    std::printf("open in a fresh process: %.1f ms, %.1f ms until shown, %ld page faults\n",
                opened, shown, faults);
    return 0;
}
