#pragma once

#include <QString>
#include <QStringList>

namespace tessaro::soak {

// The small mod a soak works on: the sample mod copied into a folder, with files of
// every kind of line break, long lines, 8-bit characters and empty files beside it,
// and a workspace file that lists them.
struct SoakMod
{
    QString folder;
    QString workspace;   // the .tdi file
    QStringList sources; // every file a soak may open
};

SoakMod writeSoakMod(const QString &folder, const QString &sampleMod);

} // namespace tessaro::soak
