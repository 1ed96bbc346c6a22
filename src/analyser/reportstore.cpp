#include "reportstore.h"

#include "msltextedit.h"

#include <QStandardItem>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>

namespace {

// Marks the store's own edits for the duration of a scope.
class OwnChange
{
public:
    explicit OwnChange(int &counter) : c(counter) { ++c; }
    ~OwnChange() { --c; }

private:
    int &c;
};

QStandardItem *newCell(const QVariant &value)
{
    auto *item = new QStandardItem;
    item->setData(value, Qt::EditRole);
    return item;
}

} // namespace

ReportStore::ReportStore(QStandardItemModel *debug, QStandardItemModel *messages,
                         QObject *parent)
    : QObject(parent)
{
    lists[DebugList].model = debug;
    lists[DebugList].idColumn = DebugIdColumn;
    lists[MessagesList].model = messages;
    lists[MessagesList].idColumn = MessagesIdColumn;
    for (List list : {DebugList, MessagesList}) {
        forgetAll(list);
        // Rows already in the model (there are none in practice) count.
        QStandardItemModel *m = lists[list].model;
        for (int row = 0; row < m->rowCount(); ++row) {
            QStandardItem *idItem = m->item(row, lists[list].idColumn);
            if (!idItem)
                continue;
            const int id = idItem->data(Qt::EditRole).toInt();
            if (standing.insert(id).second)
                idItems.insert(id, idItem);
        }
        watch(list);
    }
}

ReportStore::~ReportStore()
{
    // Held rows never reached a model, so nothing else owns their cells.
    for (const HeldRow &held : std::as_const(heldRows))
        qDeleteAll(held.cells);
}

int ReportStore::idColumn(List list)
{
    return list == MessagesList ? MessagesIdColumn : DebugIdColumn;
}

int ReportStore::textColumn(List list)
{
    return list == MessagesList ? MessagesTextColumn : DebugTextColumn;
}

void ReportStore::watch(List list)
{
    QStandardItemModel *m = lists[list].model;
    connect(m, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, list](const QModelIndex &parent, int first, int last) {
                if (!parent.isValid())
                    forgetRows(list, first, last);
            });
    connect(m, &QAbstractItemModel::modelAboutToBeReset, this, [this, list] { forgetAll(list); });
    connect(m, &QAbstractItemModel::rowsInserted, this, [this, list] { rowsChangedOutside(list); });
    connect(m, &QAbstractItemModel::rowsMoved, this, [this, list] { rowsChangedOutside(list); });
    connect(m, &QAbstractItemModel::layoutChanged, this, [this, list] { rowsChangedOutside(list); });
    connect(m, &QAbstractItemModel::dataChanged, this,
            [this, list](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                dataChanged(list, topLeft.column(), bottomRight.column());
            });
}

void ReportStore::forgetRows(List list, int first, int last)
{
    const ListState &state = lists[list];
    for (int row = first; row <= last; ++row) {
        QStandardItem *idItem = state.model->item(row, state.idColumn);
        if (!idItem)
            continue;
        leaving.remove(idItem);
        forgetIdItem(idItem);
    }
}

// A withdrawn id may already be another row's again: only the row's own
// entry goes.
void ReportStore::forgetIdItem(const QStandardItem *idItem)
{
    const int id = idItem->data(Qt::EditRole).toInt();
    auto it = idItems.find(id);
    if (it != idItems.end() && it.value() == idItem) {
        idItems.erase(it);
        standing.erase(id);
    }
}

void ReportStore::forgetAll(List list)
{
    QStandardItemModel *m = lists[list].model;
    for (auto it = idItems.begin(); it != idItems.end();) {
        if (it.value()->model() == m) {
            standing.erase(it.key());
            it = idItems.erase(it);
        } else {
            ++it;
        }
    }
    for (auto it = leaving.begin(); it != leaving.end();) {
        if ((*it)->model() == m)
            it = leaving.erase(it);
        else
            ++it;
    }
    // Rows held for a list that is emptied would have gone with it.
    dropHeldRows(list);
    lists[list].sorted = false;
}

void ReportStore::dropHeldRows(List list)
{
    const int idColumn = lists[list].idColumn;
    for (HeldRow &held : heldRows) {
        if (held.list != list || held.cells.isEmpty())
            continue;
        const QStandardItem *idItem = held.cells.at(idColumn);
        heldIndex.remove(idItem);
        forgetIdItem(idItem);
        qDeleteAll(held.cells);
        held.cells.clear();
    }
}

void ReportStore::rowsChangedOutside(List list)
{
    // A view that sorts, or anyone else who reorders the rows: the store no
    // longer knows the order and checks it at the next report.
    if (!ownChange)
        lists[list].sorted = false;
}

void ReportStore::dataChanged(List list, int firstColumn, int lastColumn)
{
    ListState &state = lists[list];
    if (!ownChange && state.sorted && state.sortColumn >= firstColumn
        && state.sortColumn <= lastColumn)
        state.sorted = false;
}

QList<QStandardItem *> ReportStore::makeRow(List list, int lineNum, int linePos,
                                            const QString &fileName, const QString &block,
                                            int type, const QString &message, int id) const
{
    QList<QStandardItem *> row;
    row << newCell(fileName) << newCell(lineNum) << newCell(linePos);
    if (list == DebugList)
        row << newCell(block);
    row << newCell(id);
    // The icon first, then the text.
    auto *text = new QStandardItem;
    if (kindIcon)
        text->setData(kindIcon(type), Qt::DecorationRole);
    text->setData(message, Qt::EditRole);
    row << text;
    return row;
}

// True when a stable sort on `column` and `order` would leave the rows as
// they are: no row sorts before the one above it.
bool ReportStore::isSortedOn(const ListState &state, int column, Qt::SortOrder order) const
{
    QStandardItemModel *m = state.model;
    const int rows = m->rowCount();
    for (int row = 1; row < rows; ++row) {
        const QStandardItem *above = m->item(row - 1, column);
        const QStandardItem *here = m->item(row, column);
        if (!above || !here)
            return false;
        const bool before = order == Qt::AscendingOrder ? *here < *above : *above < *here;
        if (before)
            return false;
    }
    return true;
}

// Where a stable sort puts a row appended to sorted rows: after every row
// it does not sort before, so after its equals. Comparisons are the
// model's own (QStandardItem::operator<, ascending; its mirror image,
// descending).
int ReportStore::insertionRow(const ListState &state, const QStandardItem *key, int column,
                              Qt::SortOrder order) const
{
    QStandardItemModel *m = state.model;
    int low = 0;
    int high = m->rowCount();
    while (low < high) {
        const int mid = low + (high - low) / 2;
        const QStandardItem *item = m->item(mid, column);
        const bool keyFirst = order == Qt::AscendingOrder ? *key < *item : *item < *key;
        if (keyFirst)
            high = mid;
        else
            low = mid + 1;
    }
    return low;
}

int ReportStore::addReport(int lineNum, int linePos, const QString &fileName,
                           const QString &block, int type, const QString &message,
                           int sortColumn, Qt::SortOrder order)
{
    const int id = nextId();
    const List list = listFor(type);
    const QList<QStandardItem *> row =
        makeRow(list, lineNum, linePos, fileName, block, type, message, id);
    QStandardItem *idItem = row.at(lists[list].idColumn);

    if (holding) {
        heldIndex.insert(idItem, int(heldRows.size()));
        heldRows.append({list, row, sortColumn, order});
    } else {
        placeRow(list, row, sortColumn, order);
    }
    standing.insert(id);
    idItems.insert(id, idItem);
    return id;
}

void ReportStore::placeRow(List list, const QList<QStandardItem *> &row, int sortColumn,
                           Qt::SortOrder order)
{
    ListState &state = lists[list];
    QStandardItemModel *m = state.model;
    OwnChange guard(ownChange);
    const bool sortable = sortColumn >= 0 && sortColumn < m->columnCount();
    // A detached item compares by its display text, the model by its sort
    // role; they agree unless the role was changed.
    const bool sameRole = m->sortRole() == Qt::DisplayRole;

    if (!sortable) {
        // The model's sort leaves the order alone for such a column.
        m->appendRow(row);
    } else if (sameRole
               && ((state.sorted && state.sortColumn == sortColumn && state.sortOrder == order)
                   || isSortedOn(state, sortColumn, order))) {
        m->insertRow(insertionRow(state, row.at(sortColumn), sortColumn, order), row);
        state.sorted = true;
        state.sortColumn = sortColumn;
        state.sortOrder = order;
    } else {
        m->appendRow(row);
        m->sort(sortColumn, order);
        state.sorted = true;
        state.sortColumn = sortColumn;
        state.sortOrder = order;
    }
}

void ReportStore::removeReports(const QVector<int> &ids)
{
    if (holding) {
        for (int id : ids) {
            const auto it = idItems.find(id);
            if (it == idItems.end())
                continue;
            const QStandardItem *idItem = it.value();
            idItems.erase(it);
            standing.erase(id);
            const auto held = heldIndex.find(idItem);
            if (held == heldIndex.end()) {
                leaving.insert(idItem);
                continue;
            }
            // Filed and withdrawn while held: it never reaches a model.
            QList<QStandardItem *> &cells = heldRows[held.value()].cells;
            heldIndex.erase(held);
            qDeleteAll(cells);
            cells.clear();
        }
        return;
    }
    OwnChange guard(ownChange);
    for (int id : ids) {
        const auto it = idItems.constFind(id);
        if (it == idItems.constEnd())
            continue;
        QStandardItem *idItem = it.value();
        // The id leaves the index through rowsAboutToBeRemoved.
        idItem->model()->removeRow(idItem->row());
    }
}

void ReportStore::moveIds(const QVector<int> &ids, int by)
{
    // Held rows would otherwise be placed by their new ids.
    flushRows();
    QVector<QStandardItem *> items;
    items.reserve(ids.size());
    for (int id : ids) {
        const auto it = idItems.find(id);
        if (it == idItems.end())
            continue;
        items.append(it.value());
        idItems.erase(it);
        standing.erase(id);
    }
    OwnChange guard(ownChange);
    for (QStandardItem *item : std::as_const(items)) {
        const int id = item->data(Qt::EditRole).toInt() + by;
        item->setData(id, Qt::EditRole);
        standing.insert(id);
        idItems.insert(id, item);
    }
    // An order kept on the hidden id column is checked again at the next
    // report.
    for (ListState &state : lists) {
        if (state.sortColumn == state.idColumn)
            state.sorted = false;
    }
}

void ReportStore::removeRowsWhere(List list, const QString &fileName)
{
    QStandardItemModel *m = lists[list].model;
    // From the bottom up, a run of matching rows at a time.
    int row = m->rowCount() - 1;
    while (row >= 0) {
        const QStandardItem *file = m->item(row, FileColumn);
        if (!file || file->data(Qt::EditRole).toString() != fileName) {
            --row;
            continue;
        }
        int first = row;
        while (first > 0) {
            const QStandardItem *above = m->item(first - 1, FileColumn);
            if (!above || above->data(Qt::EditRole).toString() != fileName)
                break;
            --first;
        }
        m->removeRows(first, row - first + 1);
        row = first - 1;
    }
}

void ReportStore::removeFile(const QString &fileName)
{
    flushRows();
    OwnChange guard(ownChange);
    removeRowsWhere(DebugList, fileName);
    removeRowsWhere(MessagesList, fileName);
}

QHash<int, int> ReportStore::lineNumbersById(const QTextDocument *document)
{
    QHash<int, int> lines;
    if (!document)
        return lines;
    int line = 1;
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next(), ++line) {
        const auto *data = recordOf(block);
        if (!data)
            continue;
        for (int id : data->remId.err) {
            // The first line that holds an id is the one that counts.
            if (!lines.contains(id))
                lines.insert(id, line);
        }
    }
    return lines;
}

void ReportStore::updateLines(const QString &fileName, const QTextDocument *document)
{
    flushRows();
    const QHash<int, int> lines = lineNumbersById(document);
    for (List list : {DebugList, MessagesList}) {
        ListState &state = lists[list];
        QStandardItemModel *m = state.model;
        bool changed = false;
        {
            OwnChange guard(ownChange);
            for (int row = 0; row < m->rowCount(); ++row) {
                const QStandardItem *file = m->item(row, FileColumn);
                if (!file || file->data(Qt::EditRole).toString() != fileName)
                    continue;
                const QStandardItem *idItem = m->item(row, state.idColumn);
                if (!idItem)
                    continue;
                const auto it = lines.constFind(idItem->data(Qt::EditRole).toInt());
                if (it == lines.constEnd())
                    continue;
                QStandardItem *lineItem = m->item(row, LineColumn);
                if (!lineItem || lineItem->data(Qt::EditRole) == QVariant(it.value()))
                    continue;
                lineItem->setData(it.value(), Qt::EditRole);
                changed = true;
            }
        }
        // New numbers may break an order kept on "Line"; the next report
        // finds out.
        if (changed && state.sortColumn == LineColumn)
            state.sorted = false;
    }
}

int ReportStore::nextId() const
{
    // The greatest standing id plus one; never below 2.
    if (standing.empty())
        return FirstId;
    return std::max(*standing.rbegin(), FirstId - 1) + 1;
}

bool ReportStore::contains(int id) const
{
    return idItems.contains(id);
}

QVector<int> ReportStore::ids() const
{
    QVector<int> out;
    out.reserve(int(standing.size()));
    for (int id : standing)
        out << id;
    return out;
}

int ReportStore::rowOf(int id, List *list)
{
    flushRows();
    const auto it = idItems.constFind(id);
    if (it == idItems.constEnd())
        return -1;
    if (list)
        *list = it.value()->model() == lists[MessagesList].model ? MessagesList : DebugList;
    return it.value()->row();
}

void ReportStore::holdRows()
{
    if (holding)
        return;
    holding = true;
    // Whoever holds rows should flush them; if not, the event loop does
    // before anyone looks.
    QTimer::singleShot(0, this, &ReportStore::flushRows);
}

void ReportStore::flushRows()
{
    if (!holding)
        return;
    holding = false;
    // Withdrawals first, then the new rows. In a stably sorted list the
    // place of a row among the others does not depend on rows that leave,
    // so this order ends where filing row by row would have.
    if (!leaving.isEmpty()) {
        removeLeavingRows(DebugList);
        removeLeavingRows(MessagesList);
        leaving.clear();
    }
    // New rows in the order they were filed, each as it would have gone in.
    const QVector<HeldRow> held = std::exchange(heldRows, {});
    heldIndex.clear();
    for (const HeldRow &row : held) {
        if (!row.cells.isEmpty())
            placeRow(row.list, row.cells, row.sortColumn, row.order);
    }
}

// One walk from the bottom up, a run of adjacent rows at a time, so that
// no removal moves a row that is still to be found.
void ReportStore::removeLeavingRows(List list)
{
    QStandardItemModel *m = lists[list].model;
    const int idColumn = lists[list].idColumn;
    const auto isLeaving = [&](int row) { return leaving.contains(m->item(row, idColumn)); };
    OwnChange guard(ownChange);
    int row = m->rowCount() - 1;
    while (row >= 0) {
        if (!isLeaving(row)) {
            --row;
            continue;
        }
        int first = row;
        while (first > 0 && isLeaving(first - 1))
            --first;
        m->removeRows(first, row - first + 1);
        row = first - 1;
    }
}
