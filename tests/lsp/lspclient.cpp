#include "lspclient.h"

#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QProcessEnvironment>

namespace {

// Long enough for a loaded machine; a hang shows as a failure, not a wait.
constexpr int TimeLimit = 60000;

QJsonObject message(const QString &method, const QJsonValue &params)
{
    return {{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
            {QStringLiteral("method"), method},
            {QStringLiteral("params"), params}};
}

QByteArray framed(const QJsonObject &o)
{
    const QByteArray body = QJsonDocument(o).toJson(QJsonDocument::Compact);
    return "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QJsonObject textDocument(const QString &uri)
{
    return {{QStringLiteral("uri"), uri}};
}

} // namespace

LspClient::LspClient()
{
    process.start(QStringLiteral(TARNWICK_LSP_PATH), QStringList());
    process.waitForStarted(TimeLimit);
}

LspClient::~LspClient()
{
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(TimeLimit);
    }
}

QJsonObject LspClient::initialize()
{
    const QJsonObject reply = request(QStringLiteral("initialize"),
                                      QJsonObject{{QStringLiteral("capabilities"), QJsonObject()}});
    notify(QStringLiteral("initialized"));
    return reply.value(QStringLiteral("result")).toObject();
}

void LspClient::sendRaw(const QByteArray &bytes)
{
    process.write(bytes);
    process.waitForBytesWritten(TimeLimit);
}

void LspClient::notify(const QString &method, const QJsonObject &params)
{
    sendRaw(framed(message(method, params)));
}

QJsonObject LspClient::request(const QString &method, const QJsonValue &params)
{
    QJsonObject o = message(method, params);
    const int id = nextId++;
    o.insert(QStringLiteral("id"), id);
    sendRaw(framed(o));
    return replyTo(id);
}

QJsonObject LspClient::replyTo(const QJsonValue &id)
{
    return take([&](const QJsonObject &m) {
        return !m.contains(QStringLiteral("method")) && m.value(QStringLiteral("id")) == id;
    });
}

QJsonArray LspClient::open(const QString &uri, const QString &text)
{
    versions[uri] = 1;
    QJsonObject item = textDocument(uri);
    item.insert(QStringLiteral("languageId"), QStringLiteral("msl"));
    item.insert(QStringLiteral("version"), 1);
    item.insert(QStringLiteral("text"), text);
    notify(QStringLiteral("textDocument/didOpen"), {{QStringLiteral("textDocument"), item}});
    return diagnostics(uri);
}

QJsonArray LspClient::change(const QString &uri, const QJsonArray &changes)
{
    QJsonObject item = textDocument(uri);
    item.insert(QStringLiteral("version"), ++versions[uri]);
    notify(QStringLiteral("textDocument/didChange"),
           {{QStringLiteral("textDocument"), item}, {QStringLiteral("contentChanges"), changes}});
    return diagnostics(uri);
}

QJsonObject LspClient::change(int line, int character, int endLine, int endCharacter,
                              const QString &text)
{
    const auto position = [](int l, int c) {
        return QJsonObject{{QStringLiteral("line"), l}, {QStringLiteral("character"), c}};
    };
    return {{QStringLiteral("range"),
             QJsonObject{{QStringLiteral("start"), position(line, character)},
                         {QStringLiteral("end"), position(endLine, endCharacter)}}},
            {QStringLiteral("text"), text}};
}

QJsonArray LspClient::diagnostics(const QString &uri)
{
    const QJsonObject m = take([&](const QJsonObject &m) {
        return m.value(QStringLiteral("method")) == QLatin1String("textDocument/publishDiagnostics")
            && m.value(QStringLiteral("params"))[QStringLiteral("uri")] == uri;
    });
    return m.value(QStringLiteral("params"))[QStringLiteral("diagnostics")].toArray();
}

QJsonObject LspClient::at(const QString &method, const QString &uri, int line, int character)
{
    return request(method,
                   QJsonObject{{QStringLiteral("textDocument"), textDocument(uri)},
                               {QStringLiteral("position"),
                                QJsonObject{{QStringLiteral("line"), line},
                                            {QStringLiteral("character"), character}}}});
}

QJsonObject LspClient::take(const std::function<bool(const QJsonObject &)> &match)
{
    const QDeadlineTimer deadline(TimeLimit);
    for (;;) {
        for (int i = 0; i < received.size(); ++i) {
            if (match(received.at(i)))
                return received.takeAt(i);
        }
        if (deadline.hasExpired() || !readMore())
            return QJsonObject();
    }
}

// Reads what the server wrote and cuts it into messages; false when
// nothing more can come.
bool LspClient::readMore()
{
    if (!process.waitForReadyRead(TimeLimit) && process.bytesAvailable() == 0)
        return false;
    buffer += process.readAllStandardOutput();
    standardError += process.readAllStandardError();
    for (;;) {
        const qsizetype end = buffer.indexOf("\r\n\r\n");
        if (end < 0 || !buffer.startsWith("Content-Length: "))
            return end < 0;
        const qsizetype length = buffer.mid(16, end - 16).toLongLong();
        if (buffer.size() < end + 4 + length)
            return true;
        received.append(QJsonDocument::fromJson(buffer.mid(end + 4, length)).object());
        buffer.remove(0, end + 4 + length);
    }
}

int LspClient::finish()
{
    process.closeWriteChannel();
    if (!process.waitForFinished(TimeLimit))
        return -1;
    standardError += process.readAllStandardError();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}
