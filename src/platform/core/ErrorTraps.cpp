#include "platform/core/ErrorTraps.h"

#include "platform/core/AppInfo.h"
#include "platform/core/EmergencySave.h"
#include "platform/core/MsgBox.h"

#include <cstdlib>

namespace tessaro {

namespace {
ProgramEnd &programEnd()
{
    static ProgramEnd end = [](int status) { std::_Exit(status); };
    return end;
}
} // namespace

ProgramEnd setProgramEnd(ProgramEnd end)
{
    ProgramEnd previous = programEnd();
    programEnd() = end ? std::move(end) : ProgramEnd([](int status) { std::_Exit(status); });
    return previous;
}

QString runtimeErrorMessage(const RuntimeError &error)
{
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(error.description());
}

void endWithRuntimeError(const RuntimeError &error)
{
    // Unsaved documents are kept before the message box, which may never be answered.
    runEmergencySave();
    MsgBox(runtimeErrorMessage(error), mb::OKOnly | mb::Critical, appTitle());
    programEnd()(1);
    std::_Exit(1); // a test's replacement may only throw; never go back to the command
}

} // namespace tessaro
