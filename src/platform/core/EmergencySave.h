#pragma once

#include <functional>

namespace tessaro {

// Work that must be done when the program is about to end without its normal
// shut-down: an untrapped run-time error, a termination or hang-up signal. The
// document recovery installs one handler that writes the recovery copies of every
// changed document; nothing else is saved there (the settings are written only by a
// normal shut-down).
void setEmergencySave(std::function<void()> save);
// Runs the handler, if any. A call made while it runs (an error inside it) does
// nothing, and the handler's own errors never reach the caller.
void runEmergencySave();

} // namespace tessaro
