// The completion models: their rows, order, colours and fonts, the
// completers made on them, and the identifier list made from a real
// document.

#include "analyserharness.h"
#include "mslinfo.h"
#include "msltextedit.h"
#include "progids.h"

#include <QBrush>
#include <QCompleter>
#include <QPointer>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

namespace {

// The mIRC palette by colour number.
const QColor palette[16] = {
    QColor(255, 255, 255), QColor(0, 0, 0),       QColor(0, 0, 127),     QColor(0, 147, 0),
    QColor(255, 0, 0),     QColor(127, 0, 0),     QColor(156, 0, 156),   QColor(252, 127, 0),
    QColor(255, 255, 0),   QColor(0, 252, 0),     QColor(0, 147, 147),   QColor(0, 255, 255),
    QColor(0, 0, 252),     QColor(255, 0, 255),   QColor(127, 127, 127), QColor(210, 210, 210),
};

const QChar ctrlK(0x03);

QStringList texts(const QAbstractItemModel *model)
{
    QStringList list;
    for (int r = 0; r < model->rowCount(); ++r)
        list << model->index(r, 0).data().toString();
    return list;
}

QStringList completions(QCompleter *completer, const QString &prefix)
{
    completer->setCompletionPrefix(prefix);
    QStringList list;
    for (int i = 0; i < completer->completionCount(); ++i) {
        completer->setCurrentRow(i);
        list << completer->currentCompletion();
    }
    return list;
}

// Every way to write one colour number: two digits, and one digit below 10.
QStringList numberForms(int n)
{
    QStringList forms{ QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')) };
    if (n < 10)
        forms << QString::number(n);
    return forms;
}

CBlockData *record(QTextBlock block, int type, const QString &name, bool isLocal)
{
    auto *data = new CBlockData;
    data->blockType = type;
    data->containedBlock = name;
    data->isLocal = isLocal;
    block.setUserData(data);
    return data;
}

// User data of some other kind; the list must pass over it.
class ForeignData : public QTextBlockUserData
{
};

} // namespace

class TestMslInfoModels : public QObject
{
    Q_OBJECT

private slots:
    void completers_data();
    void completers();

    void comProgIds();

    void colorCodeRows();
    void colorCodeFirstRows();
    void colorCodeBrushesAndFont();
    void colorCompleterPrefix_data();
    void colorCompleterPrefix();

    void identPropProIds_data();
    void identPropProIds();

    void identIdsTableFirst();
    void identIdsAliases();
    void identIdsFromGivenBlock();
    void identIdsReflectsEdits();
    void identIdsFromHighlighter();
};

void TestMslInfoModels::completers_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("caseSensitivity");

    QTest::newRow("com") << 0 << 91 << int(Qt::CaseInsensitive);
    QTest::newRow("ident prop") << 1 << -1 << int(Qt::CaseInsensitive);
    QTest::newRow("ident") << 2 << -1 << int(Qt::CaseInsensitive);
    QTest::newRow("color") << 3 << 702 << int(Qt::CaseSensitive);
}

void TestMslInfoModels::completers()
{
    QFETCH(int, kind);
    QFETCH(int, rows);
    QFETCH(int, caseSensitivity);

    QObject owner;
    QCompleter *completer = nullptr;
    switch (kind) {
    case 0: completer = MslInfo::getComCompleter(&owner); break;
    case 1: completer = MslInfo::getIdentPropCompleter(&owner); break;
    case 2: completer = MslInfo::getIdentCompleter(&owner); break;
    default: completer = MslInfo::getColorCompleter(&owner); break;
    }
    QVERIFY(completer);
    QCOMPARE(completer->parent(), &owner);
    QCOMPARE(completer->modelSorting(), QCompleter::UnsortedModel);
    QCOMPARE(int(completer->caseSensitivity()), caseSensitivity);
    QVERIFY(!completer->wrapAround());

    if (rows < 0) {
        QVERIFY(!completer->model());
    } else {
        QVERIFY(completer->model());
        QCOMPARE(completer->model()->rowCount(), rows);
        QCOMPARE(completer->model()->parent(), completer);
    }

    // The owner takes the completer and its model with it.
    QPointer<QCompleter> guard(completer);
    delete completer;
    QVERIFY(guard.isNull());
}

void TestMslInfoModels::comProgIds()
{
    const auto expected = expectedProgIds();
    QCOMPARE(expected.size(), 91);

    QObject owner;
    QAbstractItemModel *model = MslInfo::getComProIds(&owner);
    QCOMPARE(model->parent(), &owner);
    QCOMPARE(model->columnCount(), 1);
    QCOMPARE(model->rowCount(), 91);
    for (int r = 0; r < expected.size(); ++r)
        QCOMPARE(model->index(r, 0).data().toString(), expected.at(r).first);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("WScript.Shell"));
    QVERIFY(texts(model).contains(QStringLiteral("Skype Skype4COM.Skype")));

    // A fresh model at every call.
    QAbstractItemModel *again = MslInfo::getComProIds(&owner);
    QVERIFY(again != model);
    QCOMPARE(texts(again), texts(model));

    // Neither model nor completer sorts: the popup keeps table order.
    QCompleter *completer = MslInfo::getComCompleter(&owner);
    QStringList all;
    for (const auto &row : expected)
        all << row.first;
    QCOMPARE(completions(completer, QString()), all);
    QCOMPARE(completions(completer, QStringLiteral("wbemscripting.")),
             QStringList({ "WbemScripting.SwbemDateTime", "WbemScripting.SWbemLocator",
                           "WbemScripting.SWbem.LastError", "WbemScripting.SWbemObjectPath",
                           "WbemScripting.SWbemNamedValueSet", "WbemScripting.SWbemRefresher" }));
    QCOMPARE(completions(completer, QStringLiteral("LITEX.")),
             QStringList({ "Litex.LiteConnection", "LiteX.LiteStatement" }));
}

void TestMslInfoModels::colorCodeRows()
{
    QObject owner;
    QAbstractItemModel *model = MslInfo::getColorCodes(&owner);
    QCOMPARE(model->parent(), &owner);
    QCOMPARE(model->columnCount(), 1);
    QCOMPARE(model->rowCount(), 702);

    const QStringList got = texts(model);
    const QSet<QString> gotSet(got.cbegin(), got.cend());
    QCOMPARE(gotSet.size(), 702); // none twice

    // Exactly every way of writing a foreground, or a pair.
    QSet<QString> wanted;
    for (int n = 0; n < 16; ++n) {
        for (const QString &fg : numberForms(n)) {
            wanted.insert(ctrlK + fg);
            for (int nn = 0; nn < 16; ++nn) {
                for (const QString &bg : numberForms(nn))
                    wanted.insert(ctrlK + fg + QLatin1Char(',') + bg);
            }
        }
    }
    QCOMPARE(gotSet, wanted);

    // Grouped by foreground, "%.2d" of each number leading its group.
    for (int n = 0; n < 16; ++n) {
        const int start = got.indexOf(ctrlK + numberForms(n).first());
        QVERIFY(start >= 0);
        const int size = n < 10 ? 2 + 16 * 2 + 10 * 2 : 1 + 16 + 10;
        for (int r = start; r < start + size; ++r) {
            const QString number = got.at(r).mid(1).section(QLatin1Char(','), 0, 0);
            QCOMPARE(number.toInt(), n);
        }
    }

    QVERIFY(MslInfo::getColorCodes(&owner) != model);
}

void TestMslInfoModels::colorCodeFirstRows()
{
    QObject owner;
    const QStringList got = texts(MslInfo::getColorCodes(&owner));
    QStringList first;
    for (const char *code :
         { "00", "0", "00,00", "0,00", "0,0", "00,0", "00,01", "0,01", "0,1", "00,1" })
        first << ctrlK + QLatin1String(code);
    QCOMPARE(got.mid(0, 10), first);
    QCOMPARE(got.last(), ctrlK + QStringLiteral("15,15"));
}

void TestMslInfoModels::colorCodeBrushesAndFont()
{
    QObject owner;
    QAbstractItemModel *model = MslInfo::getColorCodes(&owner);
    for (int r = 0; r < model->rowCount(); ++r) {
        const QModelIndex index = model->index(r, 0);
        const QString text = index.data().toString();
        QVERIFY(text.startsWith(ctrlK));
        const QStringList numbers = text.mid(1).split(QLatin1Char(','));

        const QBrush fg = index.data(Qt::ForegroundRole).value<QBrush>();
        QCOMPARE(fg.style(), Qt::SolidPattern);
        QCOMPARE(fg.color(), palette[numbers.at(0).toInt()]);

        const QVariant bgData = index.data(Qt::BackgroundRole);
        if (numbers.size() == 1) {
            QVERIFY2(!bgData.isValid(), qPrintable(text.mid(1)));
        } else {
            const QBrush bg = bgData.value<QBrush>();
            QCOMPARE(bg.style(), Qt::SolidPattern);
            QCOMPARE(bg.color(), palette[numbers.at(1).toInt()]);
        }

        const QFont font = index.data(Qt::FontRole).value<QFont>();
        QCOMPARE(font.weight(), QFont::Bold);
    }

    // A few rows by hand.
    const QStringList got = texts(model);
    const QModelIndex fourOnTwelve = model->index(got.indexOf(ctrlK + QStringLiteral("4,12")), 0);
    QCOMPARE(fourOnTwelve.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(255, 0, 0));
    QCOMPARE(fourOnTwelve.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 0, 252));
    const QModelIndex fifteen = model->index(got.indexOf(ctrlK + QStringLiteral("15")), 0);
    QCOMPARE(fifteen.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(210, 210, 210));
}

void TestMslInfoModels::colorCompleterPrefix_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("expected");

    QStringList fourWithBackground;
    for (int nn = 0; nn < 16; ++nn)
        fourWithBackground << ctrlK + QStringLiteral("4,%1").arg(nn, 2, 10, QLatin1Char('0'));
    for (int nn = 0; nn < 10; ++nn)
        fourWithBackground << ctrlK + QStringLiteral("4,%1").arg(nn);
    // Interleaved as the model has them: 4,00 4,0 4,01 4,1 ...
    std::stable_sort(fourWithBackground.begin(), fourWithBackground.end(),
                     [](const QString &a, const QString &b) {
                         return a.section(QLatin1Char(','), 1).toInt()
                             < b.section(QLatin1Char(','), 1).toInt();
                     });
    QTest::newRow("4 with a background") << ctrlK + QStringLiteral("4,") << fourWithBackground;

    QStringList fifteenOnTen{ ctrlK + QStringLiteral("15,10") };
    QTest::newRow("15 on 10") << ctrlK + QStringLiteral("15,10") << fifteenOnTen;
    QTest::newRow("no such colour") << ctrlK + QStringLiteral("16") << QStringList();
    QTest::newRow("without the control character") << QStringLiteral("4,") << QStringList();
}

void TestMslInfoModels::colorCompleterPrefix()
{
    QFETCH(QString, prefix);
    QFETCH(QStringList, expected);

    QObject owner;
    QCompleter *completer = MslInfo::getColorCompleter(&owner);
    const QStringList got = completions(completer, prefix);
    QCOMPARE(got, expected);
    if (prefix == ctrlK + QStringLiteral("4,"))
        QCOMPARE(got.size(), 26);

    // The bare control character lists every row.
    QCOMPARE(completions(completer, QString(ctrlK)).size(), 702);
}

void TestMslInfoModels::identPropProIds_data()
{
    QTest::addColumn<QString>("ident");
    QTest::addColumn<bool>("isNull");
    QTest::addColumn<QStringList>("props");

    QTest::newRow("unknown") << "$nosuchident" << true << QStringList();
    QTest::newRow("empty") << "" << true << QStringList();
    QTest::newRow("encode") << "$encode" << true << QStringList();
    QTest::newRow("without dollar") << "window" << true << QStringList();
    QTest::newRow("abs has none") << "$abs" << false << QStringList();
    QTest::newRow("decode in capitals") << "$DECODE" << false << QStringList();
    QTest::newRow("bare dollar") << "$" << false << QStringList();
    QTest::newRow("abook") << "$Abook" << false
        << QStringList({ "nick", "info", "email", "website", "picture", "noteN" });
    QTest::newRow("ialchan") << "$ialchan" << false << QStringList({ "pnick" });
    QTest::newRow("window") << "$window" << false
        << QStringList({ "x", "y", "w", "h", "dx", "dy", "dw", "dh", "bw", "bh", "mdi",
                         "title", "state", "font", "fontsize", "fontbold", "fontitalic",
                         "fontcs", "logfile", "stamp", "icon", "ontop", "type", "anysc",
                         "wid", "cid", "hwnd", "sbtext", "sbcolor", "sbstate", "tbtext",
                         "tbstate" });
}

void TestMslInfoModels::identPropProIds()
{
    QFETCH(QString, ident);
    QFETCH(bool, isNull);
    QFETCH(QStringList, props);

    QObject owner;
    QAbstractItemModel *model = MslInfo::getIdentPropProIds(ident, &owner);
    if (isNull) {
        QVERIFY(!model);
        QVERIFY(owner.children().isEmpty()); // nothing made on the way
        return;
    }
    QVERIFY(model);
    QCOMPARE(model->parent(), &owner);
    QCOMPARE(texts(model), props);
    if (ident == QLatin1String("$window"))
        QCOMPARE(model->rowCount(), 32);
}

void TestMslInfoModels::identIdsTableFirst()
{
    QObject owner;
    QTextDocument doc(QStringLiteral("echo plain text\nno records here"));
    QAbstractItemModel *model = MslInfo::getIdentIds(&owner, doc.firstBlock());
    QCOMPARE(model->parent(), &owner);
    QCOMPARE(model->rowCount(), 207);

    const identifier *table = MslInfo::getIdentsList();
    for (int r = 0; r < 207; ++r)
        QCOMPARE(model->index(r, 0).data().toString(), QString::fromLatin1(table[r].name));

    const QStringList got = texts(model);
    QCOMPARE(got.first(), QStringLiteral("$"));
    QCOMPARE(got.count(QStringLiteral("$decode")), 2);
    QVERIFY(!got.contains(QStringLiteral("$encode")));
    QCOMPARE(got.last(), QStringLiteral("$xor"));

    // Without a document at all the table still stands.
    QCOMPARE(MslInfo::getIdentIds(&owner, QTextBlock())->rowCount(), 207);
}

void TestMslInfoModels::identIdsAliases()
{
    QTextDocument doc(QStringLiteral("a\nb\nc\nd\ne\nf\ng\nh\ni\nj"));
    QTextBlock b = doc.firstBlock();
    record(b, CBlockData::Alias, QStringLiteral("foo"), true); // 0
    b = b.next();
    record(b, CBlockData::NoBlock, QString(), false); // 1: body line
    b = b.next();
    record(b, CBlockData::Alias, QStringLiteral("foo"), false); // 2: again, global
    b = b.next();
    record(b, CBlockData::Alias, QStringLiteral("bar"), false); // 3
    b = b.next();
    record(b, CBlockData::Alias, QStringLiteral("left"), false); // 4: a table name
    b = b.next();
    record(b, CBlockData::Dialog, QStringLiteral("dlg"), false); // 5
    b = b.next();
    record(b, CBlockData::Event, QStringLiteral("TEXT"), false); // 6
    b = b.next();
    b.setUserData(new ForeignData); // 7
    b = b.next();
    record(b, CBlockData::Alias, QStringLiteral("Foo"), true); // 8: other case
    b = b.next();
    record(b, CBlockData::Alias, QStringLiteral("bar"), true); // 9: again, local

    QObject owner;
    const QStringList got = texts(MslInfo::getIdentIds(&owner, doc.firstBlock()));
    QCOMPARE(got.mid(207), QStringList({ "$foo", "$bar", "$Foo" }));
    QCOMPARE(got.count(QStringLiteral("$left")), 1);
}

void TestMslInfoModels::identIdsFromGivenBlock()
{
    QTextDocument doc(QStringLiteral("a\nb\nc"));
    record(doc.findBlockByNumber(0), CBlockData::Alias, QStringLiteral("early"), false);
    record(doc.findBlockByNumber(2), CBlockData::Alias, QStringLiteral("late"), false);

    QObject owner;
    const QStringList got = texts(MslInfo::getIdentIds(&owner, doc.findBlockByNumber(1)));
    QCOMPARE(got.mid(207), QStringList({ "$late" }));
}

void TestMslInfoModels::identIdsReflectsEdits()
{
    QTextDocument doc(QStringLiteral("a\nb"));
    CBlockData *data = record(doc.firstBlock(), CBlockData::Alias, QStringLiteral("one"), false);

    QObject owner;
    QCOMPARE(texts(MslInfo::getIdentIds(&owner, doc.firstBlock())).mid(207),
             QStringList({ "$one" }));

    // No cache: the next list shows the records of the moment.
    data->containedBlock = QStringLiteral("two");
    record(doc.lastBlock(), CBlockData::Alias, QStringLiteral("three"), false);
    QCOMPARE(texts(MslInfo::getIdentIds(&owner, doc.firstBlock())).mid(207),
             QStringList({ "$two", "$three" }));

    data->blockType = CBlockData::NoBlock;
    QCOMPARE(texts(MslInfo::getIdentIds(&owner, doc.firstBlock())).mid(207),
             QStringList({ "$three" }));

    // Earlier models stay with their parent.
    QCOMPARE(owner.findChildren<QAbstractItemModel *>().size(), 3);
}

void TestMslInfoModels::identIdsFromHighlighter()
{
    AnalyserHarness h;
    h.setLines({
        QStringLiteral("alias -l helper {"),
        QStringLiteral("  return $1"),
        QStringLiteral("}"),
        QStringLiteral("alias helper { echo -a again }"),
        QStringLiteral("alias shout {"),
        QStringLiteral("  echo -a $upper($1)"),
        QStringLiteral("}"),
        QStringLiteral("alias left return x"),
        QStringLiteral("on *:TEXT:*:#:{ echo -a $helper($1) }"),
        QStringLiteral("dialog box {"),
        QStringLiteral("  size -1 -1 100 100"),
        QStringLiteral("}"),
    });

    QObject owner;
    const QStringList got = texts(MslInfo::getIdentIds(&owner, h.document()->firstBlock()));
    QCOMPARE(got.mid(207), QStringList({ "$helper", "$shout" }));
}

QTEST_MAIN(TestMslInfoModels)
#include "tst_mslinfo_models.moc"
