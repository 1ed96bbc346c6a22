// Every image the program loads by resource path is compiled in, loads, has
// the size it is drawn at and shows a picture; the coloured ones carry the
// colour their name promises, and arrows point the way their name says.

#include <QColor>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QImageReader>
#include <QSet>
#include <QtTest>

namespace {

struct Image
{
    const char *path;
    int size;
};

// Typed from the places that load them, not from the resource collection,
// so that a slip on either side shows.
const Image kImages[] = {
    // Tabs.
    { ":/tabbar/resources/img_assets/options/main/tabs/dialog.png", 16 },
    { ":/tabbar/resources/img_assets/options/main/tabs/file.png", 16 },
    { ":/tabbar/resources/img_assets/options/main/tabs/file-read-only.png", 16 },
    // Main menu and toolbars.
    { ":/general/toolbar/resources/img_assets/options/main/save_all.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/exit.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/undo.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/redo.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/cut.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/copy.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/paste.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/delete.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/info.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/page_white_add.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/folder_page.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/page_white_delete.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/save.png", 16 },
    { ":/general/toolbar/resources/img_assets/options/main/share.png", 16 },
    // Report dock.
    { ":/messages/syntax/resources/img_assets/messages/syntax/information.png", 16 },
    { ":/messages/syntax/resources/img_assets/messages/syntax/warning.png", 16 },
    { ":/messages/syntax/resources/img_assets/messages/syntax/error.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/blue.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/green.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/grey.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/orange.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/red.png", 16 },
    { ":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/yellow.png", 16 },
    // DDE server setup.
    { ":/options/dde/resources/img_assets/options/dde/add.png", 16 },
    { ":/options/dde/resources/img_assets/options/dde/delete.png", 16 },
    // New document chooser: larger, the list shows them at 28 by 25.
    { ":/newFile/resources/img_assets/new_type/blank.png", 32 },
    { ":/newFile/resources/img_assets/new_type/dialog.png", 32 },
    { ":/newFile/resources/img_assets/new_type/dialog_code.png", 32 },
    { ":/newFile/resources/img_assets/new_type/picwin.png", 32 },
    { ":/newFile/resources/img_assets/new_type/scriptFile.png", 32 },
    { ":/newFile/resources/img_assets/new_type/textFile.png", 32 },
    // Completion lists.
    { ":/completer/resources/img_assets/completer/property.png", 16 },
    { ":/completer/resources/img_assets/completer/builtident.png", 16 },
    { ":/completer/resources/img_assets/completer/customident.png", 16 },
    { ":/completer/resources/img_assets/completer/customlocalident.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.shell.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.explorer.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.win.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.xml.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.skype.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.itunes.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.app.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.snagit.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.word.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.excel.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.pp.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.access.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.ie.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.frontpage.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.outlook.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.photoshop.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.adobe.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.email.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.database.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.lotus.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.java.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.globe.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.dll.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.imagemagick.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.oracle.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.sql.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.virtualbox.png", 16 },
    { ":/completer/com/resources/img_assets/com/com.unity.png", 16 },
    // Gutter: drawn unscaled, so they must be exactly 16 by 16.
    { ":/block/resources/img_assets/editor/block/expanded.png", 16 },
    { ":/block/resources/img_assets/editor/block/right.png", 16 },
    { ":/block/resources/img_assets/editor/block/expanded2.png", 16 },
    { ":/block/resources/img_assets/editor/block/right2.png", 16 },
    // Find bar.
    { ":/find/resources/img_assets/editor/find/magnify.png", 16 },
    { ":/find/resources/img_assets/editor/find/search_green.png", 16 },
    { ":/find/resources/img_assets/editor/find/search_red.png", 16 },
    { ":/find/resources/img_assets/editor/find/search_blue.png", 16 },
    { ":/find/resources/img_assets/editor/find/search_orange.png", 16 },
    { ":/find/resources/img_assets/editor/find/previous.png", 16 },
    { ":/find/resources/img_assets/editor/find/next.png", 16 },
    { ":/find/resources/img_assets/editor/find/close.png", 16 },
    // Dialog builder.
    { ":/general/resources/img_assets/frmIcon.png", 32 },
    { ":/guiToolbar/resources/img_assets/controls/alignToGrid.bmp", 16 },
    { ":/guiToolbar/resources/img_assets/controls/grid.bmp", 16 },
    { ":/guiToolbar/resources/img_assets/controls/grid_plus.bmp", 16 },
    { ":/guiToolbar/resources/img_assets/controls/grid_minus.bmp", 16 },
    { ":/guiToolbar/resources/img_assets/controls/selectable.png", 16 },
    { ":/guiToolbar/resources/img_assets/controls/generate.png", 16 },
    { ":/toolbox/resources/img_assets/toolbox/button.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/edit.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/pass.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/rich.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/text.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/link.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/combo.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/list.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/checkList.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/check.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/radioList.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/radio.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/icon.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/box.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/tab.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/tabPage.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/vscroll.bmp", 16 },
    { ":/toolbox/resources/img_assets/toolbox/hscroll.bmp", 16 },
    { ":/statusbar/resources/img_assets/status/ruler.png", 16 },
    { ":/statusbar/resources/img_assets/window.png", 16 },
};

QImage load(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

// The colour most pixels of the picture share, among the fully opaque ones.
QColor dominantColour(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb px = image.pixel(x, y);
            if (qAlpha(px) == 255)
                ++counts[px];
        }
    QRgb best = 0;
    int bestCount = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > bestCount) {
            best = it.key();
            bestCount = it.value();
        }
    return QColor::fromRgba(best);
}

// Pixels that draw the shape: mostly covered and darker than a light fill.
bool isInk(QRgb px)
{
    return qAlpha(px) >= 128 && QColor::fromRgba(px).lightness() < 180;
}

// Ink pixels in each column (vertical == false) or row of the image.
QVector<int> inkProfile(const QImage &image, bool vertical)
{
    const int n = vertical ? image.height() : image.width();
    QVector<int> profile(n, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (isInk(image.pixel(x, y)))
                ++profile[vertical ? y : x];
    return profile;
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void imageLoads_data();
    void imageLoads();
    void collectionHoldsExactlyTheseImages();
    void imagesDiffer();
    void colours_data();
    void colours();
    void arrowsPoint_data();
    void arrowsPoint();
    void desktopIcons_data();
    void desktopIcons();
};

void TestResources::imageLoads_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("size");
    for (const Image &image : kImages)
        QTest::newRow(image.path) << QString::fromLatin1(image.path) << image.size;
}

void TestResources::imageLoads()
{
    QFETCH(QString, path);
    QFETCH(int, size);

    QVERIFY2(QFile::exists(path), "not in the resources");
    QImageReader reader(path);
    // The content, not the file name, decides what a file is.
    reader.setDecideFormatFromContent(true);
    const QByteArray wanted = path.endsWith(QLatin1String(".bmp")) ? "bmp" : "png";
    QCOMPARE(reader.format(), wanted);
    const QImage raw = reader.read();
    QVERIFY2(!raw.isNull(), qPrintable(reader.errorString()));
    QCOMPARE(raw.size(), QSize(size, size));

    const QImage image = raw.convertToFormat(QImage::Format_ARGB32);
    QSet<QRgb> colours;
    int opaque = 0, clear = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb px = image.pixel(x, y);
            colours.insert(px);
            opaque += qAlpha(px) == 255;
            clear += qAlpha(px) == 0;
        }
    QVERIFY2(colours.size() >= 3, "a flat image, not a picture");
    QVERIFY2(opaque >= size * size / 20, "hardly anything drawn");

    if (wanted == "png") {
        // Drawn on a transparent ground, so that it sits on any background.
        QVERIFY(raw.hasAlphaChannel());
        QVERIFY2(clear > 0, "no transparent ground");
    } else {
        // A bitmap has no alpha: its ground is the light grey of a toolbar.
        QCOMPARE(clear, 0);
        QVERIFY2(QColor(image.pixel(0, 0)).lightness() > 200, "dark ground");
    }
}

void TestResources::collectionHoldsExactlyTheseImages()
{
    QSet<QString> expected;
    for (const Image &image : kImages)
        expected.insert(QString::fromLatin1(image.path));
    QCOMPARE(expected.size(), int(std::size(kImages)));

    QSet<QString> found;
    QDirIterator it(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (path.contains(QLatin1String("/resources/img_assets/")))
            found.insert(path);
    }
    const QSet<QString> stray = found - expected;
    const QSet<QString> missing = expected - found;
    QVERIFY2(stray.isEmpty(), qPrintable(QStringList(stray.values()).join(QLatin1Char(' '))));
    QVERIFY2(missing.isEmpty(), qPrintable(QStringList(missing.values()).join(QLatin1Char(' '))));
}

void TestResources::imagesDiffer()
{
    // Each image stands for one thing: no two may be the same picture.
    QHash<QByteArray, QString> seen;
    for (const Image &entry : kImages) {
        const QString path = QString::fromLatin1(entry.path);
        const QImage image = load(path);
        QVERIFY2(!image.isNull(), entry.path);
        const QByteArray bits(reinterpret_cast<const char *>(image.constBits()),
                              int(image.sizeInBytes()));
        QVERIFY2(!seen.contains(bits), qPrintable(path + QStringLiteral(" looks like ")
                                                  + seen.value(bits)));
        seen.insert(bits, path);
    }
}

void TestResources::colours_data()
{
    // Hue range in degrees; a range of -1, -1 asks for a grey.
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("hueFrom");
    QTest::addColumn<int>("hueTo");

    const QString msgs = QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/");
    const QString syntax = QStringLiteral(":/messages/syntax/resources/img_assets/messages/syntax/");
    const QString find = QStringLiteral(":/find/resources/img_assets/editor/find/");

    QTest::newRow("message blue") << msgs + "blue.png" << 200 << 250;
    QTest::newRow("message green") << msgs + "green.png" << 90 << 150;
    QTest::newRow("message grey") << msgs + "grey.png" << -1 << -1;
    QTest::newRow("message orange") << msgs + "orange.png" << 20 << 40;
    QTest::newRow("message red") << msgs + "red.png" << -10 << 10;
    QTest::newRow("message yellow") << msgs + "yellow.png" << 45 << 65;
    QTest::newRow("information") << syntax + "information.png" << 200 << 240;
    QTest::newRow("warning") << syntax + "warning.png" << 40 << 60;
    QTest::newRow("error") << syntax + "error.png" << -10 << 10;
    QTest::newRow("case sensitive search") << find + "search_green.png" << 90 << 150;
    QTest::newRow("regular expression search") << find + "search_red.png" << -10 << 10;
    QTest::newRow("whole word search") << find + "search_blue.png" << 200 << 250;
    QTest::newRow("identifier search") << find + "search_orange.png" << 20 << 40;
}

void TestResources::colours()
{
    QFETCH(QString, path);
    QFETCH(int, hueFrom);
    QFETCH(int, hueTo);

    const QImage image = load(path);
    QVERIFY(!image.isNull());
    const QColor c = dominantColour(image).toHsv();
    const QByteArray seen = c.name().toLatin1();
    if (hueFrom < 0 && hueTo < 0) {
        QVERIFY2(c.hsvSaturation() < 40, seen.constData());
        QVERIFY2(c.value() > 80 && c.value() < 220, seen.constData());
        return;
    }
    QVERIFY2(c.hsvSaturation() > 120, seen.constData());
    QVERIFY2(c.value() > 110, seen.constData());
    int hue = c.hsvHue();
    if (hueFrom < 0 && hue > 180)
        hue -= 360; // reds straddle 0 degrees
    QVERIFY2(hue >= hueFrom && hue <= hueTo, seen.constData());
}

void TestResources::arrowsPoint_data()
{
    // An arrow narrows to its point: the end it points to has less ink
    // across it than the other end.
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("towardsEnd");

    const QString block = QStringLiteral(":/block/resources/img_assets/editor/block/");
    const QString find = QStringLiteral(":/find/resources/img_assets/editor/find/");
    QTest::newRow("open block points down") << block + "expanded.png" << true << true;
    QTest::newRow("folded block points right") << block + "right.png" << false << true;
    QTest::newRow("open group points down") << block + "expanded2.png" << true << true;
    QTest::newRow("folded group points right") << block + "right2.png" << false << true;
    QTest::newRow("next points right") << find + "next.png" << false << true;
    QTest::newRow("previous points left") << find + "previous.png" << false << false;
}

void TestResources::arrowsPoint()
{
    QFETCH(QString, path);
    QFETCH(bool, vertical);
    QFETCH(bool, towardsEnd);

    const QImage image = load(path);
    QVERIFY(!image.isNull());
    const QVector<int> profile = inkProfile(image, vertical);
    int first = 0;
    while (first < profile.size() && profile[first] == 0)
        ++first;
    int last = profile.size() - 1;
    while (last >= 0 && profile[last] == 0)
        --last;
    QVERIFY2(first < last, "no shape");
    const int pointEnd = towardsEnd ? profile[last] : profile[first];
    const int tailEnd = towardsEnd ? profile[first] : profile[last];
    QVERIFY2(pointEnd < tailEnd,
             qPrintable(QStringLiteral("point %1, tail %2").arg(pointEnd).arg(tailEnd)));
}

void TestResources::desktopIcons_data()
{
    QTest::addColumn<int>("size");
    for (int size : { 16, 32, 48, 64, 128, 256 })
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void TestResources::desktopIcons()
{
    QFETCH(int, size);
    const QString path = QStringLiteral(TARNWICK_SOURCE_DIR "/resources/appicon/hicolor/%1x%1/apps/tarnwick.png")
                             .arg(size);
    QVERIFY2(QFile::exists(path), qPrintable(path));
    const QImage image = load(path);
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(), QSize(size, size));
    // Rounded corners on a transparent ground, a solid body.
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(size / 2, size / 2)), 255);

    // Every size shows the same logo: shrunk to 16 pixels, it is close to
    // the 16-pixel icon.
    const QImage small = load(QStringLiteral(TARNWICK_SOURCE_DIR
                                             "/resources/appicon/hicolor/16x16/apps/tarnwick.png"));
    QVERIFY(!small.isNull());
    const QImage shrunk =
        image.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32);
    qint64 difference = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const QRgb a = shrunk.pixel(x, y), b = small.pixel(x, y);
            difference += qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b))
                + qAbs(qBlue(a) - qBlue(b)) + qAbs(qAlpha(a) - qAlpha(b));
        }
    const double perChannel = double(difference) / (16 * 16 * 4);
    QVERIFY2(perChannel < 24, qPrintable(QString::number(perChannel)));
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
