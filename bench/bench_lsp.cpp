// The language server in process, on the generated corpus: what a client
// waits for after opening the script, after changing one line, and for a
// hover and a completion in it. No pipes: the messages go straight into
// LspServer and its answers are kept, not written.

#include "corpus.h"
#include "lspserver.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <benchmark/benchmark.h>

namespace {

const QString uri = QStringLiteral("file:///bench/corpus.mrc");

QJsonObject message(const QString &method, const QJsonObject &params, int id = 0)
{
    QJsonObject o{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                  {QStringLiteral("method"), method},
                  {QStringLiteral("params"), params}};
    if (id)
        o.insert(QStringLiteral("id"), id);
    return o;
}

QJsonObject position(int line, int character)
{
    return {{QStringLiteral("line"), line}, {QStringLiteral("character"), character}};
}

// A server past initialize, with what it last sent.
struct Server
{
    LspServer server;
    QByteArray last;
    int sent = 0;

    // What was last sent, as JSON: for the counters, outside the timing.
    QJsonObject lastMessage() const { return QJsonDocument::fromJson(last).object(); }

    Server()
    {
        QObject::connect(&server, &LspServer::send, &server, [this](const QByteArray &m) {
            last = m;
            ++sent;
        });
        server.handleMessage(message(QStringLiteral("initialize"), {}, 1));
        server.handleMessage(message(QStringLiteral("initialized"), {}));
    }

    void open(const QString &text)
    {
        server.handleMessage(message(
            QStringLiteral("textDocument/didOpen"),
            {{QStringLiteral("textDocument"),
              QJsonObject{{QStringLiteral("uri"), uri}, {QStringLiteral("version"), 1},
                          {QStringLiteral("languageId"), QStringLiteral("msl")},
                          {QStringLiteral("text"), text}}}}));
    }

    void close()
    {
        server.handleMessage(message(
            QStringLiteral("textDocument/didClose"),
            {{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), uri}}}}));
    }

    void replace(int line, int from, int to, const QString &text)
    {
        const QJsonObject change{
            {QStringLiteral("range"), QJsonObject{{QStringLiteral("start"), position(line, from)},
                                                  {QStringLiteral("end"), position(line, to)}}},
            {QStringLiteral("text"), text}};
        server.handleMessage(message(
            QStringLiteral("textDocument/didChange"),
            {{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), uri}}},
             {QStringLiteral("contentChanges"), QJsonArray{change}}}));
    }

    void ask(const QString &method, int line, int character)
    {
        server.handleMessage(message(
            method,
            {{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), uri}}},
             {QStringLiteral("position"), position(line, character)}},
            2));
    }
};

// The first line from the middle of the corpus on that holds `needle`,
// and where the needle stands in it.
std::pair<int, int> middleLineWith(const QStringList &lines, const QString &needle)
{
    for (int i = int(lines.size()) / 2; i < lines.size(); ++i) {
        const int at = int(lines[i].indexOf(needle));
        if (at >= 0)
            return {i, at};
    }
    return {0, 0};
}

void BM_lspopen(benchmark::State &state)
{
    const QString text = corpusText(int(state.range(0)));
    Server s;
    for (auto _ : state) {
        s.open(text);
        state.PauseTiming();
        state.counters["diagnostics"] =
            double(s.lastMessage()[QStringLiteral("params")][QStringLiteral("diagnostics")]
                       .toArray().size());
        s.close();
        state.ResumeTiming();
    }
}

// One character typed into a line in the middle and taken out again,
// each a change with its diagnostics.
void BM_lspchange(benchmark::State &state)
{
    const QString text = corpusText(int(state.range(0)));
    const QStringList lines = text.split(QLatin1Char('\n'));
    const auto [line, at] = middleLineWith(lines, QStringLiteral("echo"));
    Server s;
    s.open(text);
    bool typed = false;
    for (auto _ : state) {
        if (typed)
            s.replace(line, at, at + 1, QString());
        else
            s.replace(line, at, at, QStringLiteral("x"));
        typed = !typed;
    }
}

void BM_lsphover(benchmark::State &state)
{
    const QString text = corpusText(int(state.range(0)));
    const auto [line, at] = middleLineWith(text.split(QLatin1Char('\n')), QStringLiteral("$calc("));
    Server s;
    s.open(text);
    for (auto _ : state)
        s.ask(QStringLiteral("textDocument/hover"), line, at + 2);
}

// The identifiers after "$c": the table and every alias of the script.
void BM_lspcomplete(benchmark::State &state)
{
    const QString text = corpusText(int(state.range(0)));
    const auto [line, at] = middleLineWith(text.split(QLatin1Char('\n')), QStringLiteral("$calc("));
    Server s;
    s.open(text);
    for (auto _ : state)
        s.ask(QStringLiteral("textDocument/completion"), line, at + 2);
    state.counters["items"] = double(s.lastMessage()[QStringLiteral("result")].toArray().size());
}

} // namespace

BENCHMARK(BM_lspopen)->Arg(20000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_lspchange)->Arg(20000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_lsphover)->Arg(20000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_lspcomplete)->Arg(20000)->Unit(benchmark::kMillisecond)->UseRealTime();
