#include "singlepassload.h"

#include "msltextedit.h"
#include "reportstore.h"

#include <QTextBlock>
#include <QTextDocument>

UnanalysedLoad::UnanalysedLoad(MslSyntaxHighlighter *highlighter)
    : highlighter(highlighter), document(highlighter->document())
{
    highlighter->setDocument(nullptr);
}

UnanalysedLoad::~UnanalysedLoad()
{
    highlighter->setDocument(document);
}

int settleSinglePassIds(QTextDocument *document, ReportStore *store)
{
    QVector<CBlockData *> records;
    int reports = 0;
    int reportingLines = 0;
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        auto *data = recordOf(block);
        if (!data || data->remId.err.isEmpty())
            continue;
        records.append(data);
        reports += int(data->remId.err.size());
        ++reportingLines;
    }
    if (reportingLines < 2)
        return 0;

    QVector<int> ids;
    ids.reserve(reports);
    for (CBlockData *data : std::as_const(records)) {
        for (int &id : data->remId.err) {
            ids.append(id);
            id += reports;
        }
    }
    store->moveIds(ids, reports);
    return reports;
}
