#include "messagereader.h"

#include <QJsonParseError>
#include <QList>

namespace {

const QByteArray lengthField = QByteArrayLiteral("Content-Length:");
const QByteArray headerEnd = QByteArrayLiteral("\r\n\r\n");
// A header longer than this without its empty line is not a header.
constexpr qsizetype MaxHeaderSize = 8192;

MessageReader::Item problem(const QString &what)
{
    MessageReader::Item item;
    item.kind = MessageReader::Item::Problem;
    item.problem = what;
    return item;
}

// The body as JSON, or a problem saying why not.
MessageReader::Item parsed(const QByteArray &body)
{
    QJsonParseError error;
    MessageReader::Item item;
    item.body = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError)
        return problem(QStringLiteral("body is not JSON: %1 at offset %2")
                           .arg(error.errorString())
                           .arg(error.offset));
    return item;
}

// The value of Content-Length in a header, or -1.
qint64 contentLength(const QByteArray &header)
{
    qint64 length = -1;
    for (const QByteArray &line : header.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0)
            continue;
        if (line.left(colon).trimmed().toLower() != "content-length")
            continue;
        bool ok = false;
        const qint64 value = line.mid(colon + 1).trimmed().toLongLong(&ok);
        if (!ok || value < 0 || value > MessageReader::MaxBodySize)
            return -1;
        length = value;
    }
    return length;
}

} // namespace

QList<MessageReader::Item> MessageReader::feed(const QByteArray &bytes)
{
    buffer.append(bytes);
    QList<Item> items;
    for (;;) {
        const bool more = bodyLength < 0 ? readHeader(items) : readBody(items);
        if (!more)
            break;
    }
    return items;
}

bool MessageReader::readHeader(QList<Item> &items)
{
    const qsizetype end = buffer.indexOf(headerEnd);
    if (end < 0) {
        if (buffer.size() <= MaxHeaderSize)
            return false;
        items.append(problem(QStringLiteral("no message header in %1 bytes").arg(buffer.size())));
        const qsizetype next = buffer.indexOf(lengthField, 1);
        if (next > 0) {
            buffer.remove(0, next);
            return true;
        }
        // Keep what could be the start of a field name cut in two.
        buffer.remove(0, buffer.size() - lengthField.size());
        return false;
    }

    const qint64 length = contentLength(buffer.left(end));
    if (length < 0) {
        items.append(problem(QStringLiteral("message header without a valid Content-Length")));
        resync(1);
        return true;
    }
    buffer.remove(0, end + headerEnd.size());
    bodyLength = length;
    scanned = 0;
    return true;
}

bool MessageReader::readBody(QList<Item> &items)
{
    if (buffer.size() >= bodyLength) {
        Item item = parsed(buffer.left(bodyLength));
        if (item.kind == Item::Message) {
            buffer.remove(0, bodyLength);
            bodyLength = -1;
            items.append(item);
            return true;
        }
        // Too short or too long: the next header, if one follows within,
        // tells where this message really ended.
        const qint64 length = bodyLength;
        const qsizetype next = buffer.left(length).indexOf(lengthField);
        bodyLength = -1;
        if (next > 0) {
            Item head = parsed(buffer.left(next));
            items.append(head.kind == Item::Message ? head : item);
            buffer.remove(0, next);
        } else {
            items.append(item);
            buffer.remove(0, length);
        }
        return true;
    }

    // Still waiting: a header in the bytes so far means the length was
    // too long, if what stands before it is a complete message.
    qsizetype next = buffer.indexOf(lengthField, qMax<qsizetype>(0, scanned - lengthField.size()));
    while (next > 0) {
        const Item head = parsed(buffer.left(next));
        if (head.kind == Item::Message) {
            items.append(head);
            buffer.remove(0, next);
            bodyLength = -1;
            return true;
        }
        next = buffer.indexOf(lengthField, next + 1);
    }
    scanned = buffer.size();
    return false;
}

// Drops bytes up to the next "Content-Length:" at or after `from`, or all
// of the header read so far.
void MessageReader::resync(qsizetype from)
{
    const qsizetype next = buffer.indexOf(lengthField, from);
    const qsizetype end = buffer.indexOf(headerEnd);
    if (next > 0 && (end < 0 || next <= end + headerEnd.size()))
        buffer.remove(0, next);
    else if (end >= 0)
        buffer.remove(0, end + headerEnd.size());
    else
        buffer.clear();
}
