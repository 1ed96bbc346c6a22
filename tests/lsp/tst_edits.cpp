// The diagnostics tarnwick-lsp publishes are the reports tarnwick-lint
// gives for the same text, after an open and after any edits.

#include "lspclient.h"
#include "testsuite.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

QString readFile(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// The lint's text form without the path: "LINE:COL: KIND: MESSAGE [BLOCK]".
QStringList lintLines(const QString &path)
{
    QProcess p;
    p.start(QStringLiteral(TARNWICK_LINT_PATH), {path});
    p.waitForFinished(60000);
    QStringList out;
    for (const QString &line :
         QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        out << line.mid(path.size() + 1);
    std::sort(out.begin(), out.end());
    return out;
}

// The diagnostics in the same form: one-based lines, the severity by the
// lint's name for it; a note's message already starts with its kind.
QStringList diagnosticLines(const QJsonArray &diagnostics)
{
    static const char *const names[] = {"", "error", "warning", "info"};
    QStringList out;
    for (const QJsonValue &d : diagnostics) {
        const QJsonObject start = d[QStringLiteral("range")][QStringLiteral("start")].toObject();
        const int severity = d[QStringLiteral("severity")].toInt();
        QString line = QStringLiteral("%1:%2: ").arg(start[QStringLiteral("line")].toInt() + 1)
                           .arg(start[QStringLiteral("character")].toInt());
        if (severity < 4)
            line += QLatin1String(names[severity]) + QStringLiteral(": ");
        line += d[QStringLiteral("message")].toString();
        const QString block = d[QStringLiteral("data")][QStringLiteral("block")].toString();
        if (!block.isEmpty())
            line += QStringLiteral(" [") + block + QLatin1Char(']');
        out << line;
    }
    std::sort(out.begin(), out.end());
    return out;
}

// A client's copy of the text, edited as the protocol says.
int offsetOf(const QString &text, int line, int character)
{
    int at = 0;
    for (int l = 0; l < line; ++l)
        at = text.indexOf(QLatin1Char('\n'), at) + 1;
    return at + character;
}

const QStringList pieces = {
    QStringLiteral("{"), QStringLiteral("}"), QStringLiteral("\n"), QStringLiteral("$calc("),
    QStringLiteral(")"), QStringLiteral(", "), QStringLiteral(" "), QStringLiteral("alias q {\n"),
    QStringLiteral("; todo: t\n"), QStringLiteral("#g on\n"), QStringLiteral("#g end\n"),
    QStringLiteral("/*"), QStringLiteral("*/\n"), QStringLiteral("on *:text:*:#:{"),
    QStringLiteral("echo -a $left(x)"), QStringLiteral("if (%a == 1) {"), QStringLiteral("x"),
    QStringLiteral("dialog d {\n"), QStringLiteral("$chan(#)."), QString()};

} // namespace

class LspEdits : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    int files = 0;

    // The lint's reports for `text` stored under `name`.
    QStringList linted(const QString &text, const QString &name = QStringLiteral("s.mrc"))
    {
        const QString path = dir.filePath(QString::number(++files) + name);
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly) || f.write(text.toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(path));
        f.close();
        return lintLines(path);
    }

private slots:
    void initTestCase() { QVERIFY(dir.isValid()); }

    void openMatchesLint_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("sample") << QStringLiteral(TARNWICK_TEST_DATA_DIR "/sample.mrc");
        QTest::newRow("kinds") << QStringLiteral(TARNWICK_SOURCE_DIR "/tests/lint/data/kinds.mrc");
        QTest::newRow("example") << QStringLiteral(TARNWICK_SOURCE_DIR "/examples/awaykit.mrc");
    }

    void openMatchesLint()
    {
        QFETCH(QString, file);
        LspClient client;
        client.initialize();
        const QStringList expected = lintLines(file);
        QVERIFY(!expected.isEmpty());
        QCOMPARE(diagnosticLines(client.open(QUrl::fromLocalFile(file).toString(), readFile(file))),
                 expected);
    }

    // Each row: a text, the edits of one notification, and the text they
    // make; the diagnostics then are those of that text opened afresh.
    void editsMatchFreshOpen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("changes");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *tag, const QString &name, const QString &before,
                            const char *changes, const QString &after) {
            QTest::newRow(tag) << name << before << QString::fromUtf8(changes) << after;
        };
        const QString mrc = QStringLiteral("s.mrc");
        const QString broken = QStringLiteral("alias x {\n  echo $calc(1 +\n}\n");
        row("insert fixes a line", mrc, broken, "[[1,16,1,16,\")\"]]",
            QStringLiteral("alias x {\n  echo $calc(1 +)\n}\n"));
        row("delete a line", mrc, broken, "[[1,0,2,0,\"\"]]", QStringLiteral("alias x {\n}\n"));
        row("lines above move reports", mrc, broken, "[[0,0,0,0,\"; a\\n; b\\n\"]]",
            "; a\n; b\n" + broken);
        row("line removed above", mrc, "; a\n; b\n" + broken, "[[0,0,1,0,\"\"]]",
            "; b\n" + broken);
        row("multi-line replace", mrc, broken,
            "[[0,6,2,1,\"y {\\n  echo $left(a)\\n  }\\nrem old\"]]",
            QStringLiteral("alias y {\n  echo $left(a)\n  }\nrem old\n"));
        row("several edits", mrc, broken, "[[2,0,2,1,\"\"],[0,8,0,9,\"{ echo $calc(2) }\"]]",
            QStringLiteral("alias x { echo $calc(2) }\n  echo $calc(1 +\n\n"));
        row("after a surrogate pair", mrc,
            QStringLiteral("alias x {\n  echo \U0001F600 $calc(1\n}\n"), "[[1,17,1,17,\")\"]]",
            QStringLiteral("alias x {\n  echo \U0001F600 $calc(1)\n}\n"));
        row("carriage returns", mrc, broken,
            "[[3,0,3,0,\"alias z {\\r\\n  echo $calc(\\r\\n}\\r\\n\"]]",
            broken + QStringLiteral("alias z {\n  echo $calc(\n}\n"));
    }

    void editsMatchFreshOpen()
    {
        QFETCH(QString, name);
        QFETCH(QString, before);
        QFETCH(QString, changes);
        QFETCH(QString, after);
        LspClient client;
        client.initialize();
        const QString uri = QStringLiteral("file:///edited/") + name;
        const QStringList first = diagnosticLines(client.open(uri, before));
        QJsonArray edits;
        for (const QJsonValue &c : QJsonDocument::fromJson(changes.toUtf8()).array()) {
            const QJsonArray e = c.toArray();
            edits.append(LspClient::change(e[0].toInt(), e[1].toInt(), e[2].toInt(),
                                           e[3].toInt(), e[4].toString()));
        }
        const QJsonArray published = client.change(uri, edits);
        const QStringList expected = linted(after, name);
        QVERIFY(first != expected);
        QCOMPARE(diagnosticLines(published), expected);
    }

    // An INI script's diagnostics are the lint's reports on the client's
    // text: each at its script line's place in the file's line, and the
    // requests answer there too. Each row: a key ("[...]" for a section
    // line) and the script text that follows it.
    void iniPlaces()
    {
        QList<QPair<QString, QString>> rows = {
            {"[script]", ""}, {"n0=", "alias x {"}, {"n12345=", "  echo $calc(1 +"},
            {"[second section]", ""}, {"n2=", "  echo $c"}, {"n3=", "  echo $calc(3)"},
            {"", "; todo: t"}, {"n4=", "a=b"}, {"n77=", "}"}};
        const QString uri = QStringLiteral("file:///places/s.ini");
        LspClient client;
        client.initialize();
        for (bool edited : {false, true}) {
            QString raw;
            QStringList script;
            QList<int> rawLine;
            for (const auto &row : std::as_const(rows)) {
                if (!row.first.startsWith(QLatin1Char('['))) {
                    script << row.second;
                    rawLine << int(raw.count(QLatin1Char('\n')));
                }
                raw += row.first + row.second + QLatin1Char('\n');
            }
            const QStringList lines = raw.split(QLatin1Char('\n'));
            QStringList expected;
            for (const QString &report : linted(raw, QStringLiteral("s.ini"))) {
                const QStringList place = report.section(QLatin1Char(':'), 0, 1).split(u':');
                const int n = place[0].toInt() - 1;
                const int column = place[1].toInt();
                // The empty line after the script's last is the file's last.
                const int line = n < script.size() ? rawLine[n] : int(lines.size()) - 1;
                const int at = n < script.size() ? int(lines[line].lastIndexOf(script[n])) : 0;
                expected << QStringLiteral("%1:%2:").arg(line + 1).arg(at + column)
                                + report.section(QLatin1Char(':'), 2);
            }
            std::sort(expected.begin(), expected.end());
            QVERIFY(!expected.isEmpty());
            const QJsonArray published = edited
                ? client.change(uri, {LspClient::change(0, 0, 0, 0, "[top]\nn9=rem x\n")})
                : client.open(uri, raw);
            QCOMPARE(diagnosticLines(published), expected);

            // Asked on "$calc", at the end of "$c", and on the section line,
            // whose number in the script first holds a "$calc" too.
            const int calc = rawLine[script.indexOf(QStringLiteral("  echo $calc(1 +"))];
            const QJsonObject hover = client.at(QStringLiteral("textDocument/hover"), uri, calc,
                                                int(lines[calc].indexOf("$calc")) + 2)[u"result"]
                                          .toObject();
            QCOMPARE(hover[u"range"][u"start"][u"line"].toInt(), calc);
            QCOMPARE(lines[calc].mid(hover[u"range"][u"start"][u"character"].toInt(), 5),
                     QStringLiteral("$calc"));
            const int typed = rawLine[script.indexOf(QStringLiteral("  echo $c"))];
            const QJsonArray items = client.at(QStringLiteral("textDocument/completion"), uri,
                                               typed, int(lines[typed].size()))[u"result"]
                                         .toArray();
            QVERIFY(!items.isEmpty());
            const QJsonObject start = items[0][u"textEdit"][u"range"][u"start"].toObject();
            QCOMPARE(start[u"line"].toInt(), typed);
            QCOMPARE(lines[typed].mid(start[u"character"].toInt()), QStringLiteral("$c"));
            const int section = int(lines.indexOf(QStringLiteral("[second section]")));
            QVERIFY(client.at(QStringLiteral("textDocument/hover"), uri, section, 9)[u"result"]
                        .isNull());
            rows.prepend({"n9=", "rem x"});
            rows.prepend({"[top]", ""});
        }
    }

    // Random edits, seeded, in and across lines: after each, the state of
    // a fresh open of the text, and at the end what the lint says of it.
    void randomEdits_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<QString>("name");
        // An INI script is read again whole after each change and goes
        // into the analysed document as the stretch that differs.
        for (quint32 seed = 1; seed <= 16; ++seed)
            QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed)))
                << seed << QString(seed > 12 ? "random.ini" : "random.mrc");
    }

    void randomEdits()
    {
        QFETCH(quint32, seed);
        QFETCH(QString, name);
        QRandomGenerator random(seed);
        QString text = readFile(QStringLiteral(TARNWICK_TEST_DATA_DIR "/sample.mrc"));
        LspClient client;
        client.initialize();
        const QString uri = QStringLiteral("file:///") + name;
        client.open(uri, text);
        QJsonArray published;
        for (int step = 0; step < 30; ++step) {
            const QStringList lines = text.split(QLatin1Char('\n'));
            const int line = random.bounded(lines.size());
            // One edit in three takes whole lines out, which moves the
            // reports below without analysing their lines again.
            const bool wholeLines = random.bounded(3) == 0;
            const int character = wholeLines ? 0 : random.bounded(int(lines[line].size()) + 1);
            const int from = offsetOf(text, line, character);
            const int length = wholeLines
                ? offsetOf(text, qMin(line + 1 + random.bounded(3), int(lines.size() - 1)), 0)
                    - from
                : random.bounded(qMin(40, int(text.size()) - from) + 1);
            const QString to = text.left(from + length);
            const int endLine = int(to.count(QLatin1Char('\n')));
            const int endCharacter = int(to.size() - to.lastIndexOf(QLatin1Char('\n')) - 1);
            const QString piece = wholeLines ? QString() : pieces[random.bounded(pieces.size())];
            published = client.change(uri, {LspClient::change(line, character, endLine,
                                                              endCharacter, piece)});
            text.replace(from, length, piece);
            QCOMPARE(diagnosticLines(published),
                     diagnosticLines(client.open(QStringLiteral("file:///fresh/") + name, text)));
        }
        if (name.endsWith(QLatin1String(".mrc")))
            QCOMPARE(diagnosticLines(published), linted(text));
    }
};

TARNWICK_TEST(LspEdits);

#include "tst_edits.moc"
