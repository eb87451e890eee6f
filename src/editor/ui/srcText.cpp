#include "editor/ui/srcText.h"

#include "editor/core/CaselessPattern.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/ModeWordLists.h"
#include "editor/core/PropertyBag.h"
#include "editor/core/PropertyColour.h"
#include "editor/core/ReadableColours.h"
#include "editor/core/RtfDocument.h"
#include "editor/ui/ScintillaText.h"
#include "editor/ui/SourceEditBox.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Paths.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "platform/core/Twips.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace tessaro {

srcText::srcText(QWidget *parent) : QWidget(parent)
{
    m_rtfMain = new SourceEditBox(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_rtfMain);
    setFocusProxy(m_rtfMain);
    m_text = std::make_unique<ScintillaText>(*m_rtfMain);

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

    m_colouring = std::make_unique<DocumentColourer>(*m_text, m_styles, m_tmrUpdate);
    connect(m_colouring.get(), &DocumentColourer::progressStart, this, &srcText::ProgressStart);
    connect(m_colouring.get(), &DocumentColourer::progressChange, this, &srcText::ProgressChange);
    connect(m_colouring.get(), &DocumentColourer::progressComplete, this, [this] {
        m_tempSelStart = m_tempSelEnd = 0;
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

    connect(m_rtfMain, &SourceEditBox::edited, this, &srcText::onEdited);
    connect(m_rtfMain, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        if (updated & SourceEditBox::SC_UPDATE_SELECTION)
            emitSelChangeIfMoved();
        if (updated & (SourceEditBox::SC_UPDATE_H_SCROLL | SourceEditBox::SC_UPDATE_V_SCROLL))
            emitScrollIfMoved();
    });
    connect(m_rtfMain->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &srcText::emitScrollIfMoved);
    connect(m_rtfMain->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &srcText::emitScrollIfMoved);

    defineMarks();
    InitProperties();
}

srcText::~srcText()
{
    // The colourer and the handlers below refer to rtfMain: take them down before
    // the child widgets go.
    m_colouring.reset();
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
    applyTextFont();
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

bool srcText::LoadFile(const QString &strFileName, int FileType)
{
    QByteArray bytes;
    try {
        bytes = textfile::readBytes(strFileName);
    } catch (const RuntimeError &error) {
        // The control reports its own errors, then lets the caller's command end.
        MsgBox(error.description() + QStringLiteral("\n\n") + strFileName, mb::Exclamation);
        throw;
    }
    // Rich text is read through the reader, text and colours; anything else, and
    // every file of type 1, is plain text.
    std::vector<RtfColourRun> runs;
    LineEnds lineEnds;
    if (FileType == 0 && bytes.startsWith("{\\rtf")) {
        RtfDocument rich = readRtf(textfile::fromBytes(bytes));
        lineEnds = scanLineEnds(rich.text);
        bytes = textfile::toBytes(withCrLfBreaks(rich.text));
        runs = std::move(rich.runs);
    } else {
        lineEnds = toCrLfBreaks(bytes);
    }
    setDocumentBytes(bytes, &lineEnds);
    bytes.clear();
    // A plain file brings no colours.
    if (!runs.empty())
        applyColourRuns(runs);
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

void srcText::setDocumentBytes(const QByteArray &bytes, const LineEnds *lineEnds)
{
    m_loading = true;
    m_rtfMain->setBytes(bytes);
    // A text given without breaks of its own (set by the program) saves with CR LF.
    m_usualLineEnd = lineEnds ? lineEnds->usual : LineEnd::CRLF;
    m_ownLineEnds = lineEnds && !lineEnds->uniform;
    if (m_ownLineEnds) {
        // Each line remembers its own break, so a file of mixed breaks saves back byte
        // for byte.
        int line = 0;
        for (LineEnd end : lineEnds->breaks)
            m_text->setLineState(line++, int(end));
    }
    // A new text is coloured by a full run (or not at all), not line by line.
    m_colouring->forgetChanges();
    m_loading = false;
    emitSelChangeIfMoved();
}

void srcText::SaveFile(const QString &strFileName, int FileType)
{
    Q_UNUSED(FileType); // always plain text: colours never reach a source file
    try {
        textfile::writeBytes(strFileName, fileBytes());
        m_saved = true;
        m_modified = false;
    } catch (const RuntimeError &) {
        // Saving ignores its errors; Saved tells whether the file was written.
        return;
    }
    Q_EMIT FileSaved(strFileName);
}

QByteArray srcText::fileBytes() const
{
    const QByteArrayView text = m_rtfMain->bytes();
    const QByteArray usual = lineEndText(m_usualLineEnd).toLatin1();
    // The box holds CR LF breaks: without lines of breaks of their own, every break is
    // written as the usual one.
    if (!m_ownLineEnds) {
        QByteArray out = text.toByteArray();
        return m_usualLineEnd == LineEnd::CRLF ? out : out.replace("\r\n", usual);
    }
    const int lines = m_rtfMain->lineCount();
    QByteArray out;
    out.reserve(text.size());
    for (int line = 0; line < lines; ++line) {
        const qsizetype start = m_rtfMain->lineStart(line);
        out.append(text.sliced(start, m_rtfMain->lineEnd(line) - start));
        if (line + 1 == lines)
            break;
        const int end = m_text->lineState(line) & linestate::LineEndMask;
        out.append(end == 0 ? usual : lineEndText(LineEnd(end)).toLatin1());
    }
    return out;
}

QString srcText::fileText() const
{
    return textfile::fromBytes(fileBytes());
}

void srcText::restoreText(const QString &text, LineEnd usual, const QString &strFileName)
{
    const LineEnds lineEnds = lineEndsWithUsual(text, usual);
    setDocumentBytes(textfile::toBytes(withCrLfBreaks(text)), &lineEnds);
    setMode(modeForFileName(strFileName));
    if (m_mode == mode::C)
        ColourDocument();
    m_fileName = strFileName;
    m_modified = true;
    m_saved = false;
}

QString srcText::FileTitle() const
{
    return paths::filePart(m_fileName);
}

// ---- Text and positions -----------------------------------------------------------------

// Every byte one character: the 8-bit text decoded as files are (Latin-1).
QString srcText::Text() const
{
    return QString::fromLatin1(m_rtfMain->bytes());
}

void srcText::setText(const QString &New_Text)
{
    const qsizetype removed = m_rtfMain->length();
    setDocumentBytes(textfile::toBytes(withCrLfBreaks(New_Text)), nullptr);
    // A text set by the program is a change like any other: told once, and coloured
    // by the typing path.
    noteEdit(0, removed, m_rtfMain->length());
}

qsizetype srcText::boxPosition(qsizetype position) const
{
    position = std::clamp<qsizetype>(position, 0, m_rtfMain->length());
    if (position > 0 && m_rtfMain->at(position) == '\n' && m_rtfMain->at(position - 1) == '\r')
        --position;
    return position;
}

void srcText::select(qsizetype anchor, qsizetype caret)
{
    m_rtfMain->select(anchor, caret);
    emitSelChangeIfMoved();
}

qsizetype srcText::SelStart() const
{
    return m_rtfMain->selectionStart();
}

void srcText::setSelStart(qsizetype New_SelStart)
{
    const qsizetype at = boxPosition(std::max<qsizetype>(0, New_SelStart));
    select(at, at);
}

qsizetype srcText::SelLength() const
{
    return m_rtfMain->selectionEnd() - m_rtfMain->selectionStart();
}

void srcText::setSelLength(qsizetype New_SelLength)
{
    const qsizetype start = SelStart();
    SetSelection(start, start + std::max<qsizetype>(0, New_SelLength));
}

QString srcText::SelText() const
{
    return textfile::fromBytes(
        m_rtfMain->bytes(m_rtfMain->selectionStart(), m_rtfMain->selectionEnd()));
}

void srcText::setSelText(const QString &New_SelText)
{
    m_rtfMain->replaceSelection(textfile::toBytes(withCrLfBreaks(New_SelText)));
    emitSelChangeIfMoved();
}

void srcText::SetSelection(qsizetype lStart, qsizetype lEnd)
{
    if (lStart == 0 && lEnd == -1) {
        select(0, m_rtfMain->length());
    } else if (lStart < 0) {
        const qsizetype caret = m_rtfMain->caret();
        select(caret, caret);
    } else {
        if (lEnd < 0)
            lEnd = m_rtfMain->length();
        select(boxPosition(lStart), boxPosition(lEnd));
    }
}

void srcText::SetTempSelection(qsizetype lStart, qsizetype lEnd)
{
    const qsizetype length = m_colouring->snapshot().size();
    if (lStart == 0 && lEnd == -1) {
        m_tempSelStart = 0;
        m_tempSelEnd = length;
    } else if (lStart < 0) {
        m_tempSelStart = m_tempSelEnd;
    } else {
        if (lEnd < 0)
            lEnd = length;
        m_tempSelStart = std::clamp<qsizetype>(lStart, 0, length);
        m_tempSelEnd = std::clamp<qsizetype>(lEnd, 0, length);
    }
}

qsizetype srcText::CharacterCount() const
{
    return m_rtfMain->length();
}

qsizetype srcText::TempCharacterCount() const
{
    return m_colouring->snapshot().size();
}

SourceEditBox *srcText::RTFBox() const
{
    return m_rtfMain;
}

SourceEditBox *srcText::hWnd() const
{
    return m_rtfMain;
}

int srcText::LineCount() const
{
    return m_rtfMain->lineCount();
}

int srcText::GetFirstLineVisible() const
{
    return m_rtfMain->firstVisibleLine();
}

int srcText::CurrentColumn() const
{
    const qsizetype caret = m_rtfMain->caret();
    return int(caret - m_rtfMain->lineStart(m_rtfMain->lineOf(caret)));
}

int srcText::CurrentLine() const
{
    return m_rtfMain->lineOf(m_rtfMain->caret());
}

QPoint srcText::GetPosFromChar(qsizetype lChar) const
{
    const qsizetype at = boxPosition(lChar);
    return QPoint(int(m_rtfMain->send(SourceEditBox::SCI_POINTXFROMPOSITION, 0, at)),
                  int(m_rtfMain->send(SourceEditBox::SCI_POINTYFROMPOSITION, 0, at)));
}

qsizetype srcText::CharFromPos(int xPixels, int yPixels) const
{
    return m_rtfMain->send(SourceEditBox::SCI_POSITIONFROMPOINT, ulong(std::max(0, xPixels)),
                           std::max(0, yPixels));
}

// ---- Pass-through properties ---------------------------------------------------------------

bool srcText::Locked() const
{
    return m_rtfMain->isReadOnly();
}

void srcText::setLocked(bool New_Locked)
{
    m_rtfMain->setReadOnly(New_Locked);
}

bool srcText::TabStop() const
{
    return m_rtfMain->focusPolicy() == Qt::StrongFocus;
}

void srcText::setTabStop(bool New_TabStop)
{
    m_rtfMain->setFocusPolicy(New_TabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

void srcText::setFontProperty(const QFont &New_Font)
{
    setFont(New_Font);
}

void srcText::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyTextFont();
    else if (event->type() == QEvent::PaletteChange)
        updateColours();
}

void srcText::setBorder(bool New_Border)
{
    m_border = New_Border;
    m_rtfMain->setFrameShape(New_Border ? QFrame::StyledPanel : QFrame::NoFrame);
}

void srcText::setBackColor(quint32 New_BackColor)
{
    m_backColour = New_BackColor;
    applyStyles();
}

void srcText::applyTextFont()
{
    applyStyles();
    // Tab stops every 720 twips (half an inch), as in a rich-edit box: the box counts
    // them in blanks of the font.
    const double twipsPerPixel = twips::perPixel(m_rtfMain->logicalDpiX());
    const int stop = twips::toPixels(720, twipsPerPixel);
    const long blank = m_rtfMain->SendScintilla(SourceEditBox::SCI_TEXTWIDTH,
                                                uintptr_t(SourceEditBox::STYLE_DEFAULT), " ");
    m_rtfMain->send(SourceEditBox::SCI_SETTABWIDTH,
                    ulong(std::max<long>(1, std::lround(double(stop) / std::max<long>(1, blank)))));
}

void srcText::applyStyles()
{
    const QPalette pal = palette();
    const QColor text = propertycolour::toColor(m_colourText, pal);
    const QColor back = documentBackground();
    const QFont shown = font();
    const QByteArray family = shown.family().toUtf8();
    const double points =
        shown.pointSizeF() > 0 ? shown.pointSizeF() : shown.pixelSize() * 72.0 / logicalDpiY();
    auto setStyle = [&](int style, const QColor &fore) {
        m_rtfMain->SendScintilla(SourceEditBox::SCI_STYLESETFORE, ulong(style), fore);
        m_rtfMain->SendScintilla(SourceEditBox::SCI_STYLESETBACK, ulong(style), back);
        m_rtfMain->SendScintilla(SourceEditBox::SCI_STYLESETFONT, uintptr_t(style),
                                 family.constData());
        m_rtfMain->send(SourceEditBox::SCI_STYLESETSIZEFRACTIONAL, ulong(style),
                        std::lround(points * 100));
        m_rtfMain->send(SourceEditBox::SCI_STYLESETWEIGHT, ulong(style), shown.weight());
        m_rtfMain->send(SourceEditBox::SCI_STYLESETITALIC, ulong(style), shown.italic());
        m_rtfMain->send(SourceEditBox::SCI_STYLESETUNDERLINE, ulong(style), shown.underline());
    };
    setStyle(SourceEditBox::STYLE_DEFAULT, text);
    setStyle(StyleTable::Plain, text);
    for (int style : m_styles.styles())
        setStyle(style, propertycolour::toColor(*m_styles.colourOf(style), pal));
    m_rtfMain->SendScintilla(SourceEditBox::SCI_SETCARETFORE, text);
    m_rtfMain->SendScintilla(SourceEditBox::SCI_SETSELFORE, 1,
                             pal.color(QPalette::HighlightedText));
    m_rtfMain->SendScintilla(SourceEditBox::SCI_SETSELBACK, 1, pal.color(QPalette::Highlight));
}

QColor srcText::documentBackground() const
{
    const QPalette pal = palette();
    if (m_backColour != propertycolour::WindowBackground)
        return propertycolour::toColor(m_backColour, pal);
    // The window background of a desktop whose scheme is dark or grey would leave the
    // document's colours unreadable: they keep 4.5:1 on what the document draws on.
    return readable::documentBackground(pal.color(QPalette::Base),
                                        {propertycolour::toColor(m_colourText, pal),
                                         propertycolour::toColor(m_colourComment, pal),
                                         propertycolour::toColor(m_colourKeyword, pal)});
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
}

ColourValue srcText::shownColour(quint32 value) const
{
    return propertycolour::fromColor(propertycolour::toColor(value, palette()));
}

void srcText::updateColours()
{
    m_colouring->setColours({shownColour(m_colourComment), shownColour(m_colourKeyword)});
    applyStyles();
}

void srcText::setIndentValue(int New_IndentValue)
{
    m_indentValue = std::max(0, New_IndentValue);
}

// ---- Clipboard and text operations ------------------------------------------------------------

void srcText::Copy()
{
    m_rtfMain->send(SourceEditBox::SCI_COPY);
}

void srcText::Paste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (data && data->hasText() && !m_rtfMain->isReadOnly())
        pasteText(data->text());
}

void srcText::pasteText(const QString &text)
{
    m_colouringFromPaste = true;
    m_rtfMain->replaceSelection(textfile::toBytes(withCrLfBreaks(text)));
    m_rtfMain->send(SourceEditBox::SCI_SCROLLCARET);
    flushTyping();
    m_colouringFromPaste = false;
    emitSelChangeIfMoved();
}

void srcText::cutSelection()
{
    if (m_rtfMain->isReadOnly() || !m_rtfMain->hasSelection())
        return;
    Copy();
    m_rtfMain->replaceSelection({});
    flushTyping();
    emitSelChangeIfMoved();
}

void srcText::SelectAll()
{
    select(0, m_rtfMain->length());
}

void srcText::Clear()
{
    if (m_rtfMain->isReadOnly() || !m_rtfMain->hasSelection())
        return;
    m_rtfMain->replaceSelection({});
    emitSelChangeIfMoved();
}

void srcText::Append(const QString &strText)
{
    const QByteArray bytes = textfile::toBytes(withCrLfBreaks(strText));
    if (!bytes.isEmpty())
        m_rtfMain->SendScintilla(SourceEditBox::SCI_APPENDTEXT, uintptr_t(bytes.size()),
                                 bytes.constData());
    m_rtfMain->settle();
}

bool srcText::CanPaste() const
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return !m_rtfMain->isReadOnly() && data && data->hasText();
}

bool srcText::CanCopy() const
{
    return m_rtfMain->hasSelection();
}

void srcText::Undo()
{
    m_colouring->undo();
    // The lines come back coloured at once, as after a key.
    flushTyping();
    m_rtfMain->send(SourceEditBox::SCI_SCROLLCARET);
    emitSelChangeIfMoved();
}

void srcText::Redo()
{
    m_colouring->redo();
    flushTyping();
    m_rtfMain->send(SourceEditBox::SCI_SCROLLCARET);
    emitSelChangeIfMoved();
}

int srcText::Find(const QString &bstrString, int vStart, int vEnd, int vOptions)
{
    enum { WholeWord = 2, MatchCase = 4, NoHighlight = 8 };
    if (bstrString.isEmpty())
        return -1;
    if (vOptions == 0) {
        // The usual search (no options, a text within one line, Latin-1) runs on the
        // box's own bytes with the fast matcher of Find in Files, without a copy of
        // the text: a 10 MiB document is searched in a few milliseconds.
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
    const QByteArrayView bytes = m_rtfMain->bytes();
    const qsizetype length = bytes.size();
    const qsizetype end = (vEnd < 0 || vEnd > length) ? length : vEnd;
    const qsizetype from = std::max(0, vStart);
    if (from >= end)
        return -1;
    const qsizetype at = pattern.indexIn(bytes.data() + from, end - from);
    return at < 0 ? -1 : from + at;
}

void srcText::UpTo(const QString &bstrCharacterSet, bool vForward, bool vNegate)
{
    const QString text = Text();
    qsizetype i = m_rtfMain->caret();
    if (vForward) {
        while (i < text.size() && bstrCharacterSet.contains(text.at(i)) == vNegate)
            ++i;
    } else {
        while (i > 0 && bstrCharacterSet.contains(text.at(i - 1)) == vNegate)
            --i;
    }
    i = boxPosition(i);
    select(i, i);
}

void srcText::Span(const QString &bstrCharacterSet, bool vForward, bool vNegate)
{
    const QString text = Text();
    const qsizetype from = m_rtfMain->caret();
    qsizetype i = from;
    if (vForward) {
        while (i < text.size() && bstrCharacterSet.contains(text.at(i)) != vNegate)
            ++i;
    } else {
        while (i > 0 && bstrCharacterSet.contains(text.at(i - 1)) != vNegate)
            --i;
    }
    select(from, boxPosition(i));
}

void srcText::SelPrint(QPagedPaintDevice *lHDC)
{
    if (!lHDC)
        return;
    const bool selection = m_rtfMain->hasSelection();
    qsizetype from = selection ? m_rtfMain->selectionStart() : 0;
    const qsizetype to = selection ? m_rtfMain->selectionEnd() : m_rtfMain->length();
    QPainter painter;
    if (!painter.begin(lHDC))
        return;
    // The box lays the text out page by page in its own styles, colours and all.
    const QRect page(QPoint(0, 0), QSize(lHDC->width(), lHDC->height()));
    m_rtfMain->send(SourceEditBox::SCI_SETPRINTCOLOURMODE, SourceEditBox::SC_PRINT_COLOURONWHITE);
    m_rtfMain->send(SourceEditBox::SCI_SETPRINTWRAPMODE, SourceEditBox::SC_WRAP_WORD);
    do {
        const long next = m_rtfMain->SendScintilla(SourceEditBox::SCI_FORMATRANGE, 1, &painter,
                                                   page, long(from), long(to));
        if (next <= from)
            break;
        from = next;
        if (from < to)
            lHDC->newPage();
    } while (from < to);
    painter.end();
}

// ---- Events ----------------------------------------------------------------------------------

void srcText::onEdited(qsizetype position, qsizetype removed, qsizetype added)
{
    // The colourer's own respellings and a text going in as a whole are no edits.
    if (m_colouring->isApplying() || m_loading)
        return;
    noteEdit(position, removed, added);
}

void srcText::noteEdit(qsizetype position, qsizetype removed, qsizetype added)
{
    m_colouring->noteChange(position, removed, added);
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
    if (m_loading)
        return;
    m_colouring->flush(m_rtfMain->caret());
}

void srcText::emitScrollIfMoved()
{
    const int h = int(m_rtfMain->send(SourceEditBox::SCI_GETXOFFSET));
    const int v = m_rtfMain->firstVisibleLine();
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
