// The launcher, the file type, the metadata and the icons, checked where
// `cmake --install` puts them: what a distribution packages is the
// installed tree, so that is what the desktop tools must accept.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

const QString launcherPath = QStringLiteral("share/applications/tarnwick.desktop");
const QString mimePath = QStringLiteral("share/mime/packages/tarnwick.xml");
const QString metadataPath = QStringLiteral("share/metainfo/io.github.tarnwick.Tarnwick.metainfo.xml");

QString readText(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(f.readAll());
}

// The value of KEY in the [Desktop Entry] group, or a null string.
QString desktopEntryValue(const QString &text, const QString &key)
{
    const QRegularExpression line(QStringLiteral("^") + QRegularExpression::escape(key)
                                      + QStringLiteral("=(.*)$"),
                                  QRegularExpression::MultilineOption);
    const QRegularExpressionMatch m = line.match(text);
    return m.hasMatch() ? m.captured(1) : QString();
}

struct ProcessResult
{
    bool finished = false;
    int exitCode = -1;
    QByteArray output;
};

ProcessResult run(const QString &program, const QStringList &args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    ProcessResult r;
    r.finished = p.waitForFinished(120000);
    r.exitCode = p.exitCode();
    r.output = p.readAll();
    return r;
}

} // namespace

class TestDesktopFiles : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir prefix;

    QString installed(const QString &relative) const { return prefix.filePath(relative); }

    static void runValidator(const QString &tool, const QStringList &args)
    {
        const QString exe = QStandardPaths::findExecutable(tool);
        if (exe.isEmpty())
            QSKIP(qPrintable(tool + QStringLiteral(" is not installed")));
        const ProcessResult r = run(exe, args);
        QVERIFY(r.finished);
        QVERIFY2(r.exitCode == 0, r.output.constData());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(prefix.isValid());
        const ProcessResult r = run(QStringLiteral(TARNWICK_CMAKE_COMMAND),
                                    {QStringLiteral("--install"), QStringLiteral(TARNWICK_BINARY_DIR),
                                     QStringLiteral("--prefix"), prefix.path()});
        QVERIFY(r.finished);
        QVERIFY2(r.exitCode == 0, r.output.constData());
    }

    void filesInstalled_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("executable");
        QTest::newRow("program") << QStringLiteral("bin/tarnwick") << true;
        QTest::newRow("checker") << QStringLiteral("bin/tarnwick-lint") << true;
        QTest::newRow("launcher") << launcherPath << false;
        QTest::newRow("file type") << mimePath << false;
        QTest::newRow("metadata") << metadataPath << false;
    }

    void filesInstalled()
    {
        QFETCH(QString, path);
        QFETCH(bool, executable);
        const QFileInfo info(installed(path));
        QVERIFY2(info.isFile(), qPrintable(path));
        QVERIFY(info.size() > 0);
        QCOMPARE(info.isExecutable(), executable);
    }

    void themeIcons_data()
    {
        QTest::addColumn<int>("size");
        for (int size : {16, 32, 48, 64, 128, 256})
            QTest::newRow(qPrintable(QStringLiteral("%1x%1").arg(size))) << size;
    }

    // Each directory of the icon theme promises a size; the image must keep it.
    void themeIcons()
    {
        QFETCH(int, size);
        const QString path =
            installed(QStringLiteral("share/icons/hicolor/%1x%1/apps/tarnwick.png").arg(size));
        QImage image(path);
        QVERIFY2(!image.isNull(), qPrintable(path));
        QCOMPARE(image.size(), QSize(size, size));
        QVERIFY(image.hasAlphaChannel());
    }

    void launcherValidates()
    {
        runValidator(QStringLiteral("desktop-file-validate"), {installed(launcherPath)});
    }

    void metadataValidates()
    {
        runValidator(QStringLiteral("appstream-util"),
                     {QStringLiteral("validate-relax"), QStringLiteral("--nonet"),
                      installed(metadataPath)});
    }

    // The program takes no arguments, so the launcher hands it no files
    // (no %f, %F, %u or %U), and what it names is all installed.
    void launcherMatchesTheTree()
    {
        const QString text = readText(installed(launcherPath));
        QVERIFY(!text.isEmpty());
        QCOMPARE(desktopEntryValue(text, QStringLiteral("Exec")), QStringLiteral("tarnwick"));
        QVERIFY(QFileInfo(installed(QStringLiteral("bin/tarnwick"))).isExecutable());
        QCOMPARE(desktopEntryValue(text, QStringLiteral("Categories")),
                 QStringLiteral("Development;IDE;TextEditor;"));
        const QString icon = desktopEntryValue(text, QStringLiteral("Icon"));
        QVERIFY(QFile::exists(
            installed(QStringLiteral("share/icons/hicolor/48x48/apps/%1.png").arg(icon))));
        QCOMPARE(desktopEntryValue(text, QStringLiteral("MimeType")),
                 QStringLiteral("text/x-mirc-script;"));
    }

    void metadataNamesTheLauncher()
    {
        QFile f(installed(metadataPath));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&f);
        QString launchable;
        QStringList binaries;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("launchable"))
                launchable = xml.readElementText();
            else if (xml.name() == QLatin1String("binary"))
                binaries << xml.readElementText();
        }
        QVERIFY(!xml.hasError());
        QCOMPARE(launchable, QFileInfo(launcherPath).fileName());
        for (const QString &binary : std::as_const(binaries))
            QVERIFY2(QFileInfo(installed(QStringLiteral("bin/") + binary)).isExecutable(),
                     qPrintable(binary));
        QCOMPARE(binaries.size(), 2);
    }

    void scriptTypeIsDeclared()
    {
        QFile f(installed(mimePath));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&f);
        QString type, glob;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("mime-type"))
                type = xml.attributes().value(QLatin1String("type")).toString();
            else if (xml.name() == QLatin1String("glob"))
                glob = xml.attributes().value(QLatin1String("pattern")).toString();
        }
        QVERIFY(!xml.hasError());
        QCOMPARE(type, QStringLiteral("text/x-mirc-script"));
        QCOMPARE(glob, QStringLiteral("*.mrc"));
    }

    // What a file manager sees once the package's trigger has run: the
    // compiled database maps the file name pattern to the type.
    void mimeDatabaseKnowsScripts()
    {
        const QString exe = QStandardPaths::findExecutable(QStringLiteral("update-mime-database"));
        if (exe.isEmpty())
            QSKIP("update-mime-database is not installed");
        const QString mimeDir = installed(QStringLiteral("share/mime"));
        const ProcessResult r = run(exe, {mimeDir});
        QVERIFY(r.finished);
        QVERIFY2(r.exitCode == 0, r.output.constData());
        const QString globs = readText(mimeDir + QStringLiteral("/globs2"));
        QVERIFY2(globs.contains(QRegularExpression(QStringLiteral("^\\d+:text/x-mirc-script:\\*\\.mrc$"),
                                                   QRegularExpression::MultilineOption)),
                 qPrintable(globs));
        QVERIFY(QFile::exists(mimeDir + QStringLiteral("/text/x-mirc-script.xml")));
    }
};

QTEST_GUILESS_MAIN(TestDesktopFiles)
#include "tst_desktopfiles.moc"
