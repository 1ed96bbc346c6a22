#ifndef LSPCLIENT_H
#define LSPCLIENT_H

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QString>

#include <functional>

// The built tarnwick-lsp as a process, talked to as a client does: framed
// JSON-RPC on its standard input and output.
class LspClient
{
public:
    LspClient();
    ~LspClient();

    // initialize and initialized; returns the initialize result.
    QJsonObject initialize();

    void sendRaw(const QByteArray &bytes);
    void notify(const QString &method, const QJsonObject &params = QJsonObject());
    // Sends a request and waits for its answer (result or error).
    QJsonObject request(const QString &method, const QJsonValue &params = QJsonObject());
    // The answer to the request sent with `id`.
    QJsonObject replyTo(const QJsonValue &id);

    // didOpen with version 1; returns the diagnostics it brought.
    QJsonArray open(const QString &uri, const QString &text);
    // didChange with these content changes; returns the diagnostics.
    QJsonArray change(const QString &uri, const QJsonArray &changes);
    // The next published diagnostics of `uri`.
    QJsonArray diagnostics(const QString &uri);
    // A request about a document at a position.
    QJsonObject at(const QString &method, const QString &uri, int line, int character);

    // The first message from the server not taken yet that `match` takes;
    // an empty object when none comes within the time limit.
    QJsonObject take(const std::function<bool(const QJsonObject &)> &match);
    // Closes standard input; the exit status, or -1 for a crash or hang.
    int finish();
    bool running() const { return process.state() == QProcess::Running; }
    QString errors() const { return QString::fromUtf8(standardError); }

    static QJsonObject change(int line, int character, int endLine, int endCharacter,
                              const QString &text);

private:
    bool readMore();

    QProcess process;
    QByteArray buffer;
    QByteArray standardError;
    QList<QJsonObject> received;
    int nextId = 1;
    QHash<QString, int> versions;
};

#endif // LSPCLIENT_H
