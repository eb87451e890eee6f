#pragma once

#include "platform/core/RuntimeError.h"

#include <functional>

namespace tessaro {

// The application-level handler for run-time errors that no command traps: it shows
// "Run-time error '<n>':" with the description in a message box titled "Tessaro",
// then ends the process at once with status 1. No unload runs, so no setting is
// written; only the emergency save (recovery copies of changed documents) runs first.
[[noreturn]] void endWithRuntimeError(const RuntimeError &error);

// What ends the process after the message; tests replace it to observe the end
// without dying. The replacement must not return (it may throw).
using ProgramEnd = std::function<void(int status)>;
ProgramEnd setProgramEnd(ProgramEnd end);

// The message text of the run-time's error box.
QString runtimeErrorMessage(const RuntimeError &error);

// Runs a command that traps its errors: a run-time error ends the command silently,
// keeping whatever it had already done. Returns false when an error ended it.
template <typename Fn>
bool trapped(Fn &&command)
{
    try {
        command();
        return true;
    } catch (const RuntimeError &) {
        return false;
    }
}

// Runs a command that installs no error trap: a run-time error ends the program
// through endWithRuntimeError. Every slot of such a command goes through here, so no
// exception ever leaves a slot.
template <typename Fn>
void untrapped(Fn &&command)
{
    try {
        command();
    } catch (const RuntimeError &error) {
        endWithRuntimeError(error);
    }
}

} // namespace tessaro
