// Colouring of the editor control: the mode's word lists and the colouring runs.

#include "editor/core/ColourScan.h"
#include "editor/core/DocumentColourer.h"
#include "editor/ui/srcText.h"
#include "platform/core/AppInfo.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

namespace tessaro {

void srcText::setMode(int New_Mode)
{
    m_mode = New_Mode;
    loadWordLists(New_Mode);
    ScanRequest request = m_colouring->request();
    request.mode = New_Mode;
    m_colouring->setRequest(request);
}

// A word list of the program's folder as one text; a missing list is empty.
static QString readWordList(const QString &fileName)
{
    try {
        return textfile::read(programFolder() + QLatin1Char('/') + fileName);
    } catch (const RuntimeError &) {
        return QString();
    }
}

void srcText::loadWordLists(int mode)
{
    struct Lists
    {
        const char *marker; // nullptr: the marker stays
        const char *black;  // nullptr: the list stays; "": the list is emptied
        const char *blue;
    };
    Lists lists{};
    switch (mode) {
    case mode::VisualBasic: lists = {"'", "VB_Black.txt", "VB_Blue.txt"}; break;
    case mode::Java: lists = {nullptr, "Java_Black.txt", "Java_Blue.txt"}; break;
    case mode::JavaScript: lists = {nullptr, "JavaScript_Black.txt", "JavaScript_Blue.txt"}; break;
    case mode::VBScript: lists = {"'", "VBScript_Black.txt", "VBScript_Blue.txt"}; break;
    case mode::Perl: lists = {"#", "", "Perl_Blue.txt"}; break;
    case mode::C: lists = {nullptr, "C_Black.txt", "tessaro.stx"}; break;
    default: return; // HTML, the typing mode and "none" load nothing
    }
    ScanRequest request = m_colouring->request();
    if (lists.marker)
        m_commentMarker = QString::fromLatin1(lists.marker);
    const QString black = QString::fromLatin1(lists.black);
    request.black = WordListIndex(black.isEmpty() ? QString() : readWordList(black));
    request.blue = WordListIndex(readWordList(QString::fromLatin1(lists.blue)));
    m_colouring->setRequest(request);
}

void srcText::setWordLists(const QString &black, const QString &blue)
{
    ScanRequest request = m_colouring->request();
    request.black = WordListIndex(black);
    request.blue = WordListIndex(blue);
    m_colouring->setRequest(request);
}

void srcText::ColourDocument() { startRun(false); }

void srcText::ColorizeWordsHTML() { startRun(true); }

void srcText::startRun(bool html)
{
    ScanRequest request = m_colouring->request();
    request.ignoreVBHeader = m_ignoreVBHeader;
    m_colouring->setRequest(request);
    m_rtfTemp->setDefaultFont(font());
    m_colouring->start(html, m_colouringFromKeys || m_colouringFromPaste);
}

bool srcText::CancelColour() const { return m_colouring->cancelPending(); }

void srcText::setCancelColour(bool New_CancelColour)
{
    if (New_CancelColour)
        m_colouring->cancel();
}

bool srcText::isColouring() const { return m_colouring->isRunning(); }

} // namespace tessaro
