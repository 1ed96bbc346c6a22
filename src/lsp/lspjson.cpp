#include "lspjson.h"

#include "lspdocument.h"

#include <limits>

namespace {

// A number out of int's range is clamped rather than wrapped.
int toInt(const QJsonValue &value)
{
    const double d = value.toDouble();
    if (d >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (d <= 0)
        return 0;
    return int(d);
}

} // namespace

QJsonObject LspJson::position(int line, int character)
{
    QJsonObject o;
    o.insert(QStringLiteral("line"), line);
    o.insert(QStringLiteral("character"), character);
    return o;
}

QJsonObject LspJson::range(int line, int startCharacter, int endCharacter)
{
    return range(line, startCharacter, line, endCharacter);
}

QJsonObject LspJson::range(int startLine, int startCharacter, int endLine, int endCharacter)
{
    QJsonObject o;
    o.insert(QStringLiteral("start"), position(startLine, startCharacter));
    o.insert(QStringLiteral("end"), position(endLine, endCharacter));
    return o;
}

TextPosition LspJson::toPosition(const QJsonValue &value)
{
    const QJsonObject o = value.toObject();
    TextPosition p;
    p.line = toInt(o.value(QStringLiteral("line")));
    p.character = toInt(o.value(QStringLiteral("character")));
    return p;
}

TextRange LspJson::toRange(const QJsonValue &value)
{
    const QJsonObject o = value.toObject();
    TextRange r;
    r.start = toPosition(o.value(QStringLiteral("start")));
    r.end = toPosition(o.value(QStringLiteral("end")));
    return r;
}
