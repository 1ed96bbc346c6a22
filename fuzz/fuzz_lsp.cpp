// Feeds arbitrary bytes to the language server as a client's stream would
// bring them: cut into chunks of sizes drawn from the input, read by the
// real message reader, handled by the real server with its documents and
// analysers. Whatever comes in, everything the server sends must be one
// JSON-RPC 2.0 object: a response with exactly one of result and error, or
// a notification with a method. Anything else aborts, so that the fuzzer
// keeps the input.

#include "devsettings.h"
#include "lspserver.h"
#include "messagereader.h"

#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void broken(const char *what, const QByteArray &message)
{
    std::fprintf(stderr, "server sent %s: %.200s\n", what, message.constData());
    std::abort();
}

void checkSent(const QByteArray &message)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(message, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        broken("no JSON object", message);
    const QJsonObject o = doc.object();
    if (o.value(QLatin1String("jsonrpc")).toString() != QLatin1String("2.0"))
        broken("no jsonrpc 2.0", message);
    if (o.contains(QLatin1String("method")))
        return;
    if (!o.contains(QLatin1String("id")))
        broken("neither a response nor a notification", message);
    if (o.contains(QLatin1String("result")) == o.contains(QLatin1String("error")))
        broken("a response without exactly one of result and error", message);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(*argc, *argv);
    DevSettings::InitializeAllSettings();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    LspServer server;
    QObject::connect(&server, &LspServer::send, &checkSent);
    MessageReader reader;
    // The first byte sets the chunk size, so that a message cut anywhere
    // is tried as well as one that comes whole.
    const int chunk = input.isEmpty() ? 1 : 1 + (uchar(input.at(0)) % 64) * 64;
    for (int at = 0; at < input.size(); at += chunk) {
        for (const MessageReader::Item &item : reader.feed(input.mid(at, chunk)))
            server.handleInput(item);
    }
    server.endOfInput();
    return 0;
}
