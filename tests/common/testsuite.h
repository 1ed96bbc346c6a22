#ifndef TESTSUITE_H
#define TESTSUITE_H

#include <QObject>

// One test program per subsystem: each QtTest class of the subsystem
// registers itself here, and the shared main runs them one after another.
//
//   tst_editor                    every class
//   tst_editor FindBar [args]     one class, with QtTest's own arguments
namespace TestSuite {

using Factory = QObject *(*)();

// Keeps the class for the program's main; returns true so that it can
// initialise a static.
bool add(const char *name, Factory make);

} // namespace TestSuite

#define TARNWICK_TEST(Class)                                                                       \
    static const bool tarnwickRegistered##Class                                                    \
        = TestSuite::add(#Class, []() -> QObject * { return new Class; })

#endif // TESTSUITE_H
