// The case files of data/*.cases, one row per case, through a real document
// with the real highlighter. data/README describes the format. With
// TARNWICK_REWRITE_CASES=1 the expected sections are rewritten from what
// the analyser does now, for authoring: read the difference before keeping it.

#include "analyserharness.h"
#include "reportkind.h"
#include "testsuite.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>
#include <algorithm>

namespace {

// One fact of a case: lines [at, end] of the file, after edit `step`.
struct Check
{
    int at, end, step;
    int line; // 1-based document line, 0 for the whole document
    QString key, expected;
};

struct Case
{
    QString name;
    QStringList input;
    QStringList edits; // the first is the load
    QList<Check> checks;
};

struct CaseFile
{
    QStringList lines;
    QList<Case> cases;
    QString error;
};

// "\t", "\\" and "\uXXXX" in input lines and edit texts.
QString unescape(const QString &s)
{
    QString out;
    for (int i = 0; i < s.size(); ++i) {
        if (s[i] != QLatin1Char('\\') || i + 1 == s.size()) {
            out += s[i];
        } else if (s[++i] == QLatin1Char('t')) {
            out += QLatin1Char('\t');
        } else if (s[i] == QLatin1Char('u')) {
            out += QChar(char16_t(s.mid(i + 1, 4).toUInt(nullptr, 16)));
            i += 4;
        } else {
            out += s[i];
        }
    }
    return out;
}

// The lines of a text file, without the empty one behind the last line end.
QStringList fileLines(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        *error = QStringLiteral("cannot read ") + path;
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

CaseFile readCases(const QString &path)
{
    static const QRegularExpression fact(QStringLiteral("^(?:(\\d+) )?(\\S+) ?(.*)$"));
    CaseFile f;
    f.lines = fileLines(path, &f.error);
    for (int i = 0; i < f.lines.size() && f.error.isEmpty(); ++i) {
        const QString &l = f.lines.at(i);
        if (l.startsWith(QLatin1String("== "))) {
            f.cases.append({l.mid(3), {}, {QString()}, {}});
            continue;
        }
        if (l.isEmpty() || l.startsWith(QLatin1Char('#')))
            continue;
        if (f.cases.isEmpty()) {
            f.error = QStringLiteral("line %1: text before the first case").arg(i + 1);
            break;
        }
        Case &c = f.cases.last();
        const int step = int(c.edits.size()) - 1;
        if (l == QLatin1String(">") || l.startsWith(QLatin1String("> "))) {
            c.input << unescape(l.mid(2));
        } else if (l.startsWith(QLatin1String("< "))) {
            c.input << fileLines(QStringLiteral(TARNWICK_SOURCE_DIR "/") + l.mid(2), &f.error);
        } else if (l.startsWith(QLatin1String("-- "))) {
            c.edits << l.mid(3);
        } else if (l.startsWith(QLatin1String("reports:"))) {
            const int at = i;
            QStringList reports;
            while (i + 1 < f.lines.size() && f.lines.at(i + 1).startsWith(QLatin1String("  ")))
                reports << f.lines.at(++i).mid(2);
            c.checks << Check{at, i, step, 0, QStringLiteral("reports"), reports.join('\n')};
        } else {
            // A key the runner does not know fails as a wrong fact.
            const QRegularExpressionMatch m = fact.match(l);
            c.checks << Check{i, i, step, m.captured(1).toInt(), m.captured(2), m.captured(3)};
        }
    }
    return f;
}

QString recordField(const CBlockData *r, const QString &key)
{
    QStringList idents;
    for (const Identifier &id : r->idents) {
        QStringList args;
        for (int a : id.argsPos)
            args << QString::number(a);
        idents << id.name
                + QString::asprintf("|%d|%d|%d|%d|", id.start, id.end, id.proppos, id.hasPayload)
                + args.join(QLatin1Char(',')) + QString::asprintf("|%d", id.possibleIdent);
    }
    const auto yesNo = [](bool b) {
        return b ? QStringLiteral("yes") : QStringLiteral("no");
    };
    const char *const types[] = {"none", "alias", "dialog", "event"};
    const char *const groups[] = {"no", "opens", "closes"};
    const bool plainGroup = r->isGroup == (r->groupState != 0) && uint(r->groupState) < 3;
    const QHash<QString, QString> fields = {
        {"type", types[r->blockType & 3]},
        {"name", r->containedBlock},
        {"local", yesNo(r->isLocal)},
        {"pos", QString::number(r->blockPos)},
        {"matchtext", r->matchtext},
        {"multiline", yesNo(r->isMultiLine)},
        {"connected", yesNo(r->isConnected)},
        {"idents", idents.join(QStringLiteral(" ; "))},
        {"group",
         plainGroup ? QString::fromLatin1(groups[r->groupState])
                    : QStringLiteral("mark %1, state %2").arg(r->isGroup).arg(r->groupState)},
    };
    return fields.value(key, QStringLiteral("unknown key `%1'").arg(key));
}

QString actual(AnalyserHarness &h, const Check &k, int emitted, int withdrawn)
{
    if (k.key == QLatin1String("reports")) {
        QStringList out;
        for (const HarnessReport &r : h.reports()) {
            out << QStringLiteral("%1:%2 %3 [%4]")
                        .arg(r.line)
                        .arg(r.col)
                        .arg(reportKindName(r.type), r.block)
                    + (r.message.isEmpty() ? QString() : QLatin1Char(' ') + r.message);
        }
        return out.join(QLatin1Char('\n'));
    }
    if (k.key == QLatin1String("withdrawn"))
        return QString::number(h.withdrawnCount() - withdrawn);
    if (k.key == QLatin1String("emitted"))
        return QString::number(h.emittedCount() - emitted);
    if (k.key == QLatin1String("lines"))
        return QString::number(h.document()->blockCount());
    const int b = k.line - 1;
    const CBlockData *rec = h.record(b);
    if (!rec)
        return QStringLiteral("no line %1").arg(k.line);
    if (k.key == QLatin1String("state")) {
        const int s = h.state(b);
        return s >= 256 ? QStringLiteral("0x%1").arg(s, 0, 16) : QString::number(s);
    }
    if (k.key == QLatin1String("runs"))
        return h.formatRuns(b);
    if (k.key.startsWith(QLatin1String("runs[")) && k.key.endsWith(QLatin1String(":]")))
        return h.formatRuns(b, k.key.mid(5, k.key.size() - 7).toInt(), -1);
    return recordField(rec, k.key);
}

// Applies one edit; returns an error text for an edit it cannot read.
QString applyEdit(QTextDocument *doc, const QString &edit)
{
    static const QRegularExpression form(
        QStringLiteral("^(replace|insert|delete|type|erase|clear) ?(\\d*):?(\\d*|end)\\+?(\\d*)"
                       "(?: >(?: (.*))?)?$"));
    const QRegularExpressionMatch m = form.match(edit);
    const QTextBlock block = doc->findBlockByNumber(m.captured(2).toInt() - 1);
    const QString verb = m.captured(1);
    if (verb == QLatin1String("clear")) {
        doc->clear();
        return {};
    }
    if (!m.hasMatch() || !block.isValid())
        return QStringLiteral("cannot apply");
    // Every edit replaces [start, end) with the text.
    QString text = unescape(m.captured(5));
    int start = block.position();
    int end = start;
    if (verb == QLatin1String("replace")) {
        end = start + block.length() - 1;
    } else if (verb == QLatin1String("insert")) {
        text += QLatin1Char('\n');
    } else if (verb == QLatin1String("delete")) {
        // The line and its line end; the last line takes the one before it.
        end = block.next().isValid() ? block.next().position() : doc->characterCount() - 1;
        start = block.next().isValid() ? start : std::max(0, start - 1);
    } else {
        start += m.captured(3) == QLatin1String("end") ? block.length() - 1 : m.captured(3).toInt();
        end = start + m.captured(4).toInt();
    }
    QTextCursor cur(doc);
    cur.setPosition(start);
    cur.setPosition(end, QTextCursor::KeepAnchor);
    cur.insertText(text);
    return {};
}

// The actual value of every check, in the order of the case, or an error
// of the runner or of the harness's bookkeeping, checked after every step.
QStringList runCase(const Case &c, QString *error)
{
    AnalyserHarness h;
    h.setLines(c.input);
    QStringList out;
    for (int step = 0; step < c.edits.size(); ++step) {
        const int emitted = h.emittedCount();
        const int withdrawn = h.withdrawnCount();
        const QString &edit = c.edits.at(step);
        if (step > 0)
            *error = applyEdit(h.document(), edit);
        if (error->isEmpty())
            *error = h.bookkeepingFault();
        if (!error->isEmpty()) {
            *error = (step ? edit : QStringLiteral("load")) + QStringLiteral(": ") + *error;
            return {};
        }
        for (const Check &k : c.checks) {
            if (k.step == step)
                out << actual(h, k, emitted, withdrawn);
        }
    }
    return out;
}

void rewrite(const QString &path)
{
    const CaseFile f = readCases(path);
    QStringList out = f.lines;
    for (const Case &c : f.cases) {
        QString error;
        const QStringList got = runCase(c, &error);
        for (int n = 0; n < got.size(); ++n) {
            const Check &k = c.checks.at(n);
            QString &line = out[k.at];
            if (k.key == QLatin1String("reports")) {
                line = got.at(n).isEmpty()
                    ? QStringLiteral("reports: none")
                    : QStringLiteral("reports:\n  ") + got.at(n).split('\n').join("\n  ");
                for (int i = k.at + 1; i <= k.end; ++i)
                    out[i] = QStringLiteral("\x01");
            } else {
                line = (k.line ? QString::number(k.line) + QLatin1Char(' ') : QString()) + k.key;
                if (!got.at(n).isEmpty())
                    line += QLatin1Char(' ') + got.at(n);
            }
        }
    }
    out.removeAll(QStringLiteral("\x01"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write((out.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
}

} // namespace

class AnalyserCases : public QObject
{
    Q_OBJECT

private slots:
    void cases_data();
    void cases();
};

void AnalyserCases::cases_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("index");

    const QDir dir(QStringLiteral(TARNWICK_TEST_DATA_DIR));
    const QStringList files = dir.entryList({QStringLiteral("*.cases")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &name : files) {
        const QString path = dir.filePath(name);
        if (qEnvironmentVariableIntValue("TARNWICK_REWRITE_CASES"))
            rewrite(path);
        const CaseFile f = readCases(path);
        QVERIFY2(f.error.isEmpty(), qPrintable(name + QLatin1String(": ") + f.error));
        for (int i = 0; i < f.cases.size(); ++i) {
            QTest::addRow("%s:%s", qPrintable(QFileInfo(name).baseName()),
                          qPrintable(f.cases.at(i).name))
                << path << i;
        }
    }
}

void AnalyserCases::cases()
{
    QFETCH(QString, path);
    QFETCH(int, index);

    const CaseFile f = readCases(path);
    const Case &c = f.cases.at(index);
    QString error;
    const QStringList got = runCase(c, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QStringList wrong;
    for (int n = 0; n < got.size(); ++n) {
        const Check &k = c.checks.at(n);
        if (got.at(n) != k.expected)
            wrong << QStringLiteral("%1:%2:\n  expected: %3\n  actual:   %4")
                         .arg(QFileInfo(path).fileName())
                         .arg(k.at + 1)
                         .arg(k.expected, got.at(n));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

TARNWICK_TEST(AnalyserCases);
#include "tst_cases.moc"
