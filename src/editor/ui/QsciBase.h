#pragma once

// Scintilla's Qt header names its signals and slots with the bare Qt keywords, which
// this project turns off (QT_NO_KEYWORDS): they are given back for that header alone.
#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qsciscintillabase.h>
#undef signals
#undef slots
