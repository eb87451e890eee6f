#pragma once

#include "build/core/BuildScript.h"

namespace tessaro {
struct ToolSettings;
struct WorkspaceState;
} // namespace tessaro

namespace tessaro::build {

// The script that builds a program or library from the workspace's sources and
// resources: into the folder of source entry 0, one compiler line per source (the
// compiler parameters before the file, the suffix parameters after it), one resource
// compiler line per resource, and, when the linker is on, one linker line over every
// object (".obj" or ".o") and compiled resource (".res"). Compile lines do not stop on
// failure. Both compiler types give the same lines.
Script composeExeScript(const WorkspaceState &workspace, const ToolSettings &tools);

} // namespace tessaro::build
