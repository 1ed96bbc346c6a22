#include "testsuite.h"

#ifdef QT_WIDGETS_LIB
#include <QApplication>
#else
#include <QGuiApplication>
#endif
#include <QByteArray>
#include <QTest>
#include <QVector>
#include <cstdio>
#include <memory>

namespace {

struct Entry
{
    const char *name;
    TestSuite::Factory make;
};

QVector<Entry> &registry()
{
    static QVector<Entry> entries;
    return entries;
}

} // namespace

bool TestSuite::add(const char *name, Factory make)
{
    registry().append({name, make});
    return true;
}

int main(int argc, char **argv)
{
    // A suite that links no widgets runs on the bare GUI application, as
    // the lint and the language server do.
#ifdef QT_WIDGETS_LIB
    QApplication app(argc, argv);
#else
    QGuiApplication app(argc, argv);
#endif
    app.setAttribute(Qt::AA_Use96Dpi, true);

    // With a class name first, run that class alone and hand the rest of the
    // arguments to QtTest (a function name, -v2, ...).
    const QByteArray only = argc > 1 && argv[1][0] != '-' ? QByteArray(argv[1]) : QByteArray();
    QVector<char *> rest{argv[0]};
    for (int i = only.isEmpty() ? 1 : 2; i < argc; ++i)
        rest << argv[i];

    int failed = 0;
    bool found = only.isEmpty();
    for (const Entry &entry : registry()) {
        if (!only.isEmpty() && only != entry.name)
            continue;
        found = true;
        std::unique_ptr<QObject> test(entry.make());
        failed += QTest::qExec(test.get(), rest.size(), rest.data());
    }
    if (!found) {
        std::fprintf(stderr, "no test class named %s\n", only.constData());
        return 2;
    }
    return failed == 0 ? 0 : 1;
}
