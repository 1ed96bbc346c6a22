// tarnwick-lint run as a process on real files: its reports must be those
// of the analyser in a document, printed in each form, with the right
// exit status whatever the files hold.

#include "analyserharness.h"
#include "devsettings.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QtTest>

namespace {

struct Run
{
    int exitCode = -1;
    QProcess::ExitStatus status = QProcess::CrashExit;
    QString out;
    QString err;
};

Run runLint(const QStringList &args, const QProcessEnvironment &env = QProcessEnvironment(),
            const QString &workingDirectory = QString())
{
    QProcess p;
    if (!env.isEmpty())
        p.setProcessEnvironment(env);
    if (!workingDirectory.isEmpty())
        p.setWorkingDirectory(workingDirectory);
    p.start(QStringLiteral(TARNWICK_LINT_PATH), args);
    Run r;
    if (!p.waitForFinished(120000)) {
        p.kill();
        p.waitForFinished();
        return r;
    }
    r.exitCode = p.exitCode();
    r.status = p.exitStatus();
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

QStringList outLines(const Run &r)
{
    return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString kind(int type)
{
    switch (type) {
    case 1:
        return QStringLiteral("info");
    case 2:
        return QStringLiteral("warning");
    case 3:
        return QStringLiteral("error");
    case 10:
    case 12:
        return QStringLiteral("note");
    case 11:
        return QStringLiteral("todo");
    case 13:
        return QStringLiteral("hack");
    case 14:
        return QStringLiteral("xxx");
    case 15:
        return QStringLiteral("fixme");
    default:
        return QStringLiteral("type%1").arg(type);
    }
}

// The line the lint prints for a report of the in-process analyser.
QString expectedLine(const QString &path, const HarnessReport &r)
{
    QString s = QStringLiteral("%1:%2:%3: %4: %5").arg(path).arg(r.line).arg(r.col).arg(kind(r.type), r.message);
    if (!r.block.isEmpty())
        s += QStringLiteral(" [%1]").arg(r.block);
    return s;
}

QJsonObject parseJson(const Run &r)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(r.out.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError)
        qWarning() << "not JSON:" << error.errorString() << r.out.left(200);
    return doc.object();
}

} // namespace

class TestLint : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;

    QString write(const QString &name, const QByteArray &content)
    {
        const QString path = dir.filePath(name);
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(path));
        f.write(content);
        return QFileInfo(path).absoluteFilePath();
    }

private slots:
    void initTestCase();
    void textMatchesAnalyser_data();
    void textMatchesAnalyser();
    void jsonMatchesText();
    void dumpMatchesDocument();
    void dumpNamesFormatsAndRecords();
    void iniFiles_data();
    void iniFiles();
    void idsSharedAcrossFiles();
    void sameFileTwiceCheckedOnce();
    void exitCodes_data();
    void exitCodes();
    void unreadableAmongReadable();
    void unreadablePermissions();
    void badContentNeverCrashes_data();
    void badContentNeverCrashes();
    void runsWithoutDisplay();
    void helpAndVersion();
};

void TestLint::initTestCase()
{
    QVERIFY(dir.isValid());
    AnalyserHarness::ensureSettings();
}

void TestLint::textMatchesAnalyser_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("clean alias") << QStringLiteral("alias x {\n  echo -a hi\n}\n");
    QTest::newRow("unclosed identifier")
        << QStringLiteral("alias foo {\n  echo hi $calc(1 +\n}\n");
    QTest::newRow("notes") << QStringLiteral(
        "alias n {\n  ; todo: one\n  ; fixme: two\n  ; hack three\n  ; xxx four\n}\n");
    QTest::newRow("rem and errors")
        << QStringLiteral("rem old comment\nalias a {\n  if (1 == 1 { echo x }\n}\nalias\n");
    QTest::newRow("event and dialog") << QStringLiteral(
        "on *:TEXT:*hi*:#:{ msg $chan hello }\ndialog d {\n  title \"t\"\n  size -1 -1 10 10\n}\n");
    QTest::newRow("empty") << QString();
}

// The text form lists, in id order, exactly the reports that the analyser
// leaves in a document after the editor's two passes.
void TestLint::textMatchesAnalyser()
{
    QFETCH(QString, script);
    const QString path = write(QStringLiteral("text.mrc"), script.toUtf8());

    AnalyserHarness h;
    h.setText(script);
    QStringList expected;
    int errors = 0;
    for (const HarnessReport &r : h.reports()) {
        expected << expectedLine(path, r);
        errors += r.type == 3;
    }

    const Run run = runLint({path});
    QCOMPARE(run.status, QProcess::NormalExit);
    QCOMPARE(outLines(run), expected);
    QCOMPARE(run.exitCode, errors ? 1 : 0);
    // The summary counts what was printed.
    QVERIFY2(run.err.contains(QStringLiteral("%1 error").arg(errors)), qPrintable(run.err));
    QVERIFY(run.err.contains(QLatin1String("in 1 file")));
}

void TestLint::jsonMatchesText()
{
    const QString script = QStringLiteral(
        "alias foo {\n  echo $calc(1 +\n  ; todo: later\n}\nrem x\n");
    const QString path = write(QStringLiteral("json.mrc"), script.toUtf8());
    AnalyserHarness h;
    h.setText(script);
    QVERIFY(h.reports().size() >= 3);

    const Run run = runLint({QStringLiteral("--json"), path});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject root = parseJson(run);
    const QJsonArray files = root.value(QLatin1String("files")).toArray();
    QCOMPARE(files.size(), 1);
    const QJsonObject file = files.at(0).toObject();
    QCOMPARE(file.value(QLatin1String("path")).toString(), path);
    QVERIFY(!file.contains(QLatin1String("lines")));
    const QJsonArray reports = file.value(QLatin1String("reports")).toArray();
    QCOMPARE(reports.size(), h.reports().size());
    for (int i = 0; i < reports.size(); ++i) {
        const QJsonObject r = reports.at(i).toObject();
        const HarnessReport &e = h.reports().at(i);
        QCOMPARE(r.value(QLatin1String("id")).toInt(), e.id);
        QCOMPARE(r.value(QLatin1String("line")).toInt(), e.line);
        QCOMPARE(r.value(QLatin1String("col")).toInt(), e.col);
        QCOMPARE(r.value(QLatin1String("type")).toInt(), e.type);
        QCOMPARE(r.value(QLatin1String("block")).toString(), e.block);
        QCOMPARE(r.value(QLatin1String("message")).toString(), e.message);
    }
}

// Every line's state, formats and record as the document holds them.
void TestLint::dumpMatchesDocument()
{
    const QString script = QStringLiteral(
        "alias -l foo {\n  var %a = $len($1) | echo -a %a\n  if (%a > 1) { return $true }\n}\n"
        "#grp on\non *:TEXT:*:#:{ echo $nick }\n#grp end\n/* note\n*/\n");
    const QString path = write(QStringLiteral("dump.mrc"), script.toUtf8());
    AnalyserHarness h;
    h.setText(script);

    const Run run = runLint({QStringLiteral("--json"), QStringLiteral("--dump"), path});
    QCOMPARE(run.status, QProcess::NormalExit);
    const QJsonArray lines = parseJson(run)
                                 .value(QLatin1String("files")).toArray().at(0).toObject()
                                 .value(QLatin1String("lines")).toArray();
    QCOMPARE(lines.size(), h.document()->blockCount());
    for (int b = 0; b < lines.size(); ++b) {
        const QJsonObject line = lines.at(b).toObject();
        const QTextBlock block = h.document()->findBlockByNumber(b);
        QCOMPARE(line.value(QLatin1String("line")).toInt(), b + 1);
        QCOMPARE(line.value(QLatin1String("text")).toString(), block.text());
        QCOMPARE(line.value(QLatin1String("state")).toInt(), h.state(b));

        const auto ranges = h.formats(b);
        const QJsonArray formats = line.value(QLatin1String("formats")).toArray();
        QCOMPARE(formats.size(), ranges.size());
        for (int i = 0; i < ranges.size(); ++i) {
            const QJsonObject f = formats.at(i).toObject();
            QCOMPARE(f.value(QLatin1String("start")).toInt(), ranges.at(i).start);
            QCOMPARE(f.value(QLatin1String("length")).toInt(), ranges.at(i).length);
            QVERIFY(!f.value(QLatin1String("format")).toString().isEmpty());
        }

        const CBlockData *data = h.record(b);
        const QJsonValue record = line.value(QLatin1String("record"));
        if (!data) {
            QVERIFY(record.isNull());
            continue;
        }
        const QJsonObject rec = record.toObject();
        QCOMPARE(rec.value(QLatin1String("blockType")).toInt(), data->blockType);
        QCOMPARE(rec.value(QLatin1String("isLocal")).toBool(), data->isLocal);
        QCOMPARE(rec.value(QLatin1String("containedBlock")).toString(), data->containedBlock);
        QCOMPARE(rec.value(QLatin1String("blockPos")).toInt(), data->blockPos);
        QCOMPARE(rec.value(QLatin1String("isMultiLine")).toBool(), data->isMultiLine);
        QCOMPARE(rec.value(QLatin1String("isGroup")).toBool(), data->isGroup);
        QCOMPARE(rec.value(QLatin1String("groupState")).toInt(), data->groupState);
        QCOMPARE(rec.value(QLatin1String("matchtext")).toString(), data->matchtext);
        const QJsonArray idents = rec.value(QLatin1String("idents")).toArray();
        QCOMPARE(idents.size(), data->idents.size());
        for (int i = 0; i < idents.size(); ++i) {
            const QJsonObject id = idents.at(i).toObject();
            const Identifier &e = data->idents.at(i);
            QCOMPARE(id.value(QLatin1String("name")).toString(), e.name);
            QCOMPARE(id.value(QLatin1String("start")).toInt(), e.start);
            QCOMPARE(id.value(QLatin1String("end")).toInt(), e.end);
            QCOMPARE(id.value(QLatin1String("proppos")).toInt(), e.proppos);
            QCOMPARE(id.value(QLatin1String("hasPayload")).toBool(), e.hasPayload);
            QCOMPARE(id.value(QLatin1String("possibleIdent")).toBool(), e.possibleIdent);
            QVector<int> args;
            for (const QJsonValue &v : id.value(QLatin1String("argsPos")).toArray())
                args << v.toInt();
            QCOMPARE(args, e.argsPos);
        }
    }
}

// Format names and records of a small alias, spelled out.
void TestLint::dumpNamesFormatsAndRecords()
{
    const QString path =
        write(QStringLiteral("small.mrc"), "alias -l foo {\n  echo $mid(abc,1)\n}\n");
    const Run run = runLint({QStringLiteral("--dump"), path});
    QCOMPARE(run.exitCode, 0);
    const QJsonArray lines = parseJson(run)
                                 .value(QLatin1String("files")).toArray().at(0).toObject()
                                 .value(QLatin1String("lines")).toArray();
    QCOMPARE(lines.size(), 4);

    const QJsonObject header = lines.at(0).toObject();
    const QJsonObject rec = header.value(QLatin1String("record")).toObject();
    QCOMPARE(rec.value(QLatin1String("blockType")).toInt(), int(CBlockData::Alias));
    QCOMPARE(rec.value(QLatin1String("isLocal")).toBool(), true);
    QCOMPARE(rec.value(QLatin1String("containedBlock")).toString(), QStringLiteral("foo"));
    QCOMPARE(rec.value(QLatin1String("blockPos")).toInt(), 9);
    QCOMPARE(rec.value(QLatin1String("isMultiLine")).toBool(), true);
    QStringList names;
    for (const QJsonValue &f : header.value(QLatin1String("formats")).toArray())
        names << f.toObject().value(QLatin1String("format")).toString();
    QVERIFY2(names.startsWith(QStringLiteral("aliasFmt")), qPrintable(names.join(' ')));
    QVERIFY2(names.contains(QStringLiteral("aliasNameFmt")), qPrintable(names.join(' ')));
    QCOMPARE(names.last(), QStringLiteral("ctrlFmt"));

    const QJsonObject body = lines.at(1).toObject();
    QStringList bodyNames;
    for (const QJsonValue &f : body.value(QLatin1String("formats")).toArray())
        bodyNames << f.toObject().value(QLatin1String("format")).toString();
    QVERIFY2(bodyNames.startsWith(QStringLiteral("cmdFmt")), qPrintable(bodyNames.join(' ')));
    QVERIFY2(bodyNames.contains(QStringLiteral("identFmt")), qPrintable(bodyNames.join(' ')));
    const QJsonArray idents =
        body.value(QLatin1String("record")).toObject().value(QLatin1String("idents")).toArray();
    QCOMPARE(idents.size(), 1);
    const QJsonObject mid = idents.at(0).toObject();
    QCOMPARE(mid.value(QLatin1String("name")).toString(), QStringLiteral("$mid"));
    QCOMPARE(mid.value(QLatin1String("start")).toInt(), 7);
    QCOMPARE(mid.value(QLatin1String("hasPayload")).toBool(), true);
    QCOMPARE(mid.value(QLatin1String("argsPos")).toArray(), QJsonArray({15}));

    // The closing bracket leaves the block state of a top-level line.
    QVERIFY(lines.at(2).toObject().value(QLatin1String("state")).toInt()
            != header.value(QLatin1String("state")).toInt());
}

void TestLint::iniFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("lower") << QStringLiteral("script.ini");
    QTest::newRow("upper") << QStringLiteral("SCRIPT.INI");
    QTest::newRow("mixed") << QStringLiteral("Script.Ini");
    QTest::newRow("bare suffix") << QStringLiteral(".ini");
}

// INI scripts are read in their INI form: sections dropped, keys cut.
void TestLint::iniFiles()
{
    QFETCH(QString, name);
    const QByteArray ini = "[script]\nn0=alias x {\nn1=  echo $calc(1 +\n\nn2=}\nn3=a=b\n";
    const QString path = write(name, ini);
    const QString asLoaded = QStringLiteral("alias x {\n  echo $calc(1 +\n\n}\na=b\n");
    AnalyserHarness h;
    h.setText(asLoaded);
    QVERIFY(!h.reports().isEmpty());
    QStringList expected;
    for (const HarnessReport &r : h.reports())
        expected << expectedLine(path, r);

    const Run run = runLint({path});
    QCOMPARE(outLines(run), expected);

    const Run dump = runLint({QStringLiteral("--dump"), path});
    const QJsonArray lines = parseJson(dump)
                                 .value(QLatin1String("files")).toArray().at(0).toObject()
                                 .value(QLatin1String("lines")).toArray();
    QStringList texts;
    for (const QJsonValue &l : lines)
        texts << l.toObject().value(QLatin1String("text")).toString();
    QCOMPARE(texts, asLoaded.split(QLatin1Char('\n')));

    // A name that only contains ".ini" is a plain script.
    const QString bak = write(name + QStringLiteral(".bak"), ini);
    const Run plain = runLint({QStringLiteral("--dump"), bak});
    const QJsonArray plainLines = parseJson(plain)
                                      .value(QLatin1String("files")).toArray().at(0).toObject()
                                      .value(QLatin1String("lines")).toArray();
    QCOMPARE(plainLines.at(0).toObject().value(QLatin1String("text")).toString(),
             QStringLiteral("[script]"));
}

// Ids run on from file to file as in one dock, and each file's reports
// are those it has alone.
void TestLint::idsSharedAcrossFiles()
{
    const QString a = write(QStringLiteral("ids-a.mrc"),
                            "alias a {\n  echo $calc(1 +\n  ; todo: a\n}\n");
    const QString b = write(QStringLiteral("ids-b.mrc"),
                            "alias b {\n  ; fixme: b\n  echo $calc(2 +\n}\nrem b\n");
    const Run alone = runLint({QStringLiteral("--json"), b});
    const Run both = runLint({QStringLiteral("--json"), a, b});
    const QJsonArray files = parseJson(both).value(QLatin1String("files")).toArray();
    QCOMPARE(files.size(), 2);

    auto idsOf = [](const QJsonObject &file) {
        QVector<int> ids;
        for (const QJsonValue &r : file.value(QLatin1String("reports")).toArray())
            ids << r.toObject().value(QLatin1String("id")).toInt();
        return ids;
    };
    auto withoutIds = [](const QJsonObject &file) {
        QStringList out;
        for (const QJsonValue &v : file.value(QLatin1String("reports")).toArray()) {
            QJsonObject r = v.toObject();
            r.remove(QLatin1String("id"));
            out << QString::fromUtf8(QJsonDocument(r).toJson(QJsonDocument::Compact));
        }
        return out;
    };
    const QJsonObject fa = files.at(0).toObject();
    const QJsonObject fb = files.at(1).toObject();
    const QJsonObject fbAlone = parseJson(alone).value(QLatin1String("files")).toArray().at(0).toObject();
    const QVector<int> idsA = idsOf(fa);
    const QVector<int> idsB = idsOf(fb);
    QVERIFY(!idsA.isEmpty());
    QVERIFY(!idsB.isEmpty());
    QVERIFY(std::is_sorted(idsA.begin(), idsA.end()));
    QVERIFY(std::is_sorted(idsB.begin(), idsB.end()));
    QVERIFY2(idsB.first() > idsA.last(), "the second file's ids follow the first's");
    QCOMPARE(withoutIds(fb), withoutIds(fbAlone));
    QVERIFY(idsOf(fbAlone) != idsB);

    // The ids are those of the dock: two passes per file, each report of
    // the first pass withdrawn line by line before the second files anew.
    AnalyserHarness ha;
    ha.setText(QStringLiteral("alias a {\n  echo $calc(1 +\n  ; todo: a\n}\n"));
    QVector<int> harnessIds;
    for (const HarnessReport &r : ha.reports())
        harnessIds << r.id;
    QCOMPARE(idsA, harnessIds);
}

void TestLint::sameFileTwiceCheckedOnce()
{
    const QString a = write(QStringLiteral("twice.mrc"), "alias a {\n  echo $calc(1 +\n}\n");
    const Run once = runLint({a});
    const Run twice = runLint({a, dir.path() + QStringLiteral("/./twice.mrc")});
    QCOMPARE(twice.out, once.out);
}

void TestLint::exitCodes_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("exitCode");
    const QByteArray clean = "alias x {\n  echo -a hi\n}\n";
    const QByteArray broken = "alias x {\n  echo $calc(1 +\n}\n";
    const QByteArray onlyNotes = "alias x {\n  ; todo: later\n}\n";
    const QString file = QStringLiteral("FILE");
    const QString json = QStringLiteral("--json");
    const QString dashes = QStringLiteral("--");
    QTest::newRow("clean") << QStringList({file}) << clean << 0;
    QTest::newRow("notes only") << QStringList({file}) << onlyNotes << 0;
    QTest::newRow("error") << QStringList({file}) << broken << 1;
    QTest::newRow("error, json") << QStringList({json, file}) << broken << 1;
    QTest::newRow("error, dump") << QStringList({QStringLiteral("--dump"), file}) << broken << 1;
    QTest::newRow("dash name after --") << QStringList({dashes, QStringLiteral("-exit.mrc")})
                                        << broken << 1;
    QTest::newRow("options before --") << QStringList({json, dashes, QStringLiteral("-exit.mrc")})
                                       << broken << 1;
    QTest::newRow("dash name without --") << QStringList({QStringLiteral("-exit.mrc")}) << broken
                                          << 2;
    QTest::newRow("unknown option") << QStringList({QStringLiteral("--frobnicate"), file})
                                    << clean << 2;
    QTest::newRow("no file") << QStringList() << clean << 2;
    QTest::newRow("only --") << QStringList({dashes}) << clean << 2;
}

void TestLint::exitCodes()
{
    QFETCH(QStringList, args);
    QFETCH(QByteArray, content);
    QFETCH(int, exitCode);
    write(QStringLiteral("-exit.mrc"), content);
    args.replaceInStrings(QRegularExpression(QStringLiteral("^FILE$")), QStringLiteral("-exit.mrc"));
    // FILE alone is given as "./-exit.mrc", which no parser takes for options.
    for (QString &a : args) {
        if (a == QLatin1String("-exit.mrc") && !args.contains(QStringLiteral("--"))
            && QString::fromLatin1(QTest::currentDataTag()).indexOf(QLatin1String("without")) < 0)
            a.prepend(QStringLiteral("./"));
    }
    const Run run = runLint(args, QProcessEnvironment(), dir.path());
    QCOMPARE(run.status, QProcess::NormalExit);
    QCOMPARE(run.exitCode, exitCode);
    if (exitCode == 2)
        QVERIFY(!run.err.isEmpty());
    else
        QVERIFY2(run.err.contains(QLatin1String("in 1 file")), qPrintable(run.err));
}

// A file that cannot be read is named on standard error, gives status 2,
// and the others are checked all the same.
void TestLint::unreadableAmongReadable()
{
    const QString a = write(QStringLiteral("ok-a.mrc"), "alias a {\n  echo $calc(1 +\n}\n");
    const QString b = write(QStringLiteral("ok-b.mrc"), "alias b {\n  ; todo: b\n}\n");
    const QString missing = dir.filePath(QStringLiteral("missing.mrc"));
    const QString folder = dir.filePath(QStringLiteral("folder.mrc"));
    QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("folder.mrc")));

    const Run run = runLint({a, missing, folder, b});
    QCOMPARE(run.status, QProcess::NormalExit);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(missing), qPrintable(run.err));
    QVERIFY2(run.err.contains(folder), qPrintable(run.err));
    const QStringList lines = outLines(run);
    QVERIFY(std::any_of(lines.begin(), lines.end(), [&](const QString &l) { return l.startsWith(a); }));
    QVERIFY(std::any_of(lines.begin(), lines.end(), [&](const QString &l) { return l.startsWith(b); }));

    const Run json = runLint({QStringLiteral("--json"), a, missing, b});
    QCOMPARE(json.exitCode, 2);
    const QJsonArray files = parseJson(json).value(QLatin1String("files")).toArray();
    QCOMPARE(files.size(), 3);
    QVERIFY(files.at(1).toObject().contains(QLatin1String("error")));
    QVERIFY(!files.at(0).toObject().value(QLatin1String("reports")).toArray().isEmpty());
}

void TestLint::unreadablePermissions()
{
    const QString path = write(QStringLiteral("locked.mrc"), "alias a { echo }\n");
    QFile::setPermissions(path, QFileDevice::Permissions());
    QFile probe(path);
    if (probe.open(QIODevice::ReadOnly))
        QSKIP("permissions do not stop this user from reading");
    const Run run = runLint({path});
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.err.contains(path));
}

void TestLint::badContentNeverCrashes_data()
{
    QTest::addColumn<QByteArray>("content");
    QByteArray binary;
    QRandomGenerator rng(1234);
    for (int i = 0; i < 20000; ++i)
        binary.append(char(rng.bounded(256)));
    QTest::newRow("binary") << binary;
    static const char withNul[] = "alias a {\n  echo \0 $me\n}\n";
    QTest::newRow("NUL inside") << QByteArray(withNul, sizeof(withNul) - 1);
    QTest::newRow("invalid UTF-8") << QByteArray("alias \xff\xfe {\n  echo \xc3\x28\n}\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("CR only") << QByteArray("alias a {\r  echo $calc(\r}\r");
    QTest::newRow("CR LF") << QByteArray("alias a {\r\n  echo hi\r\n}\r\n");
    QTest::newRow("long line") << QByteArray("alias a { echo ").append(QByteArray(200000, '(')).append("\n");
}

void TestLint::badContentNeverCrashes()
{
    QFETCH(QByteArray, content);
    const QString path = write(QStringLiteral("bad.mrc"), content);
    const Run text = runLint({path});
    QCOMPARE(text.status, QProcess::NormalExit);
    QVERIFY(text.exitCode == 0 || text.exitCode == 1);
    const Run json = runLint({QStringLiteral("--dump"), path});
    QCOMPARE(json.status, QProcess::NormalExit);
    QCOMPARE(json.exitCode, text.exitCode);
    QVERIFY(parseJson(json).value(QLatin1String("files")).isArray());
}

// The lint picks the offscreen platform itself when none is chosen.
void TestLint::runsWithoutDisplay()
{
    const QString path = write(QStringLiteral("nodisplay.mrc"), "alias a {\n  echo $calc(1 +\n}\n");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    const Run run = runLint({path}, env);
    QCOMPARE(run.status, QProcess::NormalExit);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(outLines(run).size(), 1);
}

void TestLint::helpAndVersion()
{
    const Run help = runLint({QStringLiteral("--help")});
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.out.contains(QLatin1String("--json")));
    QVERIFY(help.out.contains(QLatin1String("--dump")));
    const Run version = runLint({QStringLiteral("--version")});
    QCOMPARE(version.exitCode, 0);
    QVERIFY(QRegularExpression(QStringLiteral("^tarnwick-lint \\d+\\.\\d+")).match(version.out).hasMatch());
}

QTEST_MAIN(TestLint)
#include "tst_lint.moc"
