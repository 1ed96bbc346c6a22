#ifndef MESSAGEREADER_H
#define MESSAGEREADER_H

#include <QByteArray>
#include <QJsonDocument>
#include <QList>
#include <QString>

// Cuts the byte stream of a language client into messages: a header of
// "Name: value" lines ending in an empty line, with Content-Length giving
// the size of the JSON body that follows.
//
// A stream that breaks the rules is answered, not given up on: a header
// without a usable length, or a body that is no JSON, gives a Problem and
// reading starts again at the next "Content-Length:". A length that is too
// long would otherwise swallow the messages behind it: as soon as the
// bytes up to the next "Content-Length:" are a complete JSON value, they
// are taken as the message.
class MessageReader
{
public:
    struct Item
    {
        enum Kind { Message, Problem };
        Kind kind = Message;
        QJsonDocument body; // a Message's body
        QString problem;    // what was wrong, for a Problem
    };

    // Largest body accepted; a longer one is taken for a broken header.
    static constexpr qint64 MaxBodySize = qint64(1) << 30;

    // Takes the next bytes of the stream and returns what they completed.
    QList<Item> feed(const QByteArray &bytes);

    // Bytes that wait for the rest of their message.
    qsizetype pendingBytes() const { return buffer.size(); }

private:
    bool readHeader(QList<Item> &items);
    bool readBody(QList<Item> &items);
    void resync(qsizetype from);

    QByteArray buffer;
    qint64 bodyLength = -1; // -1 while reading a header
    qsizetype scanned = 0;  // body bytes already searched for a header
};

#endif // MESSAGEREADER_H
