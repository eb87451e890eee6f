#pragma once

namespace tessaro {

// The program's entry once the runtime has started (the start-up module's Main). The
// first copy of a user takes the single-instance lock, shows the splash, which shows
// the main window, and runs until that window closes. A later copy never opens a
// window: it hands its command line to the running copy (or only asks it to come to
// the front) and ends; with no running copy marked yet it ends without effect.
int Main(int argc, char **argv);

} // namespace tessaro
