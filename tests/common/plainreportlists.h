#ifndef PLAINREPORTLISTS_H
#define PLAINREPORTLISTS_H

// The two report lists kept the plain way, for tests that compare the
// report store (and the dock built on it) against it.

#include "msltextedit.h"
#include "reportstore.h"

#include <QIcon>
#include <QStandardItemModel>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>

// The straightforward lists: every operation written as the slots of the
// dock describe it, with no index of any kind.
class PlainLists
{
public:
    QStandardItemModel debug{0, 6};
    QStandardItemModel messages{0, 5};

    int add(int lineNum, int linePos, const QString &fname, const QString &block, int type,
            const QString &err, int sortColumn, Qt::SortOrder order)
    {
        int errId = 1;
        for (int row = 0; row < debug.rowCount(); ++row) {
            const int id = debug.data(debug.index(row, 4), Qt::EditRole).toInt();
            if (id >= errId)
                errId = id;
        }
        for (int row = 0; row < messages.rowCount(); ++row) {
            const int id = messages.data(messages.index(row, 3), Qt::EditRole).toInt();
            if (id >= errId)
                errId = id;
        }
        errId += 1;

        QStandardItemModel *m = type > 9 ? &messages : &debug;
        const int row = m->rowCount();
        m->insertRows(row, 1);
        m->setData(m->index(row, 0), fname, Qt::EditRole);
        m->setData(m->index(row, 1), lineNum, Qt::EditRole);
        m->setData(m->index(row, 2), linePos, Qt::EditRole);
        int c = 3;
        if (m == &debug)
            m->setData(m->index(row, c++), block, Qt::EditRole);
        m->setData(m->index(row, c++), errId, Qt::EditRole);
        m->setData(m->index(row, c), ReportStore::icon(type), Qt::DecorationRole);
        m->setData(m->index(row, c), err, Qt::EditRole);
        m->sort(sortColumn, order);
        return errId;
    }

    void remove(const QVector<int> &ids)
    {
        for (int id : ids) {
            for (int row = 0; row < debug.rowCount(); ++row) {
                if (debug.data(debug.index(row, 4), Qt::EditRole).toInt() == id)
                    debug.removeRows(row, 1);
            }
            for (int row = 0; row < messages.rowCount(); ++row) {
                if (messages.data(messages.index(row, 3), Qt::EditRole).toInt() == id)
                    messages.removeRows(row, 1);
            }
        }
    }

    void removeFile(const QString &path)
    {
        for (QStandardItemModel *m : {&debug, &messages}) {
            for (int row = 0; row < m->rowCount(); ++row) {
                if (m->data(m->index(row, 0), Qt::EditRole).toString() == path) {
                    m->removeRows(row, 1);
                    --row;
                }
            }
        }
    }

    void updateLines(const QString &path, const QTextDocument &doc)
    {
        for (QStandardItemModel *m : {&debug, &messages}) {
            const int idColumn = m == &debug ? 4 : 3;
            for (int row = 0; row < m->rowCount(); ++row) {
                if (m->data(m->index(row, 0), Qt::EditRole).toString() != path)
                    continue;
                const int id = m->data(m->index(row, idColumn), Qt::EditRole).toInt();
                int line = 1;
                for (QTextBlock b = doc.firstBlock(); b.isValid(); b = b.next(), ++line) {
                    auto *data = static_cast<CBlockData *>(b.userData());
                    if (data && data->remId.containsErr(id)) {
                        m->setData(m->index(row, 1), line, Qt::EditRole);
                        break;
                    }
                }
            }
        }
    }
};

// Every cell of every row as text, with the icon's presence, row by row.
inline QStringList rowsOf(const QStandardItemModel &m)
{
    QStringList rows;
    for (int row = 0; row < m.rowCount(); ++row) {
        QStringList cells;
        for (int c = 0; c < m.columnCount(); ++c) {
            const QModelIndex i = m.index(row, c);
            const QVariant v = m.data(i, Qt::EditRole);
            cells << QString::fromLatin1(v.typeName()) + QLatin1Char('=') + v.toString();
            const QVariant icon = m.data(i, Qt::DecorationRole);
            if (icon.isValid())
                cells << QStringLiteral("icon:%1").arg(qvariant_cast<QIcon>(icon).cacheKey());
        }
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

#endif // PLAINREPORTLISTS_H
