#include "lspserver.h"

#include "completion.h"
#include "diagnostics.h"
#include "languagehelp.h"
#include "lspdocument.h"
#include "lspjson.h"
#include "outline.h"
#include "semantictokens.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextDocument>
#include <QUrl>

#include <cstdio>

namespace {

QString uriOf(const QJsonObject &params)
{
    return params.value(QStringLiteral("textDocument")).toObject().value(QStringLiteral("uri"))
        .toString();
}

TextPosition positionOf(const QJsonObject &params)
{
    return LspJson::toPosition(params.value(QStringLiteral("position")));
}

// The file name behind a URI; the URI itself for one that names no file.
QString pathOf(const QString &uri)
{
    const QUrl url(uri);
    return url.isLocalFile() ? url.toLocalFile() : uri;
}

void log(const QString &message)
{
    std::fprintf(stderr, "tarnwick-lsp: %s\n", qPrintable(message));
    std::fflush(stderr);
}

} // namespace

LspServer::LspServer(QObject *parent)
    : QObject(parent)
{
    requests.insert(QStringLiteral("initialize"),
                    [this](const QJsonObject &p) { return initialize(p); });
    requests.insert(QStringLiteral("shutdown"),
                    [this](const QJsonObject &p) { return shutdown(p); });
    // A place with no analysed text (an INI script's section line or key)
    // has nothing to show or offer.
    requests.insert(QStringLiteral("textDocument/hover"),
                    onDocument([](LspDocument &d, const QJsonObject &p) -> QJsonValue {
                        const auto at = d.toAnalysed(positionOf(p));
                        return at ? LanguageHelp::hover(d, *at) : QJsonValue::Null;
                    }));
    requests.insert(QStringLiteral("textDocument/signatureHelp"),
                    onDocument([](LspDocument &d, const QJsonObject &p) -> QJsonValue {
                        const auto at = d.toAnalysed(positionOf(p));
                        return at ? LanguageHelp::signatureHelp(d, *at) : QJsonValue::Null;
                    }));
    requests.insert(QStringLiteral("textDocument/completion"),
                    onDocument([](LspDocument &d, const QJsonObject &p) -> QJsonValue {
                        const auto at = d.toAnalysed(positionOf(p));
                        return at ? Completion::items(d, *at) : QJsonArray();
                    }));
    requests.insert(QStringLiteral("textDocument/foldingRange"),
                    onDocument([](LspDocument &d, const QJsonObject &) -> QJsonValue {
                        return Outline::foldingRanges(d);
                    }));
    requests.insert(QStringLiteral("textDocument/documentSymbol"),
                    onDocument([](LspDocument &d, const QJsonObject &) -> QJsonValue {
                        return Outline::symbols(d);
                    }));
    requests.insert(QStringLiteral("textDocument/semanticTokens/full"),
                    onDocument([](LspDocument &d, const QJsonObject &) -> QJsonValue {
                        return QJsonObject{
                            {QStringLiteral("data"),
                             SemanticTokens::encode(d, 0, d.textDocument()->blockCount())}};
                    }));
    requests.insert(QStringLiteral("textDocument/semanticTokens/range"),
                    onDocument([](LspDocument &d, const QJsonObject &p) -> QJsonValue {
                        const TextRange r = LspJson::toRange(p.value(QStringLiteral("range")));
                        const auto lines = d.analysedLines(r.start.line, r.end.line);
                        return QJsonObject{{QStringLiteral("data"),
                                            SemanticTokens::encode(d, lines.first, lines.second)}};
                    }));

    notifications.insert(QStringLiteral("textDocument/didOpen"),
                         [this](const QJsonObject &p) { didOpen(p); });
    notifications.insert(QStringLiteral("textDocument/didChange"),
                         [this](const QJsonObject &p) { didChange(p); });
    notifications.insert(QStringLiteral("textDocument/didClose"),
                         [this](const QJsonObject &p) { didClose(p); });
}

LspServer::~LspServer() = default;

LspDocument *LspServer::document(const QString &uri) const
{
    const auto it = documents.find(uri);
    return it == documents.end() ? nullptr : it->second.text.get();
}

void LspServer::handleMessage(const QJsonValue &message)
{
    const QJsonObject o = message.toObject();
    const QJsonValue id = o.value(QStringLiteral("id"));
    const QJsonValue method = o.value(QStringLiteral("method"));
    const bool hasId = o.contains(QStringLiteral("id"));
    const QJsonValue params = o.value(QStringLiteral("params"));

    if (!message.isObject() || !method.isString()
        || (hasId && !id.isString() && !id.isDouble())
        || !(params.isUndefined() || params.isObject() || params.isArray())) {
        // An answer to a request of ours (there are none) is let go.
        if (message.isObject() && !method.isString()
            && (o.contains(QStringLiteral("result")) || o.contains(QStringLiteral("error"))))
            return;
        sendError(id.isString() || id.isDouble() ? id : QJsonValue(QJsonValue::Null),
                  InvalidRequest, QStringLiteral("not a JSON-RPC request or notification"));
        return;
    }
    if (hasId)
        handleRequest(id, method.toString(), params.toObject());
    else
        handleNotification(method.toString(), params.toObject());
}

void LspServer::handleInput(const MessageReader::Item &item)
{
    if (item.kind == MessageReader::Item::Problem)
        handleBrokenInput(item.problem);
    else
        handleMessage(item.body.isObject() ? QJsonValue(item.body.object())
                                           : QJsonValue(item.body.array()));
}

void LspServer::handleBrokenInput(const QString &problem)
{
    log(problem);
    sendError(QJsonValue::Null, ParseError, problem);
}

void LspServer::endOfInput()
{
    if (exited)
        return;
    exited = true;
    emit exitRequested(shuttingDown ? 0 : 1);
}

void LspServer::handleRequest(const QJsonValue &id, const QString &method,
                              const QJsonObject &params)
{
    if (!initialized && method != QLatin1String("initialize")) {
        sendError(id, ServerNotInitialized, QStringLiteral("initialize comes first"));
        return;
    }
    if (shuttingDown) {
        sendError(id, InvalidRequest, QStringLiteral("the server is shutting down"));
        return;
    }
    const auto handler = requests.constFind(method);
    if (handler == requests.constEnd()) {
        sendError(id, MethodNotFound, QStringLiteral("no method ") + method);
        return;
    }
    const Reply reply = (*handler)(params);
    if (reply.error)
        sendError(id, reply.error, reply.message);
    else
        sendResult(id, reply.result);
}

void LspServer::handleNotification(const QString &method, const QJsonObject &params)
{
    if (method == QLatin1String("exit")) {
        endOfInput();
        return;
    }
    // Before initialize, and after shutdown, notifications are dropped.
    if (!initialized || shuttingDown)
        return;
    const auto handler = notifications.constFind(method);
    if (handler != notifications.constEnd())
        (*handler)(params);
}

void LspServer::sendResult(const QJsonValue &id, const QJsonValue &result)
{
    QJsonObject o;
    o.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    o.insert(QStringLiteral("id"), id);
    o.insert(QStringLiteral("result"), result);
    emit send(QJsonDocument(o).toJson(QJsonDocument::Compact));
}

void LspServer::sendError(const QJsonValue &id, int code, const QString &message)
{
    QJsonObject error;
    error.insert(QStringLiteral("code"), code);
    error.insert(QStringLiteral("message"), message);
    QJsonObject o;
    o.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    o.insert(QStringLiteral("id"), id);
    o.insert(QStringLiteral("error"), error);
    emit send(QJsonDocument(o).toJson(QJsonDocument::Compact));
}

LspServer::Reply LspServer::initialize(const QJsonObject &)
{
    if (initialized)
        return {QJsonValue(), InvalidRequest, QStringLiteral("initialize was already sent")};
    initialized = true;

    QJsonObject sync;
    sync.insert(QStringLiteral("openClose"), true);
    sync.insert(QStringLiteral("change"), 2); // incremental
    QJsonObject completion;
    completion.insert(QStringLiteral("triggerCharacters"),
                      QJsonArray{QStringLiteral("$"), QStringLiteral("."),
                                 QString(QChar(0x03)), QStringLiteral(" ")});
    QJsonObject signature;
    signature.insert(QStringLiteral("triggerCharacters"),
                     QJsonArray{QStringLiteral("("), QStringLiteral(",")});
    QJsonObject tokens;
    tokens.insert(QStringLiteral("legend"), SemanticTokens::legend());
    tokens.insert(QStringLiteral("full"), true);
    tokens.insert(QStringLiteral("range"), true);

    QJsonObject capabilities;
    capabilities.insert(QStringLiteral("positionEncoding"), QStringLiteral("utf-16"));
    capabilities.insert(QStringLiteral("textDocumentSync"), sync);
    capabilities.insert(QStringLiteral("hoverProvider"), true);
    capabilities.insert(QStringLiteral("completionProvider"), completion);
    capabilities.insert(QStringLiteral("signatureHelpProvider"), signature);
    capabilities.insert(QStringLiteral("foldingRangeProvider"), true);
    capabilities.insert(QStringLiteral("documentSymbolProvider"), true);
    capabilities.insert(QStringLiteral("semanticTokensProvider"), tokens);

    QJsonObject info;
    info.insert(QStringLiteral("name"), QStringLiteral("tarnwick-lsp"));
    info.insert(QStringLiteral("version"), QCoreApplication::applicationVersion());
    QJsonObject result;
    result.insert(QStringLiteral("capabilities"), capabilities);
    result.insert(QStringLiteral("serverInfo"), info);
    return {result};
}

LspServer::Reply LspServer::shutdown(const QJsonObject &)
{
    shuttingDown = true;
    documents.clear();
    return {QJsonValue::Null};
}

LspServer::Handler LspServer::onDocument(
    std::function<QJsonValue(LspDocument &, const QJsonObject &)> handler)
{
    return [this, handler](const QJsonObject &params) -> Reply {
        const QString uri = uriOf(params);
        LspDocument *doc = document(uri);
        if (!doc)
            return {QJsonValue(), InvalidParams, QStringLiteral("document not open: ") + uri};
        return {handler(*doc, params)};
    };
}

void LspServer::didOpen(const QJsonObject &params)
{
    const QJsonObject item = params.value(QStringLiteral("textDocument")).toObject();
    const QString uri = item.value(QStringLiteral("uri")).toString();
    if (uri.isEmpty()) {
        log(QStringLiteral("didOpen without a document URI"));
        return;
    }
    // Opened again: the old one goes first, and its reports with it.
    documents.erase(uri);
    OpenDocument &doc = documents[uri];
    doc.text = std::make_unique<LspDocument>(uri, pathOf(uri),
                                             item.value(QStringLiteral("text")).toString(),
                                             item.value(QStringLiteral("version")).toInt());
    publishDiagnostics(uri);
}

void LspServer::didChange(const QJsonObject &params)
{
    const QString uri = uriOf(params);
    LspDocument *doc = document(uri);
    if (!doc) {
        log(QStringLiteral("change to a document not open: ") + uri);
        return;
    }
    const QJsonArray changes = params.value(QStringLiteral("contentChanges")).toArray();
    for (const QJsonValue &change : changes) {
        const QJsonObject c = change.toObject();
        const QString text = c.value(QStringLiteral("text")).toString();
        if (c.contains(QStringLiteral("range")))
            doc->replaceRange(LspJson::toRange(c.value(QStringLiteral("range"))), text);
        else
            doc->replaceAll(text);
    }
    doc->setVersion(params.value(QStringLiteral("textDocument"))
                        .toObject()
                        .value(QStringLiteral("version"))
                        .toInt(doc->version()));
    publishDiagnostics(uri);
}

void LspServer::didClose(const QJsonObject &params)
{
    const QString uri = uriOf(params);
    if (documents.erase(uri) == 0)
        return;
    sendDiagnostics(uri, QByteArray(), "[]");
}

void LspServer::publishDiagnostics(const QString &uri)
{
    OpenDocument &doc = documents[uri];
    sendDiagnostics(uri, QByteArray::number(doc.text->version()),
                    doc.diagnostics.json(*doc.text));
}

// Written out by hand: the list is already JSON text, and a large one
// would cost more to take apart and put together again than to make.
void LspServer::sendDiagnostics(const QString &uri, const QByteArray &version,
                                const QByteArray &list)
{
    QByteArray message = R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics",)"
                         R"("params":{"uri":)";
    message += QJsonDocument(QJsonArray{uri}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
    if (!version.isEmpty())
        message += R"(,"version":)" + version;
    message += R"(,"diagnostics":)" + list + "}}";
    emit send(message);
}
