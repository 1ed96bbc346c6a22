#include "stdiochannel.h"

#include "lspserver.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSocketNotifier>

#include <cerrno>
#include <unistd.h>

namespace {

constexpr int InputFd = 0;
constexpr int OutputFd = 1;

// Writes all of `bytes`; false once the client has gone.
bool writeAll(const QByteArray &bytes)
{
    const char *data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(OutputFd, data, size_t(left));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        left -= n;
    }
    return true;
}

} // namespace

StdioChannel::StdioChannel(LspServer *server, QObject *parent)
    : QObject(parent)
    , server(server)
{
    notifier = new QSocketNotifier(InputFd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &StdioChannel::readInput);
    connect(server, &LspServer::send, this, &StdioChannel::write);
}

StdioChannel::~StdioChannel() = default;

void StdioChannel::write(const QByteArray &message)
{
    writeAll("Content-Length: " + QByteArray::number(message.size()) + "\r\n\r\n");
    writeAll(message);
}

// Called when input is waiting: one read cannot block then.
void StdioChannel::readInput()
{
    char chunk[65536];
    const ssize_t n = ::read(InputFd, chunk, sizeof chunk);
    if (n < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (n <= 0) {
        notifier->setEnabled(false);
        server->endOfInput();
        return;
    }
    for (const MessageReader::Item &item : reader.feed(QByteArray(chunk, int(n))))
        server->handleInput(item);
}
