#pragma once

#include "build/core/BuildScript.h"

namespace tessaro {
struct ToolSettings;
struct WorkspaceState;
} // namespace tessaro

namespace tessaro::build {

// The three Quake III Arena VM modules.
enum class QvmModule { Game, CGame, UI };

// The script that builds one VM module: into the module's folder, into "vm", one
// compile per shared file (cgame and ui) and per list entry 0 .. count (one more than
// there are files), each followed by the stop on failure, then the assembler with the
// module's list file and "cd ..". Each module's folder is the trimmed directory part
// of its list's entry 2. A full list (51 files) raises 9 "Subscript out of range"
// while composing, so nothing is written.
Script composeQvmScript(QvmModule module, const WorkspaceState &workspace,
                        const ToolSettings &tools);

} // namespace tessaro::build
