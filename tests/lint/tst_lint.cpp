// tarnwick-lint run as a process on real files: the reports of the analyser
// in a document, in each output form, with the right exit status whatever
// the files and the command line hold.

#include "analyserharness.h"
#include "testsuite.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

namespace {

struct Run
{
    int exitCode = -1;
    QString out, err;
    QJsonArray files; // of the JSON forms
};

Run lint(const QStringList &args, const QString &workingDirectory = QString(),
         const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setWorkingDirectory(workingDirectory);
    p.start(QStringLiteral(TARNWICK_LINT_PATH), args);
    if (!p.waitForFinished(120000)) { // a hang shows as a crash
        p.kill();
        p.waitForFinished();
    }
    Run r;
    if (p.exitStatus() == QProcess::NormalExit)
        r.exitCode = p.exitCode();
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    r.files = QJsonDocument::fromJson(r.out.toUtf8()).object()["files"].toArray();
    return r;
}

QStringList lines(const Run &r)
{
    return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QJsonArray field(const QJsonArray &files, int file, const char *name)
{
    return files.at(file).toObject().value(QLatin1String(name)).toArray();
}

// The reports as the lint's JSON gives them and as a document's dock gets them.
QStringList briefs(const QJsonArray &reports)
{
    QStringList out;
    for (const QJsonValue &r : reports)
        out << QStringLiteral("%1 %2:%3 t%4 [%5] %6")
                   .arg(r["id"].toInt())
                   .arg(r["line"].toInt())
                   .arg(r["col"].toInt())
                   .arg(r["type"].toInt())
                   .arg(r["block"].toString(), r["message"].toString());
    return out;
}

QStringList briefs(const QString &script)
{
    AnalyserHarness h;
    h.setText(script);
    QStringList out;
    for (const HarnessReport &r : h.reports())
        out << QStringLiteral("%1 %2:%3 t%4 [%5] %6")
                   .arg(r.id)
                   .arg(r.line)
                   .arg(r.col)
                   .arg(r.type)
                   .arg(r.block, r.message);
    return out;
}

const QByteArray broken = "alias x {\n  echo $calc(1 +\n}\n";

} // namespace

class LintCommandLine : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;

    QString write(const QString &name, const QByteArray &content)
    {
        QFile f(dir.filePath(name));
        if (!f.open(QIODevice::WriteOnly) || f.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(f.fileName()));
        return f.fileName();
    }

    static QByteArray dataFile(const char *name)
    {
        QFile f(QStringLiteral(TARNWICK_TEST_DATA_DIR "/") + QLatin1String(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid());
        AnalyserHarness::ensureSettings();
    }

    // One line per report, PATH:LINE:COL: KIND: MESSAGE [BLOCK], in id order;
    // the JSON form holds the same reports, ids and all, as a document would.
    void textAndJsonForms()
    {
        const QByteArray script = dataFile("kinds.mrc");
        const QString path = write(QStringLiteral("kinds.mrc"), script);
        const Run text = lint({path});
        QCOMPARE(text.exitCode, 1);
        QCOMPARE(
            text.out,
            QString::fromUtf8(dataFile("kinds.expected")).replace(QStringLiteral("FILE"), path));
        QCOMPARE(text.err, QStringLiteral("1 error, 1 warning, 2 infos, 4 notes in 1 file\n"));

        const Run json = lint({QStringLiteral("--json"), path});
        QCOMPARE(json.exitCode, 1);
        QCOMPARE(json.files.at(0).toObject()["path"].toString(), path);
        QVERIFY(!json.files.at(0).toObject().contains(QLatin1String("lines")));
        QCOMPARE(briefs(field(json.files, 0, "reports")), briefs(QString::fromUtf8(script)));
        QCOMPARE(field(json.files, 0, "reports").size(), lines(text).size());

        const Run clean
            = lint({write(QStringLiteral("clean.mrc"), "alias x {\n  echo -a hi\n}\n")});
        QCOMPARE(clean.exitCode, 0);
        QCOMPARE(clean.out, QString());
    }

    // The SARIF log holds the same reports as the JSON form, in the shape
    // code-scanning services read: 1-based columns, a level per kind, a
    // rule for every rule id used, and the unreadable file as a notification.
    void sarifForm()
    {
        const QString path = write(QStringLiteral("kinds.mrc"), dataFile("kinds.mrc"));
        const QString missing = dir.filePath(QStringLiteral("missing.mrc"));
        const QJsonArray reports = field(lint({QStringLiteral("--json"), path}).files, 0, "reports");
        const Run run = lint({QStringLiteral("--sarif"), path, missing});
        QCOMPARE(run.exitCode, 2);
        const QJsonObject log = QJsonDocument::fromJson(run.out.toUtf8()).object();
        QCOMPARE(log["version"].toString(), QStringLiteral("2.1.0"));
        QVERIFY(log["$schema"].toString().endsWith(QLatin1String("sarif-2.1.0.json")));
        const QJsonObject sarifRun = log["runs"].toArray().at(0).toObject();
        const QJsonObject driver = sarifRun["tool"]["driver"].toObject();
        QCOMPARE(driver["name"].toString(), QStringLiteral("tarnwick-lint"));
        QSet<QString> rules;
        for (const QJsonValue &rule : driver["rules"].toArray())
            rules << rule["id"].toString();

        const QJsonArray results = sarifRun["results"].toArray();
        QCOMPARE(results.size(), reports.size());
        QStringList levels;
        for (int i = 0; i < results.size(); ++i) {
            const QJsonObject res = results.at(i).toObject();
            const QJsonObject report = reports.at(i).toObject();
            const QJsonValue where = res["locations"][0]["physicalLocation"];
            QCOMPARE(where["artifactLocation"]["uri"].toString(),
                     QUrl::fromLocalFile(path).toString());
            QCOMPARE(where["region"]["startLine"].toInt(), report["line"].toInt());
            QCOMPARE(where["region"]["startColumn"].toInt(), report["col"].toInt() + 1);
            QCOMPARE(res["message"]["text"].toString(), report["message"].toString());
            QVERIFY2(rules.contains(res["ruleId"].toString()), qPrintable(res["ruleId"].toString()));
            levels << res["level"].toString() + QLatin1Char('/') + res["ruleId"].toString();
        }
        levels.removeDuplicates();
        levels.sort();
        QCOMPARE(levels.join(QLatin1Char(' ')),
                 QStringLiteral("error/tarnwick/error note/tarnwick/fixme note/tarnwick/hack "
                                "note/tarnwick/info note/tarnwick/todo note/tarnwick/xxx "
                                "warning/tarnwick/warning"));
        const QJsonObject invocation = sarifRun["invocations"][0].toObject();
        QCOMPARE(invocation["executionSuccessful"].toBool(), false);
        QVERIFY(invocation["toolExecutionNotifications"][0]["message"]["text"].toString().contains(
            missing));
        QCOMPARE(lint({QStringLiteral("--sarif"), QStringLiteral("--json"), path}).exitCode, 2);
    }

    // Every line as the analyser left it in a document.
    void dump()
    {
        const QString script = QStringLiteral(
            "alias -l foo {\n  var %a = $len($1) | echo -a %a\n  if (%a > 1) { return $true }\n"
            "  echo $calc(1 +\n}\n#grp on\non *:TEXT:*:#:{ echo $nick }\n#grp end\n/* note\n*/\n");
        const Run run
            = lint({QStringLiteral("--dump"), write(QStringLiteral("dump.mrc"), script.toUtf8())});
        QCOMPARE(run.exitCode, 1);
        AnalyserHarness h;
        h.setText(script);
        const QJsonArray dumped = field(run.files, 0, "lines");
        QCOMPARE(dumped.size(), h.document()->blockCount());
        QSet<int> ids;
        for (int b = 0; b < dumped.size(); ++b) {
            const QJsonObject line = dumped.at(b).toObject();
            QCOMPARE(line["line"].toInt(), b + 1);
            QCOMPARE(line["text"].toString(), h.document()->findBlockByNumber(b).text());
            QCOMPARE(line["state"].toInt(), h.state(b));
            QStringList formats, expected;
            for (const QJsonValue &f : line["formats"].toArray())
                formats << QStringLiteral("%1+%2 %3")
                               .arg(f["start"].toInt())
                               .arg(f["length"].toInt())
                               .arg(f["format"].toString());
            for (const QTextLayout::FormatRange &r : h.formats(b))
                expected << QStringLiteral("%1+%2 %3")
                                .arg(r.start)
                                .arg(r.length)
                                .arg(AnalyserHarness::formatName(r.format));
            QCOMPARE(formats, expected);
            const CBlockData *data = h.record(b);
            const QJsonValue rec = line["record"];
            QCOMPARE(rec.isNull(), !data);
            if (!data)
                continue;
            QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5")
                         .arg(rec["blockType"].toInt())
                         .arg(rec["isLocal"].toBool())
                         .arg(rec["containedBlock"].toString())
                         .arg(rec["blockPos"].toInt())
                         .arg(rec["idents"].toArray().size()),
                     QStringLiteral("%1 %2 %3 %4 %5")
                         .arg(data->blockType)
                         .arg(data->isLocal)
                         .arg(data->containedBlock)
                         .arg(data->blockPos)
                         .arg(data->idents.size()));
            for (const QJsonValue &id : rec["ids"].toArray())
                ids.insert(id.toInt());
        }
        // The lines name the reports they caused.
        QSet<int> reported;
        for (const QJsonValue &r : field(run.files, 0, "reports"))
            reported.insert(r["id"].toInt());
        QCOMPARE(ids, reported);
        // Spelled out: the names of formats and identifiers.
        QCOMPARE(dumped.at(0)["formats"].toArray().at(0)["format"].toString(),
                 QStringLiteral("aliasFmt"));
        QCOMPARE(dumped.at(1)["record"]["idents"].toArray().at(1)["name"].toString(),
                 QStringLiteral("$len"));
    }

    // Ids run on from file to file as in one dock; a file's reports are
    // otherwise those it has alone, and a file named twice is checked once.
    void idsSharedAcrossFiles()
    {
        const QString a
            = write(QStringLiteral("ids-a.mrc"), "alias a {\n  echo $calc(1 +\n  ; todo: a\n}\n");
        const QString b = write(QStringLiteral("ids-b.mrc"),
                                "alias b {\n  ; fixme: b\n  echo $calc(2 +\n}\nrem b\n");
        const Run both
            = lint({QStringLiteral("--json"), a, b, dir.path() + QStringLiteral("/./ids-a.mrc")});
        QCOMPARE(both.files.size(), 2);
        QCOMPARE(briefs(field(both.files, 0, "reports")),
                 briefs(QStringLiteral("alias a {\n  echo $calc(1 +\n  ; todo: a\n}\n")));
        const QStringList second = briefs(field(both.files, 1, "reports"));
        const QStringList alone
            = briefs(field(lint({QStringLiteral("--json"), b}).files, 0, "reports"));
        QVERIFY(!second.isEmpty() && second != alone);
        const QRegularExpression id(QStringLiteral("^\\d+ "));
        QCOMPARE(QStringList(second).replaceInStrings(id, QString()),
                 QStringList(alone).replaceInStrings(id, QString()));
        QVERIFY(second.first().section(QLatin1Char(' '), 0, 0).toInt()
                > briefs(field(both.files, 0, "reports"))
                      .last()
                      .section(QLatin1Char(' '), 0, 0)
                      .toInt());
    }

    // A name ending in .ini, in any case, is read in the INI form.
    void iniFiles()
    {
        const QByteArray ini = dataFile("script.ini");
        const QString asLoaded = QStringLiteral("alias x {\n  echo $calc(1 +\n\n}\na=b\n");
        for (const char *name : {"script.ini", "SCRIPT.INI", "Script.Ini", ".ini"}) {
            const Run run = lint({QStringLiteral("--dump"), write(QLatin1String(name), ini)});
            QCOMPARE(briefs(field(run.files, 0, "reports")), briefs(asLoaded));
            QStringList texts;
            for (const QJsonValue &line : field(run.files, 0, "lines"))
                texts << line["text"].toString();
            QCOMPARE(texts, asLoaded.split(QLatin1Char('\n')));
        }
        const Run plain
            = lint({QStringLiteral("--dump"), write(QStringLiteral("script.ini.bak"), ini)});
        QCOMPARE(field(plain.files, 0, "lines").at(0)["text"].toString(),
                 QStringLiteral("[script]"));
    }

    void exitCodes_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("clean") << QStringList({"clean.mrc"}) << 0;
        QTest::newRow("notes only") << QStringList({"notes.mrc"}) << 0;
        QTest::newRow("error") << QStringList({"./-broken.mrc"}) << 1;
        QTest::newRow("error, json") << QStringList({"--json", "./-broken.mrc"}) << 1;
        QTest::newRow("error, dump") << QStringList({"--dump", "./-broken.mrc"}) << 1;
        QTest::newRow("dash name after --") << QStringList({"--", "-broken.mrc"}) << 1;
        QTest::newRow("options before --") << QStringList({"--json", "--", "-broken.mrc"}) << 1;
        QTest::newRow("dash name without --") << QStringList({"-broken.mrc"}) << 2;
        QTest::newRow("unknown option") << QStringList({"--frobnicate", "clean.mrc"}) << 2;
        QTest::newRow("no file") << QStringList() << 2;
        QTest::newRow("only --") << QStringList({"--"}) << 2;
    }

    void exitCodes()
    {
        QFETCH(QStringList, args);
        QFETCH(int, exitCode);
        write(QStringLiteral("clean.mrc"), "alias x {\n  echo -a hi\n}\n");
        write(QStringLiteral("notes.mrc"), "alias x {\n  ; todo: later\n}\n");
        write(QStringLiteral("-broken.mrc"), broken);
        const Run run = lint(args, dir.path());
        QCOMPARE(run.exitCode, exitCode);
        if (exitCode == 2)
            QVERIFY(!run.err.isEmpty() && run.out.isEmpty());
        else
            QVERIFY2(run.err.endsWith(QLatin1String(" in 1 file\n")), qPrintable(run.err));
    }

    // A file that cannot be read is named on standard error and gives
    // status 2; the others are checked all the same.
    void unreadableAmongReadable()
    {
        const QString a = write(QStringLiteral("ok-a.mrc"), broken);
        const QString b = write(QStringLiteral("ok-b.mrc"), "alias b {\n  ; todo: b\n}\n");
        const QString missing = dir.filePath(QStringLiteral("missing.mrc"));
        const QString folder = dir.filePath(QStringLiteral("folder.mrc"));
        const QString locked = write(QStringLiteral("locked.mrc"), broken);
        QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("folder.mrc")));
        QFile::setPermissions(locked, QFileDevice::Permissions());
        const bool lockHolds = !QFile(locked).open(QIODevice::ReadOnly);

        const Run run = lint({a, missing, folder, locked, b});
        QCOMPARE(run.exitCode, 2);
        for (const QString &name : {missing, folder, locked})
            QVERIFY2(run.err.contains(name) || (name == locked && !lockHolds), qPrintable(run.err));
        QCOMPARE(
            lines(run).filter(QRegularExpression(QStringLiteral("^(%1|%2):2:").arg(a, b))).size(),
            2);

        const Run json = lint({QStringLiteral("--json"), a, missing, b});
        QCOMPARE(json.exitCode, 2);
        QCOMPARE(json.files.size(), 3);
        QVERIFY(json.files.at(1).toObject().contains(QLatin1String("error")));
        QCOMPARE(field(json.files, 2, "reports").size(), 1);
    }

    void badContentNeverCrashes_data()
    {
        QTest::addColumn<QByteArray>("content");
        QByteArray binary;
        QRandomGenerator rng(1234);
        for (int i = 0; i < 20000; ++i)
            binary.append(char(rng.bounded(256)));
        QTest::newRow("binary") << binary;
        QTest::newRow("NUL inside") << QByteArray("alias a {\n  echo \0 $me\n}\n", 25);
        QTest::newRow("invalid UTF-8") << QByteArray("alias \xff\xfe {\n  echo \xc3\x28\n}\n");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("CR only") << QByteArray("alias a {\r  echo $calc(\r}\r");
        QTest::newRow("long line")
            << QByteArray("alias a { echo ").append(QByteArray(200000, '(')).append("\n");
    }

    void badContentNeverCrashes()
    {
        QFETCH(QByteArray, content);
        const QString path = write(QStringLiteral("bad.mrc"), content);
        const Run text = lint({path});
        QVERIFY(text.exitCode == 0 || text.exitCode == 1);
        const Run dumped = lint({QStringLiteral("--dump"), path});
        QCOMPARE(dumped.exitCode, text.exitCode);
        QCOMPARE(field(dumped.files, 0, "reports").size(), lines(text).size());
    }

    // The lint picks the offscreen platform itself when none is chosen.
    void runsWithoutDisplay()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            env.remove(QLatin1String(name));
        const Run run = lint({write(QStringLiteral("nodisplay.mrc"), broken)}, QString(), env);
        QCOMPARE(run.exitCode, 1);
    }
};

TARNWICK_TEST(LintCommandLine);
#include "tst_lint.moc"
