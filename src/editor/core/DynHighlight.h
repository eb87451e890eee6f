#pragma once

#include "editor/core/ColourTable.h"
#include "editor/core/LineColourer.h"
#include "editor/core/SectionDefinitions.h"

#include <QString>

namespace tessaro {

// What the document colouring needs of a document window: its caption, which shows
// " - Color Coding..." while the work runs.
class DocumentCaption
{
public:
    virtual ~DocumentCaption() = default;
    virtual QString caption() const = 0;
    virtual void setCaption(const QString &caption) = 0;
};

// The section-file colourer: the definitions, the colour slots with their switches,
// and the line colourer with its flags. The program has one (dynHighlight()).
class DynHighlight
{
public:
    DynHighlight();

    SectionDefinitions definitions;
    HighlightColours colours;
    LineColourer lines;

    // Colours a document's RTF: replaces its colour table, joins the lists (a failure
    // shows "Error highlighting file" and the work goes on), puts " - Color Coding..."
    // behind the caption (the caller restores it) and colours every line that ends in
    // "\par" + CR LF; other lines stay as they are, the text after the last CR LF is
    // dropped and "}" closes the result. Returns the status, always 0.
    qint32 colourDocumentRtf(DocumentCaption &document, const QString &rtfIn, QString &rtfOut);

    // The whole run for a document saved under a C name: clear the definitions, load
    // the section file, colour the RTF, restore the caption, clear again. Returns the
    // coloured RTF.
    QString colourWithSectionFile(DocumentCaption &document, const QString &sectionFile,
                                  const QString &rtf);
};

DynHighlight &dynHighlight();

} // namespace tessaro
