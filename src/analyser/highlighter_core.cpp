// The analyser's foundations: the per-line record and the one road by
// which a finding reaches the report dock and is withdrawn again.

#include "msltextedit.h"

#include <QTextBlock>

DumErr::DumErr()
    : err(10, 0)
{
}

DumErr::~DumErr()
{
    // A deleted line takes its reports with it.
    emit doRemErr(err);
}

void DumErr::pushErr(int id)
{
    err.append(id);
}

void DumErr::clearErrs()
{
    err = QVector<int>();
}

bool DumErr::containsErr(int id) const
{
    return err.contains(id);
}

QVector<int> DumErr::getErrs() const
{
    return err;
}

MslSyntaxHighlighter::MslSyntaxHighlighter(QTextDocument *parent)
    : QSyntaxHighlighter(parent)
{
}

MslSyntaxHighlighter::~MslSyntaxHighlighter() = default;

void MslSyntaxHighlighter::setFn(QString fn)
{
    fname = fn;
}

void MslSyntaxHighlighter::remError(QVector<int> &errs)
{
    emit removeError(errs);
}

int MslSyntaxHighlighter::currentLineNumber()
{
    return currentBlock().blockNumber() + 1;
}

CBlockData *MslSyntaxHighlighter::currentRecord()
{
    auto *data = recordOf(currentBlock());
    if (!data) {
        data = new CBlockData;
        setCurrentBlockUserData(data);
    }
    // The connection is made once per record and survives every
    // re-analysis of the line.
    if (!data->isConnected) {
        connect(&data->remId, &DumErr::doRemErr, this, &MslSyntaxHighlighter::remError,
                Qt::DirectConnection);
        data->isConnected = true;
    }
    return data;
}

void MslSyntaxHighlighter::throwError(ReportKind kind, int pos, QString block,
                                      const QString &error)
{
    // Past the line's budget only the one report that says so goes out.
    if (!reportAllowed(pos))
        return;
    int errId = 0;
    emit updateError(currentLineNumber(), pos, fname, block, QStringLiteral("???"), kind, error,
                     errId);
    currentRecord()->remId.err.append(errId);
}

void MslSyntaxHighlighter::throwMsg(ReportKind kind, int pos, QString &msg)
{
    throwError(kind, pos, QString(), msg);
}

void MslSyntaxHighlighter::saveStateAlias(QString name, int pos, bool isLocal)
{
    CBlockData *data = currentRecord();
    data->isLocal = isLocal;
    data->containedBlock = name;
    data->blockPos = pos;
    data->blockType = CBlockData::Alias;
}

void MslSyntaxHighlighter::saveStateDialog(QString name, int pos, bool isLocal)
{
    CBlockData *data = currentRecord();
    data->isLocal = isLocal;
    data->containedBlock = name;
    data->blockPos = pos;
    data->blockType = CBlockData::Dialog;
}

void MslSyntaxHighlighter::saveStateEvent(QString name, QString matchtext, int pos)
{
    CBlockData *data = currentRecord();
    data->isLocal = false;
    data->containedBlock = name;
    data->matchtext = matchtext;
    data->blockPos = pos;
    data->blockType = CBlockData::Event;
}

void MslSyntaxHighlighter::saveStateGroup(int state)
{
    CBlockData *data = currentRecord();
    data->isGroup = true;
    data->groupState = state;
}

void MslSyntaxHighlighter::saveStateIdent(QString &name, int start, int end, int proppos,
                                          bool hasPayload, QVector<int> &args)
{
    Identifier ident;
    ident.name = name;
    ident.start = start;
    ident.end = end;
    ident.proppos = proppos;
    ident.hasPayload = hasPayload;
    ident.argsPos = args;
    ident.possibleIdent = false;
    currentRecord()->idents.append(std::move(ident));
}

void MslSyntaxHighlighter::saveStatePossibleIdent(int pos)
{
    Identifier ident;
    ident.start = pos;
    ident.end = 0;
    ident.proppos = -1;
    ident.hasPayload = false;
    ident.possibleIdent = true;
    currentRecord()->idents.append(std::move(ident));
}

void MslSyntaxHighlighter::clearCurrentBlockUserData()
{
    auto *data = recordOf(currentBlock());
    if (!data) {
        // No connection yet: nothing has been reported for this line.
        data = new CBlockData;
        setCurrentBlockUserData(data);
    }
    data->blockType = CBlockData::NoBlock;
    data->containedBlock.clear();
    data->blockPos = -1;
    data->isMultiLine = false;
    data->isHidden = false;
    data->hiddenLines = 0;
    data->isGroup = false;
    data->groupState = 0;
    data->isLocal = false;
    data->idents.clear();
    emit data->remId.doRemErr(data->remId.err);
    data->remId.err = QVector<int>();
}
