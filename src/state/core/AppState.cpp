#include "state/core/AppState.h"

namespace tessaro {

namespace {
AppState *g_state = new AppState; // never destroyed: lives until the process ends
}

AppState &app()
{
    return *g_state;
}

void resetApp()
{
    *g_state = AppState();
}

} // namespace tessaro
