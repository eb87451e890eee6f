#include "editor/ui/srcText.h"

#include "editor/core/CaselessPattern.h"
#include "editor/core/ColouredLines.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/EditorPositions.h"
#include "editor/core/ModeWordLists.h"
#include "editor/core/PropertyBag.h"
#include "editor/core/PropertyColour.h"
#include "editor/core/RtfDocument.h"
#include "editor/ui/DeferredDeleteHold.h"
#include "editor/ui/SourceEditBox.h"
#include "platform/core/AppInfo.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Paths.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPagedPaintDevice>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace tessaro {

qsizetype srcText::s_loadPieceSize = 64 * 1024;

using positions::toDocument;
using positions::toPublic;

srcText::srcText(QWidget *parent) : QWidget(parent)
{
    m_rtfMain = new SourceEditBox(this);
    m_rtfMain->setLineWrapMode(QPlainTextEdit::NoWrap);
    // A scroll bar that comes and goes changes the box's width, and every change of
    // width lays the whole text out again: on a large file that stalls the window.
    m_rtfMain->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_rtfMain);
    setFocusProxy(m_rtfMain);

    m_rtfTemp = new QTextDocument(this);
    m_rtfTemp->setObjectName(QStringLiteral("rtfTemp"));
    // A plain-text layout lays out only what is shown, and rtfTemp is never shown.
    m_rtfTemp->setDocumentLayout(new QPlainTextDocumentLayout(m_rtfTemp));
    m_tempCursor = QTextCursor(m_rtfTemp);

    // tmrInsert is part of the control but nothing enables it.
    m_tmrInsert = new QTimer(this);
    m_tmrInsert->setObjectName(QStringLiteral("tmrInsert"));
    m_tmrInsert->setInterval(50);
    connect(m_tmrInsert, &QTimer::timeout, this, [this] {
        m_tmrInsert->stop();
        if (m_mode != mode::Typing)
            flushTyping();
    });
    m_tmrUpdate = new QTimer(this);
    m_tmrUpdate->setObjectName(QStringLiteral("tmrUpdate"));
    m_tmrUpdate->setInterval(1000);

    m_colouring = std::make_unique<DocumentColourer>(m_rtfMain->document(), m_rtfTemp,
                                                     m_tmrUpdate);
    connect(m_colouring.get(), &DocumentColourer::progressStart, this, &srcText::ProgressStart);
    connect(m_colouring.get(), &DocumentColourer::progressChange, this,
            &srcText::ProgressChange);
    connect(m_colouring.get(), &DocumentColourer::progressComplete, this, [this] {
        m_tempCursor.setPosition(0);
        Q_EMIT ProgressComplete();
    });
    connect(m_colouring.get(), &DocumentColourer::largeChange, this, [this](bool respell) {
        // A change too large for the typing path is coloured by a run of its own,
        // which stays as quiet as the typing path.
        const bool fromKeys = m_colouringFromKeys;
        m_colouringFromKeys = !m_colouringFromPaste;
        startRun(false, respell);
        m_colouringFromKeys = fromKeys;
    });

    connect(m_rtfMain->document(), &QTextDocument::contentsChange, this,
            &srcText::onContentsChange);
    connect(m_rtfMain, &QPlainTextEdit::cursorPositionChanged, this,
            &srcText::emitSelChangeIfMoved);
    connect(m_rtfMain, &QPlainTextEdit::selectionChanged, this, &srcText::emitSelChangeIfMoved);
    // The box scrolls itself with the scroll bars' signals blocked: its update
    // requests tell of those scrolls.
    connect(m_rtfMain->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &srcText::emitScrollIfMoved);
    connect(m_rtfMain->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &srcText::emitScrollIfMoved);
    connect(m_rtfMain, &QPlainTextEdit::updateRequest, this, &srcText::emitScrollIfMoved);

    InitProperties();
}

srcText::~srcText()
{
    // The colourer and the handlers below refer to rtfMain's document: take them
    // down before the child widgets go.
    m_colouring.reset();
    m_rtfMain->document()->disconnect(this);
    m_rtfMain->disconnect(this);
    m_rtfMain->horizontalScrollBar()->disconnect(this);
    m_rtfMain->verticalScrollBar()->disconnect(this);
}

// ---- Design-time properties ------------------------------------------------------------

static QFont ambientFont(const QWidget *control)
{
    return control->parentWidget() ? control->parentWidget()->font() : QApplication::font();
}

static qint16 toInt16(const QVariant &value)
{
    bool ok = false;
    const qlonglong n = value.toLongLong(&ok);
    if (!ok && !value.canConvert<qlonglong>())
        raise(RuntimeError::TypeMismatch);
    if (n < -32768 || n > 32767)
        raise(RuntimeError::Overflow);
    return qint16(n);
}

void srcText::InitProperties()
{
    setTabStop(false);
    setLocked(false);
    setEnabled(true);
    setFontProperty(ambientFont(this));
    m_colourComment = 0x8000;
    m_colourKeyword = 0x7F0000;
    m_colourText = 0;
    setBorder(false);
    m_autoIndent = true;
    m_indentValue = 4;
    m_ignoreVBHeader = true;
    m_backColour = propertycolour::WindowBackground;
    m_saved = false;
    m_modified = false;
    // A control placed anew loads no word list: it colours nothing until Mode is set.
    setMode(mode::None);
    updateColours();
    applyBackground();
}

void srcText::ReadProperties(PropertyBag &PropBag)
{
    setText(PropBag.ReadProperty(QStringLiteral("Text"), QString()).toString());
    setTabStop(PropBag.ReadProperty(QStringLiteral("TabStop"), false).toBool());
    setLocked(toInt16(PropBag.ReadProperty(QStringLiteral("Locked"), 0)) != 0);
    setEnabled(PropBag.ReadProperty(QStringLiteral("Enabled"), true).toBool());
    setFontProperty(PropBag.ReadProperty(QStringLiteral("Font"), ambientFont(this)).value<QFont>());
    setMode(toInt16(PropBag.ReadProperty(QStringLiteral("Mode"), 0)));
    setColour_Comment(PropBag.ReadProperty(QStringLiteral("Colour_Comment"), 32768u).toUInt());
    setColour_Keyword(PropBag.ReadProperty(QStringLiteral("Colour_Keyword"), 0x7F0000u).toUInt());
    setColour_Text(PropBag.ReadProperty(QStringLiteral("Colour_Text"), 0u).toUInt());
    setBorder(PropBag.ReadProperty(QStringLiteral("Border"), false).toBool());
    setAutoIndent(PropBag.ReadProperty(QStringLiteral("AutoIndent"), true).toBool());
    setIndentValue(toInt16(PropBag.ReadProperty(QStringLiteral("Indent"), 4)));
    setIgnoreVBHeader(PropBag.ReadProperty(QStringLiteral("IgnoreVBHeader"), true).toBool());
}

void srcText::WriteProperties(PropertyBag &PropBag) const
{
    PropBag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    PropBag.WriteProperty(QStringLiteral("Locked"), qint16(Locked() ? -1 : 0), qint16(0));
    PropBag.WriteProperty(QStringLiteral("Text"), Text(), QString());
    PropBag.WriteProperty(QStringLiteral("TabStop"), TabStop(), false);
    PropBag.WriteProperty(QStringLiteral("Font"), Font(), ambientFont(this));
    PropBag.WriteProperty(QStringLiteral("Mode"), qint16(m_mode), qint16(0));
    PropBag.WriteProperty(QStringLiteral("Colour_Comment"), m_colourComment, 32768u);
    PropBag.WriteProperty(QStringLiteral("Colour_Keyword"), m_colourKeyword, 0x7F0000u);
    PropBag.WriteProperty(QStringLiteral("Colour_Text"), m_colourText, 0u);
    PropBag.WriteProperty(QStringLiteral("Border"), m_border, false);
    PropBag.WriteProperty(QStringLiteral("AutoIndent"), m_autoIndent, true);
    PropBag.WriteProperty(QStringLiteral("Indent"), qint16(m_indentValue), qint16(4));
    PropBag.WriteProperty(QStringLiteral("IgnoreVBHeader"), m_ignoreVBHeader, true);
}

// ---- Files -------------------------------------------------------------------------------

RtfDocument srcText::readFile(const QString &strFileName, int FileType)
{
    QString text = textfile::read(strFileName);
    // Rich text is read through the reader, text and colours; anything else, and
    // every file of type 1, is plain text.
    if (FileType == 0 && isRichText(text))
        return readRtf(text);
    return {std::move(text), {}};
}

bool srcText::LoadFile(const QString &strFileName, int FileType)
{
    RtfDocument file;
    try {
        file = readFile(strFileName, FileType);
    } catch (const RuntimeError &error) {
        // The control reports its own errors, then lets the caller's command end.
        MsgBox(error.description() + QStringLiteral("\n\n") + strFileName, mb::Exclamation);
        throw;
    }
    const LineEnds lineEnds = scanLineEnds(file.text);
    QPointer<srcText> alive(this);
    if (!setDocumentText(file.text, &lineEnds, true)) {
        // The control went away, or another text took its place, while this one was
        // going in: the later text stays and this load ends here.
        return alive != nullptr;
    }
    // A plain file brings no colours, and its new lines have none to clear.
    if (!file.runs.empty())
        applyColourRuns(file.runs);
    else if (m_colouring->isRunning())
        m_colouring->cancel();
    setMode(modeForFileName(strFileName));
    if (m_mode == mode::C)
        ColourDocument();
    m_fileName = strFileName;
    m_modified = false;
    m_saved = false;
    Q_EMIT FileLoaded(strFileName);
    return true;
}

bool srcText::setDocumentText(const QString &text, const LineEnds *lineEnds, bool servingEvents)
{
    const quint64 generation = ++m_textGeneration;
    m_loading = true;
    // Text without a colour of its own shows in Colour_Text (the box's text colour).
    m_rtfMain->setCurrentCharFormat(QTextCharFormat());
    if (servingEvents && text.size() > s_loadPieceSize) {
        if (!putTextInPieces(text, generation))
            return false;
    } else {
        m_rtfMain->setPlainText(text);
    }
    QTextDocument *doc = m_rtfMain->document();
    if (lineEnds) {
        m_usualLineEnd = lineEnds->usual;
        if (!lineEnds->uniform) {
            // Each line remembers its own break, so a file of mixed breaks saves back
            // byte for byte.
            QTextBlock block = doc->begin();
            for (LineEnd end : lineEnds->breaks) {
                ColouredLines::setLineEnd(block, int(end));
                block = block.next();
            }
        }
    }
    // A new text is coloured by a full run (or not at all), not line by line.
    m_colouring->forgetChanges();
    m_colouring->forgetUndoSteps();
    m_loading = false;
    return true;
}

// Where a piece that starts at `from` ends: at the first line break from `from + size`
// on (a CR LF pair stays whole), or at the end of the text.
static qsizetype pieceEnd(const QString &text, qsizetype from, qsizetype size)
{
    if (text.size() - from <= size)
        return text.size();
    for (qsizetype i = from + size; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\n')
            return i + 1;
        if (c == u'\r')
            return i + 1 < text.size() && text.at(i + 1) == u'\n' ? i + 2 : i + 1;
    }
    return text.size();
}

bool srcText::putTextInPieces(const QString &text, quint64 generation)
{
    QPointer<srcText> alive(this);
    // A window closed while its text goes in goes once the text is in: the caller
    // still works on it when this returns.
    DeferredDeleteHold hold(this);
    QTextDocument *doc = m_rtfMain->document();
    // The first piece resets the box as a whole new text does (caret, scrolling,
    // history); the others are added at the end without undo steps.
    qsizetype end = pieceEnd(text, 0, s_loadPieceSize);
    m_rtfMain->setPlainText(text.left(end));
    while (end < text.size()) {
        // Paint and timers go on; the user's keys and clicks wait in the queue.
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!alive)
            return false;
        if (generation != m_textGeneration) {
            // Whatever replaced the text has ended by now.
            m_loading = false;
            return false;
        }
        const qsizetype from = end;
        end = pieceEnd(text, from, s_loadPieceSize);
        QTextCursor cursor(doc);
        cursor.movePosition(QTextCursor::End);
        doc->setUndoRedoEnabled(false);
        cursor.insertText(text.mid(from, end - from));
        doc->setUndoRedoEnabled(true);
    }
    // A text just set is unchanged, as after one setPlainText.
    doc->setModified(false);
    return true;
}

void srcText::setLoadPieceSize(qsizetype chars) { s_loadPieceSize = std::max<qsizetype>(1, chars); }

void srcText::SaveFile(const QString &strFileName, int FileType)
{
    Q_UNUSED(FileType); // always plain text: colours never reach a source file
    try {
        textfile::write(strFileName, fileText());
        m_saved = true;
        m_modified = false;
    } catch (const RuntimeError &) {
        // Saving ignores its errors; Saved tells whether the file was written.
        return;
    }
    Q_EMIT FileSaved(strFileName);
}

QString srcText::fileText() const
{
    const QTextDocument *doc = m_rtfMain->document();
    QString text;
    text.reserve(doc->characterCount() + doc->blockCount());
    const QString usual = lineEndText(m_usualLineEnd);
    for (QTextBlock block = doc->begin(); block.isValid(); block = block.next()) {
        if (block != doc->begin()) {
            const int end = ColouredLines::lineEndBits(block.previous());
            text += end == 0 ? usual : lineEndText(LineEnd(end));
        }
        text += block.text();
    }
    return text;
}

void srcText::restoreText(const QString &text, LineEnd usual, const QString &strFileName)
{
    const LineEnds lineEnds = lineEndsWithUsual(text, usual);
    setDocumentText(text, &lineEnds);
    setMode(modeForFileName(strFileName));
    if (m_mode == mode::C)
        ColourDocument();
    m_fileName = strFileName;
    m_modified = true;
    m_saved = false;
}

QString srcText::FileTitle() const { return paths::filePart(m_fileName); }

// ---- Text and positions -----------------------------------------------------------------

QString srcText::Text() const { return positions::publicText(*m_rtfMain->document()); }

void srcText::setText(const QString &New_Text)
{
    ++m_textGeneration;
    m_usualLineEnd = LineEnd::CRLF;
    m_rtfMain->setCurrentCharFormat(QTextCharFormat());
    m_rtfMain->setPlainText(New_Text);
    m_colouring->forgetUndoSteps();
}

qsizetype srcText::SelStart() const
{
    return toPublic(*m_rtfMain->document(), m_rtfMain->textCursor().selectionStart());
}

void srcText::setSelStart(qsizetype New_SelStart)
{
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.setPosition(toDocument(*m_rtfMain->document(), std::max<qsizetype>(0, New_SelStart)));
    m_rtfMain->setTextCursor(cursor);
}

qsizetype srcText::SelLength() const
{
    const QTextCursor cursor = m_rtfMain->textCursor();
    const QTextDocument &doc = *m_rtfMain->document();
    return toPublic(doc, cursor.selectionEnd()) - toPublic(doc, cursor.selectionStart());
}

void srcText::setSelLength(qsizetype New_SelLength)
{
    const qsizetype start = SelStart();
    SetSelection(start, start + std::max<qsizetype>(0, New_SelLength));
}

QString srcText::SelText() const
{
    QString text = m_rtfMain->textCursor().selectedText();
    return text.replace(QChar::ParagraphSeparator, QLatin1String("\r\n"));
}

void srcText::setSelText(const QString &New_SelText)
{
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.insertText(New_SelText);
    m_rtfMain->setTextCursor(cursor);
}

void srcText::SetSelection(qsizetype lStart, qsizetype lEnd)
{
    const QTextDocument &doc = *m_rtfMain->document();
    QTextCursor cursor = m_rtfMain->textCursor();
    if (lStart == 0 && lEnd == -1) {
        cursor.select(QTextCursor::Document);
    } else if (lStart < 0) {
        cursor.clearSelection();
    } else {
        if (lEnd < 0)
            lEnd = positions::publicLength(doc);
        cursor.setPosition(toDocument(doc, lStart));
        cursor.setPosition(toDocument(doc, lEnd), QTextCursor::KeepAnchor);
    }
    m_rtfMain->setTextCursor(cursor);
}

void srcText::SetTempSelection(qsizetype lStart, qsizetype lEnd)
{
    const QTextDocument &doc = *m_colouring->snapshotDocument();
    if (lStart == 0 && lEnd == -1) {
        m_tempCursor.select(QTextCursor::Document);
    } else if (lStart < 0) {
        m_tempCursor.clearSelection();
    } else {
        if (lEnd < 0)
            lEnd = positions::publicLength(doc);
        m_tempCursor.setPosition(toDocument(doc, lStart));
        m_tempCursor.setPosition(toDocument(doc, lEnd), QTextCursor::KeepAnchor);
    }
}

qsizetype srcText::CharacterCount() const { return positions::publicLength(*m_rtfMain->document()); }

qsizetype srcText::TempCharacterCount() const
{
    return positions::publicLength(*m_colouring->snapshotDocument());
}

QPlainTextEdit *srcText::RTFBox() const { return m_rtfMain; }

QPlainTextEdit *srcText::hWnd() const { return m_rtfMain; }

QTextDocument *srcText::TempDocument() const { return m_colouring->snapshotDocument(); }

int srcText::LineCount() const { return m_rtfMain->document()->blockCount(); }

int srcText::GetFirstLineVisible() const { return m_rtfMain->firstVisibleLine(); }

int srcText::CurrentColumn() const { return m_rtfMain->textCursor().positionInBlock(); }

int srcText::CurrentLine() const { return m_rtfMain->textCursor().blockNumber(); }

QPoint srcText::GetPosFromChar(qsizetype lChar) const
{
    QTextCursor cursor(m_rtfMain->document());
    cursor.setPosition(toDocument(*m_rtfMain->document(), lChar));
    return m_rtfMain->cursorRect(cursor).topLeft();
}

qsizetype srcText::CharFromPos(int xPixels, int yPixels) const
{
    const QTextCursor cursor = m_rtfMain->cursorForPosition(QPoint(xPixels, yPixels));
    return toPublic(*m_rtfMain->document(), cursor.position());
}

// ---- Pass-through properties ---------------------------------------------------------------

bool srcText::Locked() const { return m_rtfMain->isReadOnly(); }

void srcText::setLocked(bool New_Locked) { m_rtfMain->setReadOnly(New_Locked); }

bool srcText::TabStop() const { return m_rtfMain->focusPolicy() == Qt::StrongFocus; }

void srcText::setTabStop(bool New_TabStop)
{
    m_rtfMain->setFocusPolicy(New_TabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

void srcText::setFontProperty(const QFont &New_Font)
{
    setFont(New_Font);
    m_rtfTemp->setDefaultFont(New_Font);
}

void srcText::setBorder(bool New_Border)
{
    m_border = New_Border;
    m_rtfMain->setFrameShape(New_Border ? QFrame::StyledPanel : QFrame::NoFrame);
}

void srcText::setBackColor(quint32 New_BackColor)
{
    m_backColour = New_BackColor;
    applyBackground();
}

void srcText::applyBackground()
{
    QPalette pal = m_rtfMain->palette();
    pal.setColor(QPalette::Base, propertycolour::toColor(m_backColour, palette()));
    pal.setColor(QPalette::Text, propertycolour::toColor(m_colourText, palette()));
    m_rtfMain->setPalette(pal);
}

void srcText::setColour_Comment(quint32 New_Colour_Comment)
{
    m_colourComment = New_Colour_Comment;
    updateColours();
}

void srcText::setColour_Keyword(quint32 New_Colour_Keyword)
{
    m_colourKeyword = New_Colour_Keyword;
    updateColours();
}

void srcText::setColour_Text(quint32 New_Colour_Text)
{
    m_colourText = New_Colour_Text;
    updateColours();
    applyBackground();
}

void srcText::updateColours()
{
    const QPalette pal = palette();
    m_colouring->setColours({propertycolour::toColor(m_colourComment, pal),
                             propertycolour::toColor(m_colourKeyword, pal),
                             propertycolour::toColor(m_colourText, pal)});
}

void srcText::setIndentValue(int New_IndentValue)
{
    m_indentValue = std::max(0, New_IndentValue);
}

// ---- Clipboard and text operations ------------------------------------------------------------

void srcText::Copy() { m_rtfMain->copy(); }

void srcText::Paste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (data && data->hasText() && !m_rtfMain->isReadOnly())
        pasteText(data->text());
}

void srcText::pasteText(const QString &text)
{
    m_colouringFromPaste = true;
    m_rtfMain->insertPlainText(text);
    m_rtfMain->ensureCursorVisible();
    flushTyping();
    m_colouringFromPaste = false;
}

void srcText::cutSelection()
{
    if (m_rtfMain->isReadOnly() || !m_rtfMain->textCursor().hasSelection())
        return;
    m_rtfMain->copy();
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.removeSelectedText();
    m_rtfMain->setTextCursor(cursor);
    flushTyping();
}

void srcText::SelectAll() { m_rtfMain->selectAll(); }

void srcText::Clear()
{
    QTextCursor cursor = m_rtfMain->textCursor();
    if (m_rtfMain->isReadOnly() || !cursor.hasSelection())
        return;
    cursor.removeSelectedText();
    m_rtfMain->setTextCursor(cursor);
}

void srcText::Append(const QString &strText)
{
    QTextCursor cursor(m_rtfMain->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(strText);
}

bool srcText::CanPaste() const { return m_rtfMain->canPaste(); }

bool srcText::CanCopy() const { return m_rtfMain->textCursor().hasSelection(); }

void srcText::Undo()
{
    m_colouring->undo();
    // The lines come back coloured at once, as after a key.
    flushTyping();
    m_rtfMain->ensureCursorVisible();
}

void srcText::Redo()
{
    m_colouring->redo();
    flushTyping();
    m_rtfMain->ensureCursorVisible();
}

int srcText::Find(const QString &bstrString, int vStart, int vEnd, int vOptions)
{
    enum { WholeWord = 2, MatchCase = 4, NoHighlight = 8 };
    if (bstrString.isEmpty())
        return -1;
    if (vOptions == 0) {
        // The usual search (no options, a text within one line, Latin-1) runs on the
        // document's own text with the fast matcher of Find in Files, without building
        // the joined text: a 10 MiB document is searched in a few milliseconds.
        const qsizetype found = findOnOneLine(bstrString, vStart, vEnd);
        if (found != NotSearched) {
            if (found >= 0)
                SetSelection(found, found + bstrString.size());
            return int(found);
        }
    }
    const QString text = Text();
    const qsizetype length = text.size();
    const qsizetype end = (vEnd < 0 || vEnd > length) ? length : vEnd;
    qsizetype from = std::max(0, vStart);
    const Qt::CaseSensitivity cs = (vOptions & MatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    auto isWordChar = [&](qsizetype i) {
        if (i < 0 || i >= length)
            return false;
        const QChar c = text.at(i);
        return c.isLetterOrNumber() || c == u'_';
    };
    while (from < end) {
        const qsizetype found = text.indexOf(bstrString, from, cs);
        if (found < 0 || found + bstrString.size() > end)
            return -1;
        if (!(vOptions & WholeWord) ||
            (!isWordChar(found - 1) && !isWordChar(found + bstrString.size()))) {
            if (!(vOptions & NoHighlight))
                SetSelection(found, found + bstrString.size());
            return int(found);
        }
        from = found + 1;
    }
    return -1;
}

qsizetype srcText::findOnOneLine(const QString &text, int vStart, int vEnd) const
{
    const CaselessPattern pattern(text);
    if (!pattern.isLatin1() || text.contains(u'\r') || text.contains(u'\n'))
        return NotSearched;
    const QTextDocument &doc = *m_rtfMain->document();
    const qsizetype length = positions::publicLength(doc);
    const qsizetype end = (vEnd < 0 || vEnd > length) ? length : vEnd;
    const qsizetype from = std::max(0, vStart);
    if (from >= end)
        return -1;
    // Line breaks are single separators in the document's text; no match can hold
    // one, so a match keeps its length in public positions.
    const QString raw = doc.toRawText();
    qsizetype docFrom = toDocument(doc, from);
    const qsizetype docEnd = std::min<qsizetype>(toDocument(doc, end), raw.size());
    for (;;) {
        const qsizetype at = pattern.indexIn(raw, docFrom, docEnd);
        if (at < 0)
            return -1;
        const qsizetype found = toPublic(doc, int(at));
        if (found + text.size() > end)
            return -1;
        if (found >= from)
            return found;
        docFrom = at + 1;
    }
}

void srcText::UpTo(const QString &bstrCharacterSet, bool vForward, bool vNegate)
{
    const QString text = Text();
    const QTextDocument &doc = *m_rtfMain->document();
    qsizetype i = toPublic(doc, m_rtfMain->textCursor().position());
    if (vForward) {
        while (i < text.size() && bstrCharacterSet.contains(text.at(i)) == vNegate)
            ++i;
    } else {
        while (i > 0 && bstrCharacterSet.contains(text.at(i - 1)) == vNegate)
            --i;
    }
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.setPosition(toDocument(doc, i));
    m_rtfMain->setTextCursor(cursor);
}

void srcText::Span(const QString &bstrCharacterSet, bool vForward, bool vNegate)
{
    const QString text = Text();
    const QTextDocument &doc = *m_rtfMain->document();
    const qsizetype from = toPublic(doc, m_rtfMain->textCursor().position());
    qsizetype i = from;
    if (vForward) {
        while (i < text.size() && bstrCharacterSet.contains(text.at(i)) != vNegate)
            ++i;
    } else {
        while (i > 0 && bstrCharacterSet.contains(text.at(i - 1)) != vNegate)
            --i;
    }
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.setPosition(toDocument(doc, from));
    cursor.setPosition(toDocument(doc, i), QTextCursor::KeepAnchor);
    m_rtfMain->setTextCursor(cursor);
}

void srcText::SelPrint(QPagedPaintDevice *lHDC)
{
    if (!lHDC)
        return;
    const QTextCursor cursor = m_rtfMain->textCursor();
    const QTextDocumentFragment fragment = cursor.hasSelection()
                                               ? cursor.selection()
                                               : QTextDocumentFragment(m_rtfMain->document());
    QTextDocument printed;
    printed.setDefaultFont(font());
    QTextCursor(&printed).insertFragment(fragment);
    // The colours are the lines' own, not the text's: the printed copy gets them as
    // formats of its text.
    printColours(printed, cursor.hasSelection() ? cursor.selectionStart() : 0,
                 cursor.hasSelection() ? cursor.selectionEnd()
                                       : m_rtfMain->document()->characterCount() - 1);
    printed.print(lHDC);
}

// ---- Events ----------------------------------------------------------------------------------

void srcText::onContentsChange(int from, int removed, int added)
{
    if (m_colouring->isApplying() || (removed == 0 && added == 0))
        return;
    m_colouring->noteChange(from, removed, added);
    if (m_loading)
        return;
    m_modified = true;
    Q_EMIT Change();
    if (!m_busy && !m_flushQueued) {
        // Changes that come from no key of the control (undo, a drop, a text set by
        // the program) are coloured as soon as the event loop is back.
        m_flushQueued = true;
        QTimer::singleShot(0, this, [this] { flushTyping(); });
    }
}

void srcText::flushTyping()
{
    m_flushQueued = false;
    // Lines of a text still going in are coloured by the run that follows the load.
    if (m_loading)
        return;
    m_colouring->flush(m_rtfMain->textCursor().position());
}

void srcText::emitScrollIfMoved()
{
    const int h = m_rtfMain->horizontalScrollBar()->value();
    const int v = m_rtfMain->verticalScrollBar()->value();
    if (h != m_lastHScroll) {
        m_lastHScroll = h;
        Q_EMIT HScroll();
    }
    if (v != m_lastVScroll) {
        m_lastVScroll = v;
        Q_EMIT VScroll();
    }
}

void srcText::emitSelChangeIfMoved()
{
    const qsizetype start = SelStart();
    const qsizetype length = SelLength();
    if (start == m_lastSelStart && length == m_lastSelLength)
        return;
    m_lastSelStart = start;
    m_lastSelLength = length;
    Q_EMIT SelChange();
}

} // namespace tessaro
