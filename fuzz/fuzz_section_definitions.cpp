// Feeds arbitrary bytes to the section definition loader (the "tessaro.stx" reader)
// and joins its lists. Both must return on any input with the counts in range.
#include "FuzzCheck.h"
#include "editor/core/SectionDefinitions.h"

#include <QDir>
#include <QFile>

#include <cstdint>
#include <unistd.h>

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The loader reads a file by name, as the editor does.
    static const QString path =
        QDir::tempPath() + QStringLiteral("/tessaro-fuzz-%1.stx").arg(::getpid());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();

    SectionDefinitions definitions;
    definitions.load(path);
    definitions.buildJoinedLists();
    fuzzCheck(definitions.keywordCount() >= 0 && definitions.operatorCount() >= 0 &&
              definitions.scopeCount() >= 0 && definitions.functionCount() >= 0 &&
              definitions.commentCount() >= 0);
    // A second load without a clear grows the lists: it must hold as well.
    definitions.load(path);
    definitions.buildJoinedLists();
    QFile::remove(path);
    return 0;
}
