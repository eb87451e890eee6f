// Feeds arbitrary bytes to the colouring code: the first byte picks a mode, the
// rest is the text. The text is scanned by the mode's scanner with a word list made
// of the text's own pieces, and coloured line by line as RTF by the section-file
// colourer with a definition file made of the text. Every stretch must lie inside
// the text, in order; nothing may crash or hang.
#include "editor/core/ColourScan.h"
#include "editor/core/DynHighlight.h"
#include "editor/core/RtfDocument.h"

#include <QTemporaryFile>

#include <cstdlib>

using namespace tessaro;

namespace {

class NoCaption : public DocumentCaption
{
public:
    QString caption() const override { return m_caption; }
    void setCaption(const QString &caption) override { m_caption = caption; }

private:
    QString m_caption;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const int modes[] = {0, 1, 2, 3, 4, 5, 6, 7, 9};
    ScanRequest request;
    request.mode = modes[data[0] % 9];
    request.html = data[0] & 0x80;
    request.ignoreVBHeader = data[0] & 0x40;
    request.text =
        QString::fromLatin1(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    request.blue = WordListIndex(request.text);
    request.black = WordListIndex(request.text.mid(request.text.size() / 2));

    qsizetype previousEnd = 0;
    for (const ColourStretch &s : scanText(request, {}, nullptr, std::chrono::microseconds(0))) {
        if (s.length <= 0 || s.start < previousEnd || s.start + s.length > request.text.size())
            std::abort();
        if (s.kind != StretchKind::Comment && s.spelling.size() != s.length)
            std::abort();
        previousEnd = s.start + s.length;
    }

    // The section-file colourer, with the text as its definition file.
    static QTemporaryFile definitionFile;
    if (!definitionFile.isOpen() && !definitionFile.open())
        std::abort();
    definitionFile.resize(0);
    definitionFile.write(reinterpret_cast<const char *>(data + 1), qint64(size - 1));
    definitionFile.flush();
    DynHighlight colourer;
    colourer.colours.setStartupValues();
    NoCaption caption;
    const QString rtf =
        colourer.colourWithSectionFile(caption, definitionFile.fileName(), writeRtf(request.text));
    readRtf(rtf);
    return 0;
}
