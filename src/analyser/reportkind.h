#ifndef REPORTKIND_H
#define REPORTKIND_H

#include <QString>

// What a report is. The values are the ones the highlighter's updateError
// signal carries as its `type`, and the ones the report dock and the lint
// read back; they are part of the interface and never change.
enum ReportKind {
    InformationReport = 1,
    WarningReport = 2,
    ErrorReport = 3,
    // Developer notes, by the colour the dock gives them. Blue and grey
    // are known to the dock but have no tag that files them.
    BlueNote = 10,
    TodoNote = 11,
    GreyNote = 12,
    HackNote = 13,
    XxxNote = 14,
    FixmeNote = 15,
};

// Every value from 10 up is a note and goes to the Messages list, even
// one that is no kind; everything below goes to the Debug list.
inline bool isNote(int kind)
{
    return kind >= BlueNote;
}

// The word the lint and its dump print for a kind: "error", "warning",
// "info", "todo", "fixme", "hack", "xxx", "note"; "type<N>" for a value
// that is no kind.
QString reportKindName(int kind);

#endif // REPORTKIND_H
