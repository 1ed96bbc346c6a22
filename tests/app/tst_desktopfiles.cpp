// The launcher and the metadata that are installed with the program must
// satisfy the desktop tools that distributions run on them.

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>
#include <QtTest>

class TestDesktopFiles : public QObject
{
    Q_OBJECT

private:
    static QString desktopDir() { return QStringLiteral(TARNWICK_SOURCE_DIR "/resources/desktop/"); }

    static void runValidator(const QString &tool, const QStringList &args)
    {
        const QString exe = QStandardPaths::findExecutable(tool);
        if (exe.isEmpty())
            QSKIP(qPrintable(tool + QStringLiteral(" is not installed")));
        QProcess p;
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(exe, args);
        QVERIFY(p.waitForFinished(60000));
        QVERIFY2(p.exitCode() == 0, p.readAll().constData());
    }

private slots:
    void launcherValidates()
    {
        runValidator(QStringLiteral("desktop-file-validate"),
                     {desktopDir() + QStringLiteral("tarnwick.desktop")});
    }

    void metadataValidates()
    {
        runValidator(QStringLiteral("appstream-util"),
                     {QStringLiteral("validate-relax"), QStringLiteral("--nonet"),
                      desktopDir() + QStringLiteral("io.github.tarnwick.Tarnwick.metainfo.xml")});
    }

    void launcherPassesNoFiles()
    {
        // The program takes no arguments, so the launcher must not hand it any.
        QFile f(desktopDir() + QStringLiteral("tarnwick.desktop"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(f.readAll());
        QVERIFY(text.contains(QStringLiteral("\nExec=tarnwick\n")));
        QVERIFY(text.contains(QStringLiteral("Categories=Development;IDE;TextEditor;")));
    }

    void scriptTypeIsDeclared()
    {
        QFile f(desktopDir() + QStringLiteral("tarnwick-mime.xml"));
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
};

QTEST_GUILESS_MAIN(TestDesktopFiles)
#include "tst_desktopfiles.moc"
