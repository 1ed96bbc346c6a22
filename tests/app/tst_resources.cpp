// Every image the sources name, by whole resource path or by file name under
// a resource folder they name, is compiled in and loads as a picture.

#include "testsuite.h"

#include <QImageReader>
#include <QtTest>

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void everyNamedImageLoads()
    {
        QString sources;
        for (QDirIterator it(TARNWICK_SOURCE_DIR "/src", {"*.cpp", "*.h"}, QDir::Files,
                             QDirIterator::Subdirectories);
             it.hasNext();) {
            QFile f(it.next());
            sources += f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
        }
        QStringList folders, named;
        for (const auto &m : QRegularExpression("\"(:/[^\"]*/)\"").globalMatch(sources))
            folders << m.captured(1);
        for (const auto &m :
             QRegularExpression("\"(:/[^\"]+|[\\w.-]+)\\.(png|bmp)\"").globalMatch(sources)) {
            const QString name = m.captured(1) + '.' + m.captured(2);
            QStringList here;
            for (const QString &folder : name.startsWith(':') ? QStringList{""} : folders)
                if (QFile::exists(folder + name) && !here.contains(folder + name))
                    here << folder + name;
            QVERIFY2(!here.isEmpty(), qPrintable(name + " is not compiled in"));
            named << here;
        }
        QVERIFY(named.size() > 50);
        for (const QString &path : std::as_const(named)) {
            QImageReader reader(path);
            reader.setDecideFormatFromContent(true); // the content, not the name, decides
            const QByteArray format = reader.format();
            const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
            QImage flat(image.size(), QImage::Format_ARGB32);
            flat.fill(image.isNull() ? 0 : image.pixel(0, 0));
            QVERIFY2(format == path.right(3).toLatin1() && image.width() == image.height()
                         && (image.width() == 16 || image.width() == 32) && image != flat,
                     qPrintable(QStringLiteral("%1 %2 %3x%4 %5")
                                    .arg(path, format)
                                    .arg(image.width())
                                    .arg(image.height())
                                    .arg(image == flat)));
        }
    }
};

TARNWICK_TEST(TestResources);
#include "tst_resources.moc"
