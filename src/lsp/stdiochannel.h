#ifndef STDIOCHANNEL_H
#define STDIOCHANNEL_H

#include "messagereader.h"

#include <QByteArray>
#include <QObject>

class QSocketNotifier;
class LspServer;

// The server's line to its client: framed messages read from standard
// input as they arrive, without blocking the event loop, and answers
// written to standard output. Nothing else may write there.
class StdioChannel : public QObject
{
    Q_OBJECT

public:
    explicit StdioChannel(LspServer *server, QObject *parent = nullptr);
    ~StdioChannel() override;

    // One message, framed, to standard output.
    static void write(const QByteArray &message);

private:
    void readInput();

    LspServer *server;
    QSocketNotifier *notifier = nullptr;
    MessageReader reader;
};

#endif // STDIOCHANNEL_H
