#pragma once

#include "tools/core/cRegistry.h"

namespace tessaro {

// The program's own path for the associations: the folder, a "/" unless it already
// ends in one, and the executable's name.
QString associationProgramPath(const QString &programFolder,
                               const QString &programName = QStringLiteral("tessaro"));

// Registers the three file classes "C.Source" (".C"), "C.Header" (".H") and
// "CPP.Source" (".CPP") for the program, with the verb "&Open" only. A failed write
// under HKEY_LOCAL_MACHINE does not stop the per-user writes; it is reported by the
// return value (false). A failed per-user write raises 26001.
bool registerSourceFileClasses(cRegistry &registry, const QString &programPath);

// Start-up's registrations: the three file classes in the registry for the running
// program, then the desktop's association. Neither may stop the start-up: a registry
// that cannot be written ends only the registration, a machine root without rights
// only its own half.
void registerFileAssociations();

} // namespace tessaro
