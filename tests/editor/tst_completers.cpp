// The editor's completion popups over the knowledge base's lists: what
// each offers for a prefix, in which order, with which colours and icons.

#include "mslcompleters.h"
#include "mslinfo.h"
#include "testsuite.h"

#include <QCompleter>
#include <QSet>
#include <QStandardItemModel>
#include <QtTest>

namespace {

const QChar ctrlK(0x03);

QStringList texts(const QAbstractItemModel *model)
{
    QStringList list;
    for (int r = 0; model && r < model->rowCount(); ++r)
        list << model->index(r, 0).data().toString();
    return list;
}

QStringList completions(QCompleter *completer, const QString &prefix)
{
    completer->setCompletionPrefix(prefix);
    return texts(completer->completionModel());
}

QImage iconAt(QAbstractItemModel *model, int row)
{
    const QIcon icon = qobject_cast<QStandardItemModel *>(model)->item(row)->icon();
    return icon.pixmap(QSize(16, 16)).toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class Completers : public QObject
{
    Q_OBJECT

private slots:
    void progIds()
    {
        QObject owner;
        QCompleter *completer = MslCompleters::getComCompleter(&owner);
        QAbstractItemModel *model = completer->model();
        const QStringList all = texts(model);
        QCOMPARE(all.size(), 91);
        // The popup keeps table order, uneven capitals and all.
        QCOMPARE(completions(completer, QString()), all);
        QCOMPARE(completions(completer, QStringLiteral("LITEX.")),
                 QStringList({"Litex.LiteConnection", "LiteX.LiteStatement"}));
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
        QObject owner;
        QCompleter *completer = MslCompleters::getColorCompleter(&owner);
        const QStringList all = texts(completer->model());
        QCOMPARE(QSet<QString>(all.cbegin(), all.cend()).size(), 702);
        // Joined and cut at the control character again: each row starts with it.
        QCOMPARE(QStringList(all.mid(0, 10) << all.last())
                     .join(QString())
                     .split(ctrlK, Qt::SkipEmptyParts),
                 QStringLiteral("00 0 00,00 0,00 0,0 00,0 00,01 0,01 0,1 00,1 15,15")
                     .split(QLatin1Char(' ')));
        auto data = [&](const char *code, int role) {
            return completer->model()
                ->index(all.indexOf(ctrlK + QLatin1String(code)), 0)
                .data(role);
        };
        QCOMPARE(data("4,12", Qt::ForegroundRole).value<QBrush>().color(), QColor(255, 0, 0));
        QCOMPARE(data("4,12", Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 0, 252));
        QCOMPARE(data("15", Qt::ForegroundRole).value<QBrush>().color(), QColor(210, 210, 210));
        QVERIFY(!data("15", Qt::BackgroundRole).isValid());
        QVERIFY(data("07,3", Qt::FontRole).value<QFont>().bold());
        // Case-sensitive, and only behind the control character.
        QCOMPARE(completions(completer, QString(ctrlK)).size(), 702);
        const QStringList four = completions(completer, ctrlK + QStringLiteral("4,"));
        QCOMPARE(four.size(), 26);
        QCOMPARE(four.mid(0, 3).join(QString()),
                 QString(ctrlK + QStringLiteral("4,00") + ctrlK + "4,0" + ctrlK + "4,01"));
        QVERIFY(completions(completer, QStringLiteral("4,")).isEmpty());
    }
};

TARNWICK_TEST(Completers);
#include "tst_completers.moc"
