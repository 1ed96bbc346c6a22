#ifndef LSPJSON_H
#define LSPJSON_H

#include <QJsonObject>

struct TextPosition;
struct TextRange;

// The protocol's small shapes, both ways.
namespace LspJson {

QJsonObject position(int line, int character);
// A range within one line.
QJsonObject range(int line, int startCharacter, int endCharacter);
QJsonObject range(int startLine, int startCharacter, int endLine, int endCharacter);

// Missing or odd fields read as zero: the document clamps them anyway.
TextPosition toPosition(const QJsonValue &value);
TextRange toRange(const QJsonValue &value);

} // namespace LspJson

#endif // LSPJSON_H
