// Feeds arbitrary search texts and files to the find pattern matcher and compares its
// answers, in bytes and in text, with a plain character-by-character search.
#include "FuzzCheck.h"
#include "editor/core/CaselessPattern.h"

#include <cstdint>

using namespace tessaro;

namespace {

qsizetype plainIndex(const QByteArray &pattern, const QByteArray &text)
{
    for (qsizetype at = 0; at + pattern.size() <= text.size(); ++at) {
        qsizetype i = 0;
        while (i < pattern.size() &&
               foldLatin1(uchar(pattern[i])) == foldLatin1(uchar(text[at + i])))
            ++i;
        if (i == pattern.size())
            return at;
    }
    return -1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte is the length of the search text; the rest is the file.
    const qsizetype length = qMin(qsizetype(data[0] % 40), qsizetype(size) - 1);
    const QByteArray pattern(reinterpret_cast<const char *>(data) + 1, length);
    const QByteArray text(reinterpret_cast<const char *>(data) + 1 + length,
                          qsizetype(size) - 1 - length);

    const CaselessPattern matcher(QString::fromLatin1(pattern));
    const qsizetype expected = plainIndex(pattern, text);
    fuzzCheck(matcher.indexIn(text) == expected);
    const QString wide = QString::fromLatin1(text);
    fuzzCheck(matcher.indexIn(wide, 0, wide.size()) == expected);

    // A search text with a character beyond Latin-1 matches nothing.
    const CaselessPattern wider(QString::fromLatin1(pattern) + QChar(0x263A));
    fuzzCheck(wider.indexIn(text) == -1);
    return 0;
}
