// Draws every image Tarnwick loads from its resources, the desktop icon in
// its theme sizes, and the resource collection that names the images.
//
//   icongen <resources-dir>
//
// All artwork is drawn from plain shapes on a 16-unit grid, scaled to the
// size each image is shown at. PNGs have a transparent background; BMPs
// carry no alpha, so they are painted on the light grey of a toolbar.

#include "catalogue.h"
#include "pictures.h"
#include "shapes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QTextStream>

#include <cstdio>
#include <vector>

namespace {

QImage render(int size, bool opaque, const Draw &draw)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(opaque ? kToolbarGrey : QColor(Qt::transparent));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.scale(size / 16.0, size / 16.0);
    draw(p);
    p.end();
    return opaque ? image.convertToFormat(QImage::Format_RGB32)
                  : image.convertToFormat(QImage::Format_ARGB32);
}

bool writeImage(const QString &path, const QImage &image)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()) || !image.save(path)) {
        std::fprintf(stderr, "icongen: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

bool writeCollection(const QString &path, const std::vector<Entry> &entries)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        std::fprintf(stderr, "icongen: cannot write %s\n", qPrintable(path));
        return false;
    }
    QTextStream out(&file);
    out << "<!DOCTYPE RCC>\n"
        << "<!-- Written by scripts/make-icons; edit scripts/icongen/catalogue.cpp instead. -->\n"
        << "<RCC version=\"1.0\">\n";
    QStringList prefixes;
    for (const Entry &e : entries)
        if (!prefixes.contains(e.prefix))
            prefixes << e.prefix;
    for (const QString &prefix : prefixes) {
        out << "  <qresource prefix=\"" << prefix << "\">\n";
        for (const Entry &e : entries)
            if (e.prefix == prefix)
                out << "    <file alias=\"resources/" << e.file << "\">" << e.file << "</file>\n";
        out << "  </qresource>\n";
    }
    out << "</RCC>\n";
    return out.status() == QTextStream::Ok;
}

} // namespace

int main(int argc, char *argv[])
{
    // Text is turned into outlines, which needs the font database and thus
    // a GUI application; no window is ever shown.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    if (argc != 2) {
        std::fprintf(stderr, "usage: icongen <resources-dir>\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));

    const std::vector<Entry> entries = catalogue();
    bool ok = true;
    for (const Entry &e : entries) {
        const bool bmp = e.file.endsWith(QLatin1String(".bmp"));
        ok = writeImage(out.filePath(e.file), render(e.size, bmp, e.draw)) && ok;
    }
    for (int size : { 16, 32, 48, 64, 128, 256 }) {
        const QString path = out.filePath(
            QStringLiteral("appicon/hicolor/%1x%1/apps/tarnwick.png").arg(size));
        ok = writeImage(path, render(size, false, drawAppIcon)) && ok;
    }
    ok = writeCollection(out.filePath(QStringLiteral("mainIcons.qrc")), entries) && ok;

    std::printf("icongen: %d images and 6 desktop icons in %s\n", int(entries.size()),
                qPrintable(out.absolutePath()));
    return ok ? 0 : 1;
}
