// Colouring of the editor control: the mode's word lists and the colouring runs.

#include "editor/core/ColourScan.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/ModeWordLists.h"
#include "editor/ui/srcText.h"
#include "platform/core/AppInfo.h"

namespace tessaro {

void srcText::setMode(int New_Mode)
{
    m_mode = New_Mode;
    loadWordLists(New_Mode);
    ScanRequest request = m_colouring->request();
    request.mode = New_Mode;
    m_colouring->setRequest(request);
}

void srcText::loadWordLists(int mode)
{
    ScanRequest request = m_colouring->request();
    EditorWordLists lists{m_commentMarker, request.black, request.blue};
    lists.applyMode(mode, programFolder());
    m_commentMarker = lists.commentMarker;
    request.black = lists.black;
    request.blue = lists.blue;
    m_colouring->setRequest(request);
}

void srcText::setWordLists(const QString &black, const QString &blue)
{
    ScanRequest request = m_colouring->request();
    request.black = WordListIndex(black);
    request.blue = WordListIndex(blue);
    m_colouring->setRequest(request);
}

void srcText::ColourDocument()
{
    startRun(false, true);
}

void srcText::ColorizeWordsHTML()
{
    startRun(true, true);
}

void srcText::startRun(bool html, bool respell)
{
    ScanRequest request = m_colouring->request();
    request.ignoreVBHeader = m_ignoreVBHeader;
    m_colouring->setRequest(request);
    m_colouring->start(html, m_colouringFromKeys || m_colouringFromPaste, respell);
}

bool srcText::CancelColour() const
{
    return m_colouring->cancelPending();
}

void srcText::setCancelColour(bool New_CancelColour)
{
    if (New_CancelColour)
        m_colouring->cancel();
}

bool srcText::isColouring() const
{
    return m_colouring->isRunning() || m_colouring->hasWaitingLines();
}

} // namespace tessaro
