#pragma once

#include <QString>

namespace tessaro {

// A line-by-line record of what the program does at start-up and shut-down, for the
// process-level tests and the start-up benchmark, which cannot look inside a running
// program. It is written only when $TESSARO_EVENT_LOG names a file: each event is
// appended as "<milliseconds since boot, monotonic clock> <event>" and flushed at
// once, so a reader sees it while the program runs.
void logEvent(const QString &event);
bool eventLogEnabled();

} // namespace tessaro
