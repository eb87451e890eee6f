// Feeds arbitrary bytes to the RTF reader. The reader must return on any input;
// its runs must lie inside the text, in order, without overlapping; and a text it
// read must survive a round trip through the writer unchanged (with its runs),
// whenever its line breaks are all CR LF pairs.
#include "editor/core/RtfDocument.h"

#include <cstdlib>

using namespace tessaro;

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

bool onlyPairedLineBreaks(const QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r') {
            if (i + 1 >= text.size() || text[i + 1] != u'\n')
                return false;
            ++i;
        } else if (text[i] == u'\n') {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString input =
        QString::fromLatin1(reinterpret_cast<const char *>(data), qsizetype(size));
    const RtfDocument doc = readRtf(input);

    qsizetype previousEnd = 0;
    for (const RtfColourRun &run : doc.runs) {
        check(run.length > 0);
        check(run.start >= previousEnd);
        check(run.start + run.length <= doc.text.size());
        previousEnd = run.start + run.length;
    }

    if (onlyPairedLineBreaks(doc.text)) {
        const RtfDocument again = readRtf(writeRtf(doc.text, doc.runs));
        check(again.text == doc.text);
        // Neighbouring runs of one colour come back as one run.
        std::vector<RtfColourRun> merged;
        for (const RtfColourRun &run : doc.runs) {
            if (!merged.empty() && merged.back().colour == run.colour &&
                merged.back().start + merged.back().length == run.start)
                merged.back().length += run.length;
            else
                merged.push_back(run);
        }
        check(again.runs == merged);
    }
    return 0;
}
