#include "scriptfile.h"

#include <QFile>
#include <QIODevice>
#include <QLatin1Char>
#include <QLatin1String>
#include <QStringConverter>
#include <QTextStream>

bool isIniScriptName(const QString &fileName)
{
    return fileName.size() >= 4 && fileName.right(4).toLower() == QLatin1String(".ini");
}

QString loadScriptText(const QFileInfo &fileName)
{
    QFile file(fileName.absoluteFilePath());
    // Opened for writing too, as the tab may save to it later; a file
    // without write permission is still shown rather than left blank.
    if (!file.open(QIODevice::ReadWrite))
        file.open(QIODevice::ReadOnly);

    return readScriptText(file, isIniScriptName(fileName.fileName()));
}

QString readScriptText(QIODevice &device, bool ini, QVector<IniLineOrigin> *origins)
{
    if (origins)
        origins->clear();
    QTextStream stream(&device);
    stream.setEncoding(QStringConverter::Utf8);

    if (!ini)
        return stream.readAll();

    // "[section]" lines go; "n0=alias x" keeps what follows the first "=",
    // whatever the key was. Every line ends in a line feed, so the text
    // ends with an empty last line.
    QString doc;
    for (int number = 0; !stream.atEnd(); ++number) {
        QString line = stream.readLine();
        if (!line.isEmpty() && line.at(0) == QLatin1Char('['))
            continue;
        const int cut = int(line.indexOf(QLatin1Char('='))) + 1;
        line.remove(0, cut);
        if (origins)
            origins->append({number, cut});
        doc += line;
        doc += QLatin1Char('\n');
    }
    return doc;
}
