#include "platform/core/Prefault.h"

#include <sys/mman.h>
#include <unistd.h>

namespace tessaro {

void prefaultForWriting(void *data, qsizetype bytes)
{
#ifdef MADV_POPULATE_WRITE
    // Only whole pages inside the buffer: the partial pages at its ends may hold
    // other allocations, which fault in (or already have) on their own.
    const quintptr page = quintptr(::sysconf(_SC_PAGESIZE));
    const quintptr begin = (quintptr(data) + page - 1) & ~(page - 1);
    const quintptr end = (quintptr(data) + quintptr(bytes)) & ~(page - 1);
    if (end > begin)
        ::madvise(reinterpret_cast<void *>(begin), end - begin, MADV_POPULATE_WRITE);
#else
    Q_UNUSED(data);
    Q_UNUSED(bytes);
#endif
}

} // namespace tessaro
