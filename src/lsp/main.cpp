// tarnwick-lsp: the editor's analyser as a language server.
//
//   tarnwick-lsp [--version]
//
// Speaks the Language Server Protocol over standard input and output:
// diagnostics from the analyser's reports, hover and signature help from
// the identifier syntax, completion, folding, document symbols and
// semantic tokens. It logs to standard error only.

#include "devsettings.h"
#include "lspserver.h"
#include "stdiochannel.h"

#include <QGuiApplication>

#include <csignal>
#include <cstdio>
#include <cstring>

#ifndef TARNWICK_VERSION
#define TARNWICK_VERSION "unknown"
#endif

namespace {

// Qt's chatter about the platform would fill a client's log; its errors
// still go to standard error, never to the protocol's standard output.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "tarnwick-lsp: %s\n", qPrintable(message));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("tarnwick-lsp %s\n", TARNWICK_VERSION);
        return 0;
    }
    qInstallMessageHandler(quietMessages);
    // A client gone away shows as a failed write, not as a signal.
    std::signal(SIGPIPE, SIG_IGN);
    // No display is needed: the documents are laid out off screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarnwick-lsp"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARNWICK_VERSION));

    DevSettings::InitializeAllSettings();
    LspServer server;
    StdioChannel channel(&server);
    QObject::connect(&server, &LspServer::exitRequested, &app, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    return app.exec();
}
