#ifndef LSPSERVER_H
#define LSPSERVER_H

#include "diagnostics.h"
#include "messagereader.h"

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <map>

class LspDocument;

// The language server's side of the conversation: JSON-RPC messages in,
// answers and diagnostics out through send(), as JSON text. Requests are answered at
// once, in the order they come, so a cancellation always comes too late
// and is let go.
class LspServer : public QObject
{
    Q_OBJECT

public:
    // JSON-RPC and protocol error codes.
    enum ErrorCode {
        ParseError = -32700,
        InvalidRequest = -32600,
        MethodNotFound = -32601,
        InvalidParams = -32602,
        ServerNotInitialized = -32002,
    };

    explicit LspServer(QObject *parent = nullptr);
    ~LspServer() override;

    // One item the reader cut from the byte stream: a message or a problem.
    void handleInput(const MessageReader::Item &item);
    // One message's body.
    void handleMessage(const QJsonValue &message);
    // Bytes that were no message; answered with a ParseError.
    void handleBrokenInput(const QString &problem);
    // The client is gone: as an exit notification.
    void endOfInput();

    // An open document, or null.
    LspDocument *document(const QString &uri) const;

signals:
    void send(const QByteArray &message);
    // The exit status: 0 after a shutdown request, else 1.
    void exitRequested(int status);

private:
    struct Reply
    {
        Reply(const QJsonValue &result = QJsonValue(), int error = 0,
              const QString &message = QString())
            : result(result), error(error), message(message)
        {
        }
        QJsonValue result;
        int error;
        QString message;
    };
    using Handler = std::function<Reply(const QJsonObject &params)>;

    void handleRequest(const QJsonValue &id, const QString &method, const QJsonObject &params);
    void handleNotification(const QString &method, const QJsonObject &params);
    void sendResult(const QJsonValue &id, const QJsonValue &result);
    void sendError(const QJsonValue &id, int code, const QString &message);
    void sendDiagnostics(const QString &uri, const QByteArray &version, const QByteArray &list);

    Reply initialize(const QJsonObject &params);
    Reply shutdown(const QJsonObject &params);
    // A request about one open document: the handler's reply, or an error
    // for a document never opened.
    Handler onDocument(std::function<QJsonValue(LspDocument &, const QJsonObject &)> handler);

    void didOpen(const QJsonObject &params);
    void didChange(const QJsonObject &params);
    void didClose(const QJsonObject &params);
    void publishDiagnostics(const QString &uri);

    QHash<QString, Handler> requests;
    QHash<QString, std::function<void(const QJsonObject &)>> notifications;
    struct OpenDocument
    {
        std::unique_ptr<LspDocument> text;
        DiagnosticList diagnostics;
    };
    std::map<QString, OpenDocument> documents;
    bool initialized = false;
    bool shuttingDown = false;
    bool exited = false;
};

#endif // LSPSERVER_H
