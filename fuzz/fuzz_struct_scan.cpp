// Feeds arbitrary bytes to the structure scan as the structure view does: line breaks
// made CR LF, then every "typedef struct" reported, a position reported twice ending
// the scan. It must end on any input, and each position must lie inside the text.
#include "FuzzCheck.h"
#include "platform/core/RuntimeError.h"
#include "workspace/core/StructScan.h"

#include <QSet>

#include <cstdint>

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QByteArray text = structscan::withCrLfLineBreaks(bytes);
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text[i] == '\n')
            fuzzCheck(i > 0 && text[i - 1] == '\r');

    QSet<qint32> seen;
    try {
        structscan::scanDeclarations(text, [&](qint32 position, const QString &) {
            fuzzCheck(position >= 1 && position <= text.size());
            // The tree refuses a key it already has, which ends the scan.
            if (seen.contains(position))
                raise(RuntimeError::InvalidProcedureCall);
            seen.insert(position);
        });
    } catch (const RuntimeError &) {
    }
    try {
        structscan::val(QString::fromLatin1(bytes));
    } catch (const RuntimeError &) {
    }
    return 0;
}
