// The icons of the completion lists: every image the lists name is in the
// resources, and each row carries the image meant for it.

#include "mslinfo.h"
#include "msltextedit.h"
#include "progids.h"

#include <QFile>
#include <QIcon>
#include <QImage>
#include <QSet>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

namespace {

const QString completerDir = QStringLiteral(":/completer/resources/img_assets/completer/");
const QString comDir = QStringLiteral(":/completer/com/resources/img_assets/com/");

const QString propertyPath = completerDir + QStringLiteral("property.png");
const QString builtPath = completerDir + QStringLiteral("builtident.png");
const QString customPath = completerDir + QStringLiteral("customident.png");
const QString customLocalPath = completerDir + QStringLiteral("customlocalident.png");

// What a popup shows of an icon.
QImage shown(const QIcon &icon)
{
    return icon.pixmap(QSize(16, 16)).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage shown(const QString &path)
{
    return shown(QIcon(path));
}

QStringList comIconPaths()
{
    QStringList paths;
    for (const auto &row : expectedProgIds()) {
        const QString path = comDir + row.second;
        if (!paths.contains(path))
            paths << path;
    }
    return paths;
}

QStandardItemModel *standardModel(QAbstractItemModel *model)
{
    return qobject_cast<QStandardItemModel *>(model);
}

} // namespace

class TestMslInfoIcons : public QObject
{
    Q_OBJECT

private slots:
    void resourcesLoad_data();
    void resourcesLoad();
    void iconsDiffer();
    void progIdIcons();
    void propertyIcons();
    void identIcons();
};

void TestMslInfoIcons::resourcesLoad_data()
{
    QTest::addColumn<QString>("path");
    for (const QString &path : { propertyPath, builtPath, customPath, customLocalPath })
        QTest::newRow(qPrintable(path)) << path;
    for (const QString &path : comIconPaths())
        QTest::newRow(qPrintable(path)) << path;
}

void TestMslInfoIcons::resourcesLoad()
{
    QFETCH(QString, path);
    QVERIFY2(QFile::exists(path), qPrintable(path));
    QVERIFY2(!QImage(path).isNull(), qPrintable(path));
    QVERIFY(!QIcon(path).isNull());
}

void TestMslInfoIcons::iconsDiffer()
{
    // Otherwise the row checks below could not tell one icon from another.
    const QStringList kinds{ propertyPath, builtPath, customPath, customLocalPath };
    const QStringList coms = comIconPaths();
    QCOMPARE(coms.size(), 29);
    for (const QStringList &group : { kinds, coms }) {
        QSet<QByteArray> seen;
        for (const QString &path : group) {
            const QImage image = shown(path);
            QVERIFY2(!image.isNull(), qPrintable(path));
            const QByteArray bits(reinterpret_cast<const char *>(image.constBits()),
                                  int(image.sizeInBytes()));
            QVERIFY2(!seen.contains(bits),
                     qPrintable(path + QStringLiteral(" looks like another")));
            seen.insert(bits);
        }
    }
}

void TestMslInfoIcons::progIdIcons()
{
    const auto expected = expectedProgIds();
    QObject owner;
    QStandardItemModel *model = standardModel(MslInfo::getComProIds(&owner));
    QVERIFY(model);
    QCOMPARE(model->rowCount(), expected.size());
    for (int r = 0; r < expected.size(); ++r) {
        QCOMPARE(model->item(r)->text(), expected.at(r).first);
        QVERIFY2(shown(model->item(r)->icon()) == shown(comDir + expected.at(r).second),
                 qPrintable(expected.at(r).first));
    }
}

void TestMslInfoIcons::propertyIcons()
{
    QObject owner;
    QStandardItemModel *model =
        standardModel(MslInfo::getIdentPropProIds(QStringLiteral("$sock"), &owner));
    QVERIFY(model);
    QVERIFY(model->rowCount() > 0);
    const QImage property = shown(propertyPath);
    for (int r = 0; r < model->rowCount(); ++r)
        QVERIFY(shown(model->item(r)->icon()) == property);
}

void TestMslInfoIcons::identIcons()
{
    QTextDocument doc(QStringLiteral("a\nb\nc\nd\ne"));
    const struct
    {
        const char *name;
        bool isLocal;
    } aliases[] = { { "first", true }, { "second", false }, { "first", false },
                    { "second", true }, { "third", false } };
    QTextBlock block = doc.firstBlock();
    for (const auto &alias : aliases) {
        auto *data = new CBlockData;
        data->blockType = CBlockData::Alias;
        data->containedBlock = QString::fromLatin1(alias.name);
        data->isLocal = alias.isLocal;
        block.setUserData(data);
        block = block.next();
    }

    QObject owner;
    QStandardItemModel *model = standardModel(MslInfo::getIdentIds(&owner, doc.firstBlock()));
    QVERIFY(model);
    QCOMPARE(model->rowCount(), 210);

    const QImage built = shown(builtPath);
    for (int r = 0; r < 207; ++r)
        QVERIFY2(shown(model->item(r)->icon()) == built, qPrintable(model->item(r)->text()));

    // The first definition of a name decides between local and global.
    QCOMPARE(model->item(207)->text(), QStringLiteral("$first"));
    QVERIFY(shown(model->item(207)->icon()) == shown(customLocalPath));
    QCOMPARE(model->item(208)->text(), QStringLiteral("$second"));
    QVERIFY(shown(model->item(208)->icon()) == shown(customPath));
    QCOMPARE(model->item(209)->text(), QStringLiteral("$third"));
    QVERIFY(shown(model->item(209)->icon()) == shown(customPath));
}

QTEST_MAIN(TestMslInfoIcons)
#include "tst_mslinfo_icons.moc"
