// tarnwick-lsp as a client sees it: the life cycle, the answers to each
// request on a small script, and bad input that is answered, not fatal.

#include "lspclient.h"
#include "testsuite.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

namespace {

const QString uri = QStringLiteral("file:///work/sample.mrc");

QString sample()
{
    QFile f(QStringLiteral(TARNWICK_TEST_DATA_DIR "/sample.mrc"));
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// A framed message; the body is written with ' for ".
QByteArray framed(QByteArray body)
{
    body.replace('\'', '"');
    return "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

const QJsonObject onDocument{{QStringLiteral("textDocument"),
                              QJsonObject{{QStringLiteral("uri"), uri}}}};

int errorCode(const QJsonObject &reply)
{
    return reply.value(QStringLiteral("error"))[QStringLiteral("code")].toInt();
}

QStringList labels(const QJsonArray &items)
{
    QStringList out;
    for (const QJsonValue &item : items)
        out << item[QStringLiteral("label")].toString();
    return out;
}

} // namespace

class LspProtocol : public QObject
{
    Q_OBJECT

private slots:
    void lifeCycle_data()
    {
        QTest::addColumn<QByteArrayList>("steps");
        QTest::addColumn<int>("status");
        QTest::newRow("shutdown, exit") << QByteArrayList{"shutdown", "exit"} << 0;
        QTest::newRow("exit alone") << QByteArrayList{"exit"} << 1;
        QTest::newRow("end of input") << QByteArrayList{} << 1;
        QTest::newRow("shutdown, end of input") << QByteArrayList{"shutdown"} << 0;
    }

    void lifeCycle()
    {
        QFETCH(QByteArrayList, steps);
        QFETCH(int, status);
        LspClient client;
        // Before initialize, requests are refused and notifications dropped.
        QCOMPARE(errorCode(client.request(QStringLiteral("shutdown"))), -32002);
        client.sendRaw(framed("{'jsonrpc':'2.0','method':'textDocument/didOpen','params':{"
                              "'textDocument':{'uri':'file:///work/sample.mrc','text':''}}}"));
        const QJsonObject init = client.initialize();
        QCOMPARE(errorCode(client.at(QStringLiteral("textDocument/hover"), uri, 0, 0)), -32602);
        QVERIFY(init[QStringLiteral("capabilities")].isObject());
        QCOMPARE(init[QStringLiteral("serverInfo")][QStringLiteral("name")].toString(),
                 QStringLiteral("tarnwick-lsp"));
        QCOMPARE(errorCode(client.request(QStringLiteral("initialize"))), -32600);
        for (const QByteArray &step : steps) {
            if (step == "shutdown")
                QVERIFY(client.request(QStringLiteral("shutdown")).contains(u"result"));
            else
                client.notify(QString::fromLatin1(step));
        }
        QCOMPARE(client.finish(), status);
    }

    // One answer per request kind on the sample script.
    void requests()
    {
        LspClient client;
        client.initialize();
        const QJsonArray diagnostics = client.open(uri, sample());
        // The todo note is a hint whose message says what it is.
        bool todo = false;
        for (const QJsonValue &d : diagnostics)
            todo = todo || (d[QStringLiteral("severity")].toInt() == 4
                            && d[QStringLiteral("range")][QStringLiteral("start")]
                                       [QStringLiteral("line")].toInt() == 4
                            && d[QStringLiteral("message")].toString().startsWith(
                                QStringLiteral("todo: ")));
        QVERIFY2(todo, qPrintable(QJsonDocument(diagnostics).toJson()));

        const QJsonObject hover = client.at(QStringLiteral("textDocument/hover"), uri, 3, 12);
        QVERIFY(hover[QStringLiteral("result")][QStringLiteral("contents")][QStringLiteral("value")]
                    .toString().contains(QStringLiteral("$calc(<operations>)")));
        QVERIFY(client.at(QStringLiteral("textDocument/hover"), uri, 1, 1)
                    [QStringLiteral("result")].isNull());

        // Inside $gettok's third argument, after two commas.
        const QJsonObject help =
            client.at(QStringLiteral("textDocument/signatureHelp"), uri, 2, 28)
                [QStringLiteral("result")].toObject();
        QCOMPARE(help[QStringLiteral("activeParameter")].toInt(), 2);
        const QJsonObject signature = help[QStringLiteral("signatures")][0].toObject();
        const QString label = signature[QStringLiteral("label")].toString();
        const QJsonArray third = signature[QStringLiteral("parameters")][2]
                                     [QStringLiteral("label")].toArray();
        QCOMPARE(label.mid(third[0].toInt(), third[1].toInt() - third[0].toInt()),
                 QStringLiteral("<delimiter>"));

        const QJsonArray folds =
            client.request(QStringLiteral("textDocument/foldingRange"), onDocument)[u"result"]
                .toArray();
        QStringList spans;
        for (const QJsonValue &f : folds)
            spans << QStringLiteral("%1-%2").arg(f[QStringLiteral("startLine")].toInt())
                         .arg(f[QStringLiteral("endLine")].toInt());
        QCOMPARE(spans, QStringList({QStringLiteral("1-5"), QStringLiteral("6-11"),
                                     QStringLiteral("8-10"), QStringLiteral("12-14")}));

        const QJsonArray symbols =
            client.request(QStringLiteral("textDocument/documentSymbol"), onDocument)[u"result"]
                .toArray();
        QStringList names;
        for (const QJsonValue &s : symbols) {
            names << s[QStringLiteral("name")].toString();
            for (const QJsonValue &c : s[QStringLiteral("children")].toArray())
                names << QStringLiteral("  ") + c[QStringLiteral("name")].toString();
        }
        QCOMPARE(names, QStringList({QStringLiteral("greet"), QStringLiteral("#tools"),
                                     QStringLiteral("  tidy"), QStringLiteral("  text : *hi*"),
                                     QStringLiteral("setup")}));
    }

    // What each list offers, by what stands left of the cursor; a line of
    // the script's own alias text, and one that offers nothing.
    void completion_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("offered");
        QTest::newRow("identifier") << "  echo $c" << QStringList{"$calc", "$chan", "$greet"};
        QTest::newRow("property") << "  echo $chan(#).t" << QStringList{"topic", "mode"};
        QTest::newRow("ProgID") << "  comopen x WScr" << QStringList{"WScript.Shell"};
        QTest::newRow("ProgID behind |")
            << "  echo | comopen x " << QStringList{"Word.Application"};
        QTest::newRow("colour") << "  echo \x03" "4" << QStringList{"04", "4,12"};
        QTest::newRow("nothing") << "  echo hi" << QStringList{};
    }

    void completion()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, offered);
        LspClient client;
        client.initialize();
        client.open(uri, QStringLiteral("alias greet {\n") + line + QStringLiteral("\n}\n"));
        const QJsonObject reply =
            client.at(QStringLiteral("textDocument/completion"), uri, 1, int(line.size()));
        const QStringList items = labels(reply[u"result"].toArray());
        QCOMPARE(items.isEmpty(), offered.isEmpty());
        for (const QString &label : offered)
            QVERIFY2(items.contains(label), qPrintable(label));
    }

    // The tokens of one line, decoded: "text:type" by the legend.
    void semanticTokens()
    {
        LspClient client;
        const QJsonObject legend = client.initialize()[QStringLiteral("capabilities")]
                                       [QStringLiteral("semanticTokensProvider")]
                                       [QStringLiteral("legend")].toObject();
        const QString text = sample();
        client.open(uri, text);
        const QStringList lines = text.split(QLatin1Char('\n'));
        QJsonObject params = onDocument;
        // Lines 1 and 2.
        params.insert(QStringLiteral("range"), LspClient::change(1, 0, 2, 30, QString())[u"range"]);
        const QJsonArray data = client.request(QStringLiteral("textDocument/semanticTokens/range"),
                                               params)[QStringLiteral("result")]
                                    [QStringLiteral("data")].toArray();
        QStringList tokens;
        int line = 0, start = 0;
        for (int i = 0; i + 4 < data.size(); i += 5) {
            line += data[i].toInt();
            start = data[i].toInt() ? data[i + 1].toInt() : start + data[i + 1].toInt();
            tokens << lines[line].mid(start, data[i + 2].toInt()) + QLatin1Char(':')
                    + legend[QStringLiteral("tokenTypes")][data[i + 3].toInt()].toString();
        }
        QCOMPARE(tokens.mid(0, 3), QStringList({QStringLiteral("alias:keyword"),
                                                QStringLiteral("greet:function"),
                                                QStringLiteral("{:keyword")}));
        QVERIFY(tokens.contains(QStringLiteral("var:method")));
        QVERIFY(tokens.contains(QStringLiteral("%n:variable")));
        // Neighbouring ranges of one look are one range: `$1-` joins the call.
        QVERIFY(tokens.contains(QStringLiteral("$gettok($1-:function")));
    }

    // Each bad input is answered (or let go) and the server goes on to
    // answer the next request.
    void badInput_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("error");
        QByteArray ok = "{'jsonrpc':'2.0','id':99,'method':'shutdown'}";
        ok.replace('\'', '"');
        QTest::newRow("not JSON") << framed("{nope") << -32700;
        QTest::newRow("no length") << QByteArray("Content-Type: x\r\n\r\n{}") << -32700;
        QTest::newRow("length not a number") << QByteArray("Content-Length: ten\r\n\r\n") << -32700;
        QTest::newRow("length too long")
            << QByteArray("Content-Length: 9999\r\n\r\n" + ok) << 0;
        QTest::newRow("length too short")
            << QByteArray("Content-Length: 3\r\n\r\n" + ok) << -32700;
        QTest::newRow("garbage before a header") << QByteArray("xyz") << -32700;
        QTest::newRow("not an object") << framed("[1,2]") << -32600;
        QTest::newRow("id of a wrong kind")
            << framed("{'jsonrpc':'2.0','id':{},'method':'shutdown'}") << -32600;
        QTest::newRow("unknown method")
            << framed("{'jsonrpc':'2.0','id':1,'method':'x/y'}") << -32601;
        QTest::newRow("unknown notification")
            << framed("{'jsonrpc':'2.0','method':'x/y'}") << 0;
        QTest::newRow("document never opened")
            << framed("{'jsonrpc':'2.0','id':1,'method':'textDocument/hover','params':{"
                      "'textDocument':{'uri':'file:///none'},'position':{'line':0,'character':0}}}")
            << -32602;
        QTest::newRow("cancel")
            << framed("{'jsonrpc':'2.0','method':'$/cancelRequest','params':{'id':1}}") << 0;
    }

    void badInput()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, error);
        LspClient client;
        client.initialize();
        client.sendRaw(bytes);
        client.sendRaw(framed("{'jsonrpc':'2.0','id':99,'method':'shutdown'}"));
        QVERIFY(client.replyTo(99).contains(QStringLiteral("result")));
        if (error) {
            const QJsonObject answer = client.take([](const QJsonObject &m) {
                return m.contains(QStringLiteral("error"));
            });
            QCOMPARE(errorCode(answer), error);
        }
        QCOMPARE(client.finish(), 0);
    }

    // A message that arrives a byte at a time is read like any other.
    void partialReads()
    {
        LspClient client;
        const QByteArray request = framed("{'jsonrpc':'2.0','id':7,'method':'initialize'}");
        for (char byte : request)
            client.sendRaw(QByteArray(1, byte));
        QVERIFY(client.replyTo(7)[u"result"][u"capabilities"].isObject());
    }

    // Positions outside the text are clamped, and a document of many lines
    // is taken like any other.
    void outOfRangeAndHuge()
    {
        LspClient client;
        client.initialize();
        client.open(uri, sample());
        const QJsonObject far = client.at(QStringLiteral("textDocument/hover"), uri, 1 << 30, -7);
        QVERIFY(far.contains(QStringLiteral("result")));
        client.change(uri, {LspClient::change(999, 999, -3, 2, QStringLiteral("alias x {\n"))});
        QVERIFY(client.running());

        QString big;
        for (int i = 0; i < 5000; ++i)
            big += QStringLiteral("alias a%1 {\n  echo -a $left(x)\n}\n").arg(i);
        QCOMPARE(client.open(QStringLiteral("file:///work/big.mrc"), big).size(), 5000);
        QCOMPARE(client.finish(), 1);
    }
};

TARNWICK_TEST(LspProtocol);

#include "tst_protocol.moc"
