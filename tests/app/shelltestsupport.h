#ifndef SHELLTESTSUPPORT_H
#define SHELLTESTSUPPORT_H

// Helpers for the shell's tests: settings kept in a private folder, and
// the driver that answers modal dialogs as they come up.

#include "nestedloopdriver.h"

#include <QFile>
#include <QSettings>

inline void redirectSettings(const QString &folder)
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
}

inline QSettings openSettings(const QString &application)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                     application);
}

#endif // SHELLTESTSUPPORT_H
