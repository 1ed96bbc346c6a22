#ifndef REPORTSTORE_H
#define REPORTSTORE_H

#include "reportkind.h"

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>
#include <QVector>

#include <set>
#include <utility>

class QStandardItem;
class QStandardItemModel;
class QTextDocument;

// The two report lists behind the report dock: "Debug" (errors, warnings,
// information) and "Messages" (developer notes), each a
// QStandardItemModel whose rows are the only record of a report.
//
// Ids and row order are simple to state: a new report takes
// the greatest id standing in either list plus one (2 when both are
// empty, so a withdrawn id can come back), its row is appended and the
// list is stably sorted on the view's sort column and order. The store
// reaches the same result without the cost: a set of standing ids, an
// id-to-item index that survives sorting, and insertion at the place a
// stable sort would give whenever the list is known to be sorted.
//
// Used by the main window's dock and by tarnwick-lint, so it needs no
// widgets: the caller hands in the sort state of its view.
class ReportStore : public QObject
{
    Q_OBJECT

public:
    enum List { DebugList = 0, MessagesList = 1 };

    // Debug columns: File, Line, Col, Block, ID (hidden), Error.
    // Messages columns: File, Line, Col, ID (hidden), Message.
    enum Column { FileColumn = 0, LineColumn = 1, ColColumn = 2, BlockColumn = 3 };
    static constexpr int DebugColumns = 6;
    static constexpr int MessagesColumns = 5;
    static constexpr int DebugIdColumn = 4;
    static constexpr int MessagesIdColumn = 3;
    static constexpr int DebugTextColumn = 5;
    static constexpr int MessagesTextColumn = 4;
    static constexpr int FirstId = 2;

    ReportStore(QStandardItemModel *debug, QStandardItemModel *messages,
                QObject *parent = nullptr);
    ~ReportStore() override;

    // Developer notes go to the Messages list, the rest to Debug.
    static List listFor(int type) { return isNote(type) ? MessagesList : DebugList; }
    static int idColumn(List list);
    static int textColumn(List list);
    // How a row shows its report's kind. The dock gives its icons; a
    // store that no one looks at (the lint's) shows none.
    using KindIcon = QIcon (*)(int kind);
    void setKindIcon(KindIcon icon) { kindIcon = icon; }

    QStandardItemModel *model(List list) const { return lists[list].model; }

    // Files one report, keeping its list sorted on `sortColumn` and
    // `order` (a column out of range leaves the order alone, as the
    // model's own sort does). Returns the new report's id.
    int addReport(int lineNum, int linePos, const QString &fileName, const QString &block,
                  int type, const QString &message, int sortColumn, Qt::SortOrder order);

    // Removes the rows of these ids from both lists; unknown ids are
    // ignored.
    void removeReports(const QVector<int> &ids);
    // Gives each of these reports its id plus `by`, in its row and in the
    // index; unknown ids are ignored. Rows keep their places: the new ids
    // must not collide with standing ones.
    void moveIds(const QVector<int> &ids, int by);
    // Removes every row of both lists whose file is `fileName`.
    void removeFile(const QString &fileName);
    // Writes into "Line" of every row of `fileName` the number of the
    // first line of `document` that holds the row's id; a row whose id no
    // line holds keeps its number. The lists are not sorted again.
    void updateLines(const QString &fileName, const QTextDocument *document);
    // Report id -> 1-based number of the first line whose record holds it,
    // from one walk over the blocks.
    static QHash<int, int> lineNumbersById(const QTextDocument *document);

    // The id the next report will get.
    int nextId() const;
    bool contains(int id) const;
    int count() const { return int(standing.size()); }
    // Standing ids, ascending.
    QVector<int> ids() const;
    // The list and row of a report, or -1 for an unknown id. Puts held
    // rows in place first.
    int rowOf(int id, List *list = nullptr);

    // Holds rows back: from here until flushRows(), reports are filed and
    // withdrawn in the store at once (ids, count(), nextId() stay exact),
    // but their rows leave and enter the models only at flushRows(). The
    // lists then hold exactly what filing row by row would have left.
    // A pass over a long script withdraws rows from the top of the lists
    // down; a QStandardItemModel finds a row's cells by searching from
    // where each cell last stood, and every row taken out above moves the
    // rest, so row by row that costs the square of the rows withdrawn.
    // A held pass withdraws them in one walk from the bottom up instead.
    // Rows are also put in place from the event loop, should no caller
    // flush; the models are not to be changed from outside meanwhile.
    void holdRows();
    void flushRows();
    bool holdingRows() const { return holding; }

private:
    struct ListState
    {
        QStandardItemModel *model = nullptr;
        int idColumn = 0;
        // While `sorted` holds, the rows are known to be in the order a
        // stable sort on this column and order would leave them.
        bool sorted = false;
        int sortColumn = 0;
        Qt::SortOrder sortOrder = Qt::AscendingOrder;
    };

    void watch(List list);
    void forgetRows(List list, int first, int last);
    void forgetIdItem(const QStandardItem *idItem);
    void forgetAll(List list);
    void rowsChangedOutside(List list);
    void dataChanged(List list, int firstColumn, int lastColumn);

    QList<QStandardItem *> makeRow(List list, int lineNum, int linePos, const QString &fileName,
                                   const QString &block, int type, const QString &message,
                                   int id) const;
    bool isSortedOn(const ListState &state, int column, Qt::SortOrder order) const;
    int insertionRow(const ListState &state, const QStandardItem *key, int column,
                     Qt::SortOrder order) const;
    void removeRowsWhere(List list, const QString &fileName);
    void placeRow(List list, const QList<QStandardItem *> &row, int sortColumn,
                  Qt::SortOrder order);
    void dropHeldRows(List list);
    void removeLeavingRows(List list);

    // A report filed while rows are held, waiting for its place.
    struct HeldRow
    {
        List list;
        QList<QStandardItem *> cells; // empty once withdrawn again
        int sortColumn;
        Qt::SortOrder order;
    };

    ListState lists[2];
    KindIcon kindIcon = nullptr;
    std::set<int> standing;
    QHash<int, QStandardItem *> idItems;
    // Set while the store itself changes a model, so that its own edits
    // do not count as changes from outside.
    int ownChange = 0;

    bool holding = false;
    QVector<HeldRow> heldRows;
    // Id cell of a held row -> its place in heldRows.
    QHash<const QStandardItem *, int> heldIndex;
    // Id cells of rows in the models that are withdrawn but not yet taken out.
    QSet<const QStandardItem *> leaving;
};

#endif // REPORTSTORE_H
