// The knowledge base the analyser and the editor look things up in:
// commands, argument checks and call tips (the last two from case files in
// data/), and the completion lists with their order, colours and icons.

#include "analyserharness.h"
#include "mslinfo.h"
#include "testsuite.h"

#include <QFile>
#include <QSet>
#include <QStandardItemModel>
#include <QtTest>

namespace {

// The rows of a case file, '|'-separated; the last field keeps any '|' of its own.
void addCaseRows(const char *file, int fields)
{
    QFile f(QStringLiteral(TARNWICK_TEST_DATA_DIR "/") + QLatin1String(file));
    QVERIFY2(f.open(QIODevice::ReadOnly | QIODevice::Text), file);
    const QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    for (int n = 0; n < lines.size(); ++n) {
        if (lines.at(n).trimmed().isEmpty() || lines.at(n).startsWith(QLatin1Char('#')))
            continue;
        QStringList row = lines.at(n).split(QLatin1Char('|'));
        QVERIFY2(row.size() >= fields, qPrintable(QStringLiteral("%1:%2").arg(file).arg(n + 1)));
        row = row.mid(0, fields - 1) << row.mid(fields - 1).join(QLatin1Char('|'));
        for (QString &field : row)
            field = field.trimmed();
        QTest::addRow("%s:%d %s", file, n + 1, qPrintable(row.first())) << row;
    }
}

QStringList texts(const QAbstractItemModel *model)
{
    QStringList list;
    for (int r = 0; model && r < model->rowCount(); ++r)
        list << model->index(r, 0).data().toString();
    return list;
}

// What a popup shows of an icon, to tell one picture from another.
QImage shown(const QIcon &icon)
{
    return icon.pixmap(QSize(16, 16)).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage iconAt(QAbstractItemModel *model, int row)
{
    return shown(qobject_cast<QStandardItemModel *>(model)->item(row)->icon());
}

QImage resourceIcon(const char *name)
{
    return shown(
        QIcon(QStringLiteral(":/completer/resources/img_assets/completer/") + QLatin1String(name)));
}

} // namespace

class KnowledgeBase : public QObject
{
    Q_OBJECT

private slots:
    void commands()
    {
        const QStringList first = MslInfo::getAllMslCmds();
        QCOMPARE(QSet<QString>(first.cbegin(), first.cend()).size(), 228);
        QCOMPARE(first.first() + first.last(), QStringLiteral("abookxyzzy"));
        // The command patterns inherit this order, departures from the alphabet included.
        QVERIFY(first.indexOf(QStringLiteral("aline")) < first.indexOf(QStringLiteral("alias")));
        for (const char *word : {"halt", "haltdef", "return", "break", "continue"})
            QVERIFY2(first.contains(QLatin1String(word)), word);
        for (const char *word : {"if", "while", "else", "elseif", "goto", "/echo", "ECHO"})
            QVERIFY2(!first.contains(QLatin1String(word)), word);
        // Each call appends the list again; its single caller relies on calling once.
        QCOMPARE(MslInfo::getAllMslCmds(), first + first);
        QCOMPARE(MslInfo::getAllMslCtrlStruc(),
                 QStringList({"while", "if", "elseif", "else", "goto"}));
        QCOMPARE(MslInfo::getAllMslCtrlStrucWithExp(), QStringList({"while", "if", "elseif"}));
    }

    // Sound rows, each found by its name in capitals with its own properties.
    void identifierTable()
    {
        const identifier *row = MslInfo::getIdentsList();
        int rows = 0;
        for (; row->name; ++row, ++rows) {
            QString name = QString::fromLatin1(row->name).toUpper();
            QVERIFY2(name.startsWith(QLatin1Char('$'))
                         && name.toLower() == QLatin1String(row->name),
                     row->name);
            QVERIFY2(row->min >= 1 && row->max >= row->min && !(row->needsEven && row->needsOdd),
                     row->name);
            QVERIFY2(MslInfo::isProperIdentArgs(name, row->min, QString()) == MslInfo::IdentFits,
                     row->name);
            for (int p = 0; p < 35 && row->props[p]; ++p)
                QVERIFY2(MslInfo::isProperIdentArgs(name, row->min,
                                                    QString::fromLatin1(row->props[p]).toUpper())
                             == MslInfo::IdentFits,
                         row->props[p]);
        }
        QCOMPARE(rows, 207);
    }

    void argumentCodes_data()
    {
        QTest::addColumn<QStringList>("row");
        addCaseRows("identargs.txt", 4);
    }

    void argumentCodes()
    {
        QFETCH(QStringList, row);
        QString name = row.at(0);
        QCOMPARE(int(MslInfo::isProperIdentArgs(name, row.at(1).toUInt(), row.at(2))),
                 row.at(3).toInt());
        QCOMPARE(name, row.at(0)); // the caller's text is left as it was
    }

    void syntaxTips_data()
    {
        QTest::addColumn<QStringList>("row");
        addCaseRows("syntaxtips.txt", 3);
    }

    void syntaxTips()
    {
        QFETCH(QStringList, row);
        QCOMPARE(MslInfo::getIdentSyntaxAt(row.at(0), row.at(1).toInt()), row.at(2));
    }

    void progIds()
    {
        QObject owner;
        QAbstractItemModel *model = MslInfo::getComProIds(&owner);
        const QStringList all = texts(model);
        QCOMPARE(all.size(), 91);
        // Every row has its picture; WScript.Shell and Shell.Application share one.
        for (int r = 0; r < 91; ++r)
            QVERIFY2(!iconAt(model, r).isNull(), qPrintable(all.at(r)));
        QCOMPARE(all.first(), QStringLiteral("WScript.Shell"));
        QVERIFY(iconAt(model, 0)
                == iconAt(model, all.indexOf(QStringLiteral("Shell.Application"))));
        QVERIFY(iconAt(model, 0) != iconAt(model, 1));
    }

    void colourCodes()
    {
        const QChar ctrlK(0x03);
        QObject owner;
        QAbstractItemModel *model = MslInfo::getColorCodes(&owner);
        const QStringList all = texts(model);
        QCOMPARE(QSet<QString>(all.cbegin(), all.cend()).size(), 702);
        // Joined and cut at the control character again: each row starts with it.
        QCOMPARE(QStringList(all.mid(0, 10) << all.last())
                     .join(QString())
                     .split(ctrlK, Qt::SkipEmptyParts),
                 QStringLiteral("00 0 00,00 0,00 0,0 00,0 00,01 0,01 0,1 00,1 15,15")
                     .split(QLatin1Char(' ')));
        auto data = [&](const char *code, int role) {
            return model->index(all.indexOf(ctrlK + QLatin1String(code)), 0).data(role);
        };
        QCOMPARE(data("4,12", Qt::ForegroundRole).value<QBrush>().color(), QColor(255, 0, 0));
        QCOMPARE(data("4,12", Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 0, 252));
        QCOMPARE(data("15", Qt::ForegroundRole).value<QBrush>().color(), QColor(210, 210, 210));
        QVERIFY(!data("15", Qt::BackgroundRole).isValid());
        QVERIFY(data("07,3", Qt::FontRole).value<QFont>().bold());
    }

    void properties()
    {
        QObject owner;
        for (const char *name : {"$nosuchident", "$encode", "window", ""})
            QVERIFY2(!MslInfo::getIdentPropProIds(QLatin1String(name), &owner), name);
        QVERIFY(owner.children().isEmpty()); // nothing made on the way
        QAbstractItemModel *decode = MslInfo::getIdentPropProIds(QStringLiteral("$DECODE"), &owner);
        QVERIFY(decode && decode->rowCount() == 0); // the first row of the name, without properties
        QCOMPARE(texts(MslInfo::getIdentPropProIds(QStringLiteral("$Abook"), &owner)),
                 QStringList({"nick", "info", "email", "website", "picture", "noteN"}));
        QAbstractItemModel *window = MslInfo::getIdentPropProIds(QStringLiteral("$window"), &owner);
        QCOMPARE(texts(window).size(), 32);
        QCOMPARE(texts(window).last(), QStringLiteral("tbstate"));
        QVERIFY(iconAt(window, 31) == resourceIcon("property.png"));
    }

    // The identifier list: the table, then the document's own aliases.
    void identifiers()
    {
        AnalyserHarness h;
        h.setLines({"alias -l helper {", "  return $1", "}", "alias helper { echo -a again }",
                    "alias shout {", "  echo -a $upper($1)", "}", "alias left return x",
                    "alias Shout return y", "on *:TEXT:*:#:{ echo -a $helper($1) }", "dialog box {",
                    "  size -1 -1 100 100", "}", "alias late return z"});
        QObject owner;
        QAbstractItemModel *model
            = MslInfo::getIdentIds(&owner, h.document()->findBlockByNumber(1));
        const QStringList got = texts(model);
        QCOMPARE(got.first() + got.at(206), QStringLiteral("$$xor"));
        QCOMPARE(got.count(QStringLiteral("$decode")), 2);
        QCOMPARE(got.mid(207), QStringList({"$helper", "$shout", "$Shout", "$late"}));
        QVERIFY(iconAt(model, 0) == resourceIcon("builtident.png")
                && iconAt(model, 206) == iconAt(model, 0));
        // The first definition met, behind the local one, makes it global.
        QVERIFY(iconAt(model, 207) == resourceIcon("customident.png")
                && iconAt(model, 207) != resourceIcon("customlocalident.png"));
        QVERIFY(iconAt(MslInfo::getIdentIds(&owner, h.document()->firstBlock()), 207)
                == resourceIcon("customlocalident.png"));

        // No cache: the next list holds the aliases of the moment.
        QTextCursor cursor(h.document()->lastBlock());
        cursor.insertText(QStringLiteral("alias later return z\n"));
        QCoreApplication::processEvents();
        QCOMPARE(texts(MslInfo::getIdentIds(&owner, h.document()->firstBlock())).mid(207),
                 QStringList({"$helper", "$shout", "$Shout", "$later", "$late"}));
        QCOMPARE(MslInfo::getIdentIds(&owner, QTextBlock())->rowCount(), 207);
    }
};

TARNWICK_TEST(KnowledgeBase);
#include "tst_knowledgebase.moc"
