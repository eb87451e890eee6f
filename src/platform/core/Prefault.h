#pragma once

#include <QtGlobal>

namespace tessaro {

// Backs a fresh buffer of megabytes with memory in one request, before it is first
// written, instead of one page fault for each 4 KiB page as the writing reaches it
// (which a virtual machine pays dearly for). The buffer's bytes are left as they are;
// where the system cannot do it, nothing happens and the pages fault in as usual.
void prefaultForWriting(void *data, qsizetype bytes);

} // namespace tessaro
