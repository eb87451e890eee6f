// tessaro-cli colour FILE [--mode N] [--lists DIR]: the stretches the editor colours.
// tessaro-cli colour --line-colourer --stx FILE.stx SOURCE: the RTF the section-file
//   colourer makes of SOURCE (as when a new document is saved under a C name).
// tessaro-cli rtf SOURCE: the uncoloured RTF of SOURCE.

#include "cli/CliCommands.h"

#include "editor/core/ColourScan.h"
#include "editor/core/DynHighlight.h"
#include "editor/core/LineEnds.h"
#include "editor/core/ModeWordLists.h"
#include "editor/core/RtfDocument.h"
#include "platform/core/AppInfo.h"
#include "platform/core/FileReader.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

#include <QFileInfo>
#include <QTextStream>

#include <cstdio>

namespace tessaro::cli {

namespace {

void writeOut(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

// Reads a source file as the editor holds it: 8-bit text, every line break CR LF
// (decoded and converted piece by piece as it is read).
bool readSource(const char *command, const QString &path, QString *text)
{
    try {
        CrLfTextDecoder decoder(QFileInfo(path).size());
        FileReader().readInPieces(path, [&](QByteArrayView piece) { decoder.add(piece); });
        *text = decoder.take();
        return true;
    } catch (const RuntimeError &error) {
        QTextStream(stderr) << QStringLiteral("tessaro-cli %1: %2: run-time error %3: %4\n")
                                   .arg(QLatin1String(command), path)
                                   .arg(error.number())
                                   .arg(error.description());
        return false;
    }
}

// One line per stretch: "<start> <length> comment", or "keyword"/"text" and the
// list's spelling.
QByteArray describe(const std::vector<ColourStretch> &stretches)
{
    QByteArray out;
    out.reserve(qsizetype(stretches.size()) * 24);
    for (const ColourStretch &s : stretches) {
        out += QByteArray::number(s.start);
        out += ' ';
        out += QByteArray::number(s.length);
        switch (s.kind) {
        case StretchKind::Comment: out += " comment\n"; continue;
        case StretchKind::Keyword: out += " keyword "; break;
        case StretchKind::Text: out += " text "; break;
        }
        out += s.spelling.toUtf8();
        out += '\n';
    }
    return out;
}

int colourWithLineColourer(const QStringList &arguments)
{
    if (arguments.size() != 4 || arguments.at(0) != u"--line-colourer" ||
        arguments.at(1) != u"--stx")
        return usageError("colour");
    QString source;
    if (!readSource("colour", arguments.at(3), &source))
        return 1;

    // A caption of the document window that the run shows its work in.
    class Caption : public DocumentCaption
    {
    public:
        explicit Caption(QString caption) : m_caption(std::move(caption)) {}
        QString caption() const override { return m_caption; }
        void setCaption(const QString &caption) override { m_caption = caption; }

    private:
        QString m_caption;
    } caption(arguments.at(3));

    DynHighlight &colourer = dynHighlight();
    colourer.colours.setStartupValues();
    writeOut(textfile::toBytes(
        colourer.colourWithSectionFile(caption, arguments.at(2), writeRtf(source))));
    return 0;
}

int colour(const QStringList &arguments)
{
    if (arguments.value(0) == u"--line-colourer")
        return colourWithLineColourer(arguments);

    QString file;
    std::optional<int> mode;
    QString lists = programFolder();
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument == u"--mode" && i + 1 < arguments.size()) {
            bool ok = false;
            mode = arguments.at(++i).toInt(&ok);
            if (!ok)
                return usageError("colour");
        } else if (argument == u"--lists" && i + 1 < arguments.size()) {
            lists = arguments.at(++i);
        } else if (file.isEmpty() && !argument.startsWith(u"--")) {
            file = argument;
        } else {
            return usageError("colour");
        }
    }
    if (file.isEmpty())
        return usageError("colour");

    ScanRequest request;
    if (!readSource("colour", file, &request.text))
        return 1;
    request.mode = mode.value_or(modeForFileName(file));
    request.html = true;
    EditorWordLists wordLists;
    wordLists.applyMode(request.mode, lists);
    request.black = wordLists.black;
    request.blue = wordLists.blue;
    writeOut(describe(scanText(request)));
    return 0;
}

int rtf(const QStringList &arguments)
{
    if (arguments.size() != 1)
        return usageError("rtf");
    QString source;
    if (!readSource("rtf", arguments.at(0), &source))
        return 1;
    writeOut(textfile::toBytes(writeRtf(source)));
    return 0;
}

const Registration colourCommand(
    {"colour",
     "colour FILE [--mode N] [--lists DIR]  the stretches the editor colours: <start> <length> "
     "comment|keyword|text [spelling]\n"
     "  colour --line-colourer --stx FILE.stx SOURCE  the RTF the section-file colourer makes of "
     "SOURCE",
     "Usage: tessaro-cli colour FILE [--mode N] [--lists DIR]\n"
     "       tessaro-cli colour --line-colourer --stx FILE.stx SOURCE\n"
     "Prints the stretches the editor colours in FILE, one a line: \"<start> <length>\n"
     "comment\", or \"<start> <length> keyword <spelling>\" and \"... text <spelling>\" for\n"
     "words of the lists; positions count a line break as two characters. The file\n"
     "name's ending chooses the mode unless --mode N gives it; --lists DIR reads the\n"
     "definition file and word lists from DIR instead of the program's folder.\n"
     "With --line-colourer, prints the RTF that the section-file colourer makes of\n"
     "SOURCE with the definition file FILE.stx, byte for byte.\n",
     colour});
const Registration rtfCommand({"rtf", "rtf SOURCE  the uncoloured RTF of SOURCE",
                               "Usage: tessaro-cli rtf SOURCE\n"
                               "Prints the uncoloured RTF of SOURCE, byte for byte.\n",
                               rtf});

} // namespace
} // namespace tessaro::cli
