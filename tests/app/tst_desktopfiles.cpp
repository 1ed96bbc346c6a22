// The launcher, file type, metadata and icons where `cmake --install` puts
// them: a distribution packages that tree, so the desktop tools must accept it.

#include "testsuite.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

const QString launcherPath = "share/applications/tarnwick.desktop",
              mimePath = "share/mime/packages/tarnwick.xml",
              metadataPath = "share/metainfo/io.github.tarnwick.Tarnwick.metainfo.xml";

static QString readText(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// Runs a tool to its end, which must succeed; one not installed skips.
#define RUN_OK(tool, ...)                                                                          \
    if (QStandardPaths::findExecutable(tool).isEmpty())                                            \
        QSKIP(tool " is not installed");                                                           \
    QProcess p;                                                                                    \
    p.setProcessChannelMode(QProcess::MergedChannels);                                             \
    p.start(QStandardPaths::findExecutable(tool), __VA_ARGS__);                                    \
    QVERIFY(p.waitForFinished(120000));                                                            \
    QVERIFY2(p.exitCode() == 0, p.readAll().constData())

// Attribute or text of every element of that name, in order.
static QStringList xmlValues(const QString &path, const QString &name,
                             const QString &attribute = {})
{
    QXmlStreamReader xml(readText(path));
    QStringList values;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name)
            values << (attribute.isEmpty() ? xml.readElementText()
                                           : xml.attributes().value(attribute).toString());
    return xml.hasError() ? QStringList{xml.errorString()} : values;
}

class TestDesktopFiles : public QObject
{
    Q_OBJECT

    QTemporaryDir prefix;
    QString installed(const QString &relative) const { return prefix.filePath(relative); }

private slots:
    void initTestCase()
    {
        QVERIFY(prefix.isValid());
        RUN_OK(TARNWICK_CMAKE_COMMAND,
               {"--install", TARNWICK_BINARY_DIR, "--prefix", prefix.path()});
    }

    void launcherValidates() { RUN_OK("desktop-file-validate", {installed(launcherPath)}); }
    void metadataValidates()
    {
        RUN_OK("appstream-util", {"validate-relax", "--nonet", installed(metadataPath)});
    }

    // What the launcher and metadata name is installed; icons keep their size.
    void filesAgreeWithTheTree()
    {
        for (const char *program : {"bin/tarnwick", "bin/tarnwick-lint"})
            QVERIFY2(QFileInfo(installed(program)).isExecutable(), program);
        for (int size : {16, 32, 48, 64, 128, 256}) {
            const QImage image(
                installed(QStringLiteral("share/icons/hicolor/%1x%1/apps/tarnwick.png").arg(size)));
            QVERIFY(image.size() == QSize(size, size) && image.hasAlphaChannel());
        }
        const QString text = readText(installed(launcherPath));
        auto value = [&text](const QString &key) {
            return QRegularExpression("^" + key + "=(.*)$", QRegularExpression::MultilineOption)
                .match(text)
                .captured(1);
        };
        QCOMPARE(value("Exec"), QStringLiteral("tarnwick"));
        QCOMPARE(value("Categories"), QStringLiteral("Development;IDE;TextEditor;"));
        QCOMPARE(value("MimeType"), QStringLiteral("text/x-mirc-script;"));
        QVERIFY(
            QFile::exists(installed("share/icons/hicolor/48x48/apps/" + value("Icon") + ".png")));
        QCOMPARE(xmlValues(installed(metadataPath), "launchable"), QStringList{"tarnwick.desktop"});
        QCOMPARE(xmlValues(installed(metadataPath), "binary"),
                 QStringList({"tarnwick", "tarnwick-lint"}));
        QCOMPARE(xmlValues(installed(mimePath), "mime-type", "type"),
                 QStringList{"text/x-mirc-script"});
        QCOMPARE(xmlValues(installed(mimePath), "glob", "pattern"), QStringList{"*.mrc"});
    }

    // Once the package's trigger has run, the database maps *.mrc to the type.
    void mimeDatabaseKnowsScripts()
    {
        const QString mimeDir = installed("share/mime");
        RUN_OK("update-mime-database", {mimeDir});
        const QString globs = readText(mimeDir + "/globs2");
        QVERIFY2(globs.contains(QRegularExpression("^\\d+:text/x-mirc-script:\\*\\.mrc$",
                                                   QRegularExpression::MultilineOption)),
                 qPrintable(globs));
        QVERIFY(QFile::exists(mimeDir + "/text/x-mirc-script.xml"));
    }
};

TARNWICK_TEST(TestDesktopFiles);
#include "tst_desktopfiles.moc"
