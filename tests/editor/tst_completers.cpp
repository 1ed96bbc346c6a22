// The editor's completion popups over the knowledge base's lists: what
// each offers for a typed prefix, in the order of the lists.

#include "mslcompleters.h"
#include "mslinfo.h"
#include "testsuite.h"

#include <QCompleter>
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


} // namespace

class Completers : public QObject
{
    Q_OBJECT

private slots:
    // The popups keep the lists' order and filter by the typed prefix.
    void progIds()
    {
        QObject owner;
        QCompleter *completer = MslCompleters::getComCompleter(&owner);
        QCOMPARE(completions(completer, QString()), texts(completer->model()));
        QCOMPARE(completions(completer, QStringLiteral("LITEX.")),
                 QStringList({"Litex.LiteConnection", "LiteX.LiteStatement"}));
    }

    // Case-sensitive, and only behind the control character.
    void colourCodes()
    {
        QObject owner;
        QCompleter *completer = MslCompleters::getColorCompleter(&owner);
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
