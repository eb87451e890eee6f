#include "platform/core/EmergencySave.h"

#include "platform/core/RuntimeError.h"

namespace tessaro {

namespace {
std::function<void()> g_save;
bool g_running = false;
} // namespace

void setEmergencySave(std::function<void()> save)
{
    g_save = std::move(save);
}

void runEmergencySave()
{
    if (!g_save || g_running)
        return;
    g_running = true;
    try {
        g_save();
    } catch (const RuntimeError &) {
        // The program is ending on its own error already.
    }
    g_running = false;
}

} // namespace tessaro
