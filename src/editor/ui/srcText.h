#pragma once

#include "editor/core/LineEnds.h"

#include "editor/core/StyleTable.h"

#include <QFont>
#include <QPoint>
#include <QWidget>

#include <memory>
#include <vector>

class QPagedPaintDevice;
class QTimer;

namespace tessaro {

struct RtfColourRun;
struct RtfDocument;
class PropertyBag;
class SourceEditBox;
class ScintillaText;
class DocumentColourer;

// The source editor control: a Scintilla text box (rtfMain) with colour coding, file
// loading and saving, block editing and progress reporting. Every document window
// holds one, as its `code` control.
//
// The box holds the text as 8-bit bytes (each one character, Latin-1) with every line
// break written CR LF, so every public position (SelStart, SelLength, Find,
// SetSelection, CharacterCount, Text, UpTo, Span, ...) is a position in the box, and
// a line break counts two characters; Text gives the lines joined by CR LF.
//
// Members are invokable by name and the properties are Qt properties, so the main
// window reaches the control by member name (callByName / readByName of
// shell/ui/ActiveDocument.h) as it reaches Copy, Paste and Undo. There is
// deliberately no Cut and no PrintDoc member: calls of those names fail, and the
// main window ignores the failure.
class srcText : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(qsizetype SelStart READ SelStart WRITE setSelStart)
    Q_PROPERTY(qsizetype SelLength READ SelLength WRITE setSelLength)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText)
    Q_PROPERTY(QString TextRTF READ TextRTF WRITE setTextRTF)
    Q_PROPERTY(QString SelRTF READ SelRTF WRITE setSelRTF)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(bool TabStop READ TabStop WRITE setTabStop)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Border READ Border WRITE setBorder)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(int Mode READ Mode WRITE setMode)
    Q_PROPERTY(quint32 Colour_Comment READ Colour_Comment WRITE setColour_Comment)
    Q_PROPERTY(quint32 Colour_Keyword READ Colour_Keyword WRITE setColour_Keyword)
    Q_PROPERTY(quint32 Colour_Text READ Colour_Text WRITE setColour_Text)
    Q_PROPERTY(bool AutoIndent READ AutoIndent WRITE setAutoIndent)
    Q_PROPERTY(int IndentValue READ IndentValue WRITE setIndentValue)
    Q_PROPERTY(bool IndentWithBlanks READ IndentWithBlanks WRITE setIndentWithBlanks)
    Q_PROPERTY(bool IgnoreVBHeader READ IgnoreVBHeader WRITE setIgnoreVBHeader)
    Q_PROPERTY(bool CancelColour READ CancelColour WRITE setCancelColour)
    Q_PROPERTY(bool Saved READ Saved WRITE setSaved)
    Q_PROPERTY(bool Modified READ Modified WRITE setModified)
    Q_PROPERTY(bool CanPaste READ CanPaste)
    Q_PROPERTY(bool CanCopy READ CanCopy)
    Q_PROPERTY(QString FileName READ FileName WRITE setFileName)
    Q_PROPERTY(QString FileTitle READ FileTitle)
    Q_PROPERTY(int LineCount READ LineCount)
    Q_PROPERTY(int GetFirstLineVisible READ GetFirstLineVisible)
    Q_PROPERTY(int CurrentColumn READ CurrentColumn)
    Q_PROPERTY(int CurrentLine READ CurrentLine)
    Q_PROPERTY(QString Version READ Version)
    Q_PROPERTY(qsizetype CharacterCount READ CharacterCount)
    Q_PROPERTY(qsizetype TempCharacterCount READ TempCharacterCount)
public:
    // A control placed anew: the initial values of InitProperties (Mode 9).
    explicit srcText(QWidget *parent = nullptr);
    ~srcText() override;

    // ---- Design-time properties ------------------------------------------------
    // A new control's start: Mode 9, the window background, every other property at
    // its default.
    void InitProperties();
    // Reads the persisted properties (Mode 0 unless stored) and writes them back.
    void ReadProperties(PropertyBag &PropBag);
    void WriteProperties(PropertyBag &PropBag) const;

    // ---- Colouring ---------------------------------------------------------------
    // Colours the whole text with the scanner of the current Mode. The run works on
    // a snapshot of the text (rtfTemp's text) in time slices and returns to the event loop between
    // them; it raises ProgressStart, ProgressChange (once a second) and
    // ProgressComplete. A text changed during the run is coloured again from a new
    // snapshot.
    Q_INVOKABLE void ColourDocument();
    // The HTML colouring (Mode 1 only colours when asked for through this).
    Q_INVOKABLE void ColorizeWordsHTML();
    bool CancelColour() const;
    void setCancelColour(bool New_CancelColour);
    // True while a colouring run is under way or changed lines wait to be coloured.
    bool isColouring() const;

    // ---- Files ---------------------------------------------------------------------
    // Loads the file as 8-bit text (FileType 1; 0 reads a rich-text file through the
    // rich-text reader, text and colours, and any other file as plain text), keeping
    // its line breaks for SaveFile.
    // Names ending in ".c", ".h" or ".cpp" set Mode 6 and are coloured at once, any
    // other name sets Mode 9. Raises FileLoaded. A file that cannot be read is
    // reported in a message box and the run-time error is raised again to the
    // caller (which ends its command); nothing of the old text is lost then.
    Q_INVOKABLE bool LoadFile(const QString &strFileName, int FileType = 1);
    // Saves the text as plain 8-bit text, atomically; lines keep the breaks they were
    // loaded with, new lines get the file's usual break (CR LF for a new text).
    // Errors are ignored. Sets Saved and clears Modified when the file was written.
    Q_INVOKABLE void SaveFile(const QString &strFileName, int FileType = 1);
    // The text as SaveFile writes it: each line with its own break.
    QString fileText() const;
    // The kind of break that lines typed anew get.
    LineEnd usualLineEnd() const { return m_usualLineEnd; }
    // Takes a text kept from an earlier session as if the file had been loaded with
    // it (mode and colouring from the file name), but as a changed text: Modified is
    // set. New lines get the given break.
    void restoreText(const QString &text, LineEnd usual, const QString &strFileName);

    // ---- Clipboard and text operations -------------------------------------------------
    Q_INVOKABLE void Copy();
    // Pastes the clipboard's text through the control's own path, so the pasted
    // lines are coloured.
    Q_INVOKABLE void Paste();
    Q_INVOKABLE void SelectAll();
    // Deletes the selection.
    Q_INVOKABLE void Clear();
    // Appends text at the end of the text.
    Q_INVOKABLE void Append(const QString &strText);
    // Finds text between two positions (vEnd -1: the end of the text); selects and
    // returns the match's position, or -1. Options: 2 whole word, 4 match case,
    // 8 leave the selection alone. Without options letter case is ignored.
    Q_INVOKABLE int Find(const QString &bstrString, int vStart = 0, int vEnd = -1,
                         int vOptions = 0);
    // Moves the caret up to the first character that is (vNegate: is not) in the set.
    Q_INVOKABLE void UpTo(const QString &bstrCharacterSet, bool vForward = true,
                          bool vNegate = false);
    // Extends the selection from the caret across the characters that are (vNegate:
    // are not) in the set.
    Q_INVOKABLE void Span(const QString &bstrCharacterSet, bool vForward = true,
                          bool vNegate = false);
    // Prints the selection (the whole text when nothing is selected) to a printer or
    // any paged device.
    void SelPrint(QPagedPaintDevice *lHDC);
    Q_INVOKABLE void Undo();
    Q_INVOKABLE void Redo();

    // ---- Flags ---------------------------------------------------------------------
    bool Saved() const { return m_saved; }
    void setSaved(bool New_Saved) { m_saved = New_Saved; }
    bool Modified() const { return m_modified; }
    void setModified(bool New_Modified) { m_modified = New_Modified; }
    bool CanPaste() const;
    bool CanCopy() const;

    // ---- Pass-through properties ---------------------------------------------------
    bool Enabled() const { return isEnabled(); }
    bool Locked() const;
    void setLocked(bool New_Locked);
    QString Text() const;
    void setText(const QString &New_Text);
    bool TabStop() const;
    void setTabStop(bool New_TabStop);
    qsizetype SelStart() const;
    void setSelStart(qsizetype New_SelStart);
    qsizetype SelLength() const;
    void setSelLength(qsizetype New_SelLength);
    QString SelText() const;
    void setSelText(const QString &New_SelText);
    SourceEditBox *hWnd() const;
    // The text, or the selection, as rich text in the rich-edit box's shape with the
    // colours it carries; set, the rich text's text and colours replace it.
    QString TextRTF() const;
    void setTextRTF(const QString &New_TextRTF);
    QString SelRTF() const;
    void setSelRTF(const QString &New_SelRTF);
    // Gives the text the colours of a rich text made from TextRTF by a colourer (the
    // section-file line colourer), whose text may hold extra blanks or lack a few
    // characters: the text, its line breaks and its undo history stay as they are.
    Q_INVOKABLE void ColourFromRTF(const QString &strRTF);
    QFont Font() const { return font(); }
    void setFontProperty(const QFont &New_Font);
    bool Border() const { return m_border; }
    void setBorder(bool New_Border);
    bool IgnoreVBHeader() const { return m_ignoreVBHeader; }
    void setIgnoreVBHeader(bool New_IgnoreVBHeader) { m_ignoreVBHeader = New_IgnoreVBHeader; }
    quint32 BackColor() const { return m_backColour; }
    void setBackColor(quint32 New_BackColor);

    QString FileName() const { return m_fileName; }
    void setFileName(const QString &New_FileName) { m_fileName = New_FileName; }
    QString FileTitle() const;

    // The colouring mode (0 Visual Basic, 1 HTML, 2 Java, 3 JavaScript, 4 VBScript,
    // 5 Perl, 6 C, 7 typing only, 9 none); setting it loads the mode's word lists.
    int Mode() const { return m_mode; }
    void setMode(int New_Mode);
    // Replaces the word lists that Mode loaded (for a container with lists of its
    // own, and for tests); the lists are written as "*word*word*".
    void setWordLists(const QString &black, const QString &blue);
    // The single-line comment marker of the mode ("'", "#" or empty).
    QString CommentMarker() const { return m_commentMarker; }

    // Lines are the text's lines (a wrapped line counts once), numbered from 0.
    // CurrentColumn counts characters from the line's start (a tab counts one).
    int LineCount() const;
    int GetFirstLineVisible() const;
    int CurrentColumn() const;
    int CurrentLine() const;

    quint32 Colour_Comment() const { return m_colourComment; }
    void setColour_Comment(quint32 New_Colour_Comment);
    quint32 Colour_Keyword() const { return m_colourKeyword; }
    void setColour_Keyword(quint32 New_Colour_Keyword);
    quint32 Colour_Text() const { return m_colourText; }
    void setColour_Text(quint32 New_Colour_Text);

    QString Version() const { return QStringLiteral("0.50"); }

    // ---- Editing commands --------------------------------------------------------
    bool AutoIndent() const { return m_autoIndent; }
    void setAutoIndent(bool New_AutoIndent) { m_autoIndent = New_AutoIndent; }
    int IndentValue() const { return m_indentValue; }
    void setIndentValue(int New_IndentValue);
    // Indent and Outdent use IndentValue blanks when true, one tab when false (the
    // default, matching the tab-indented sources of the game).
    bool IndentWithBlanks() const { return m_indentWithBlanks; }
    void setIndentWithBlanks(bool New_IndentWithBlanks)
    {
        m_indentWithBlanks = New_IndentWithBlanks;
    }

    Q_INVOKABLE void SaveCursorPos();
    Q_INVOKABLE void RestoreCursorPos();
    Q_INVOKABLE void CommentBlock();
    Q_INVOKABLE void UncommentBlock();
    Q_INVOKABLE void Indent();
    Q_INVOKABLE void Outdent();
    // Inserts a block of code in place of the selection, or in front of it when the
    // selection is to stay;
    // with bIndent every line after the first gets the caret line's indent.
    Q_INVOKABLE void InsertBlock(const QString &strCode, bool bReplaceSelection = true,
                                 bool bIndent = true);
    Q_INVOKABLE QString GetIndent(const QString &strLine) const;
    // Sets the background colour of the selection (a colour value: red + 256 * green + 65536 *
    // blue).
    Q_INVOKABLE void FontBackColour(quint32 oColor);
    // 0 no wrapping, 1 wrap at the window's width at word boundaries, 2 wrap at the
    // window's width anywhere (long words are broken too).
    Q_INVOKABLE void SetViewMode(int eViewMode);
    int ViewMode() const { return m_viewMode; }
    // The top-left pixel of a character in rtfMain's text area, and the character
    // nearest to a pixel.
    Q_INVOKABLE QPoint GetPosFromChar(qsizetype lChar) const;
    Q_INVOKABLE qsizetype CharFromPos(int xPixels, int yPixels) const;
    // Marks the caret's line (a second Mark on it removes the mark); marks move with
    // the text and are shown with a line background.
    Q_INVOKABLE void Mark();
    Q_INVOKABLE void ClearMarks();
    // Line numbers of the marked lines, in text order.
    QList<int> MarkedLines() const;

    Q_INVOKABLE void SetSelection(qsizetype lStart, qsizetype lEnd);
    Q_INVOKABLE void SetTempSelection(qsizetype lStart, qsizetype lEnd);
    qsizetype CharacterCount() const;
    qsizetype TempCharacterCount() const;
    SourceEditBox *RTFBox() const;

Q_SIGNALS:
    // The events, in the order the control documents them.
    void Change();
    // A handler may set KeyCode or KeyAscii to 0 to swallow the key.
    void KeyDown(int &KeyCode, int Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int Shift);
    void SelChange();
    void HScroll();
    void VScroll();
    void ProgressStart();
    void ProgressChange(int PercentComplete);
    void ProgressComplete();
    // Raised by LoadFile with the file's name once the text is in.
    void FileLoaded(const QString &strFileName);
    // Raised by SaveFile with the file's name once the file was written.
    void FileSaved(const QString &strFileName);

protected:
    void changeEvent(QEvent *event) override;

private:
    friend class SourceEditBox;

    // Find without options for a Latin-1 text within one line: the match's public
    // position, -1, or NotSearched when the text needs the general search.
    static constexpr qsizetype NotSearched = -2;
    qsizetype findOnOneLine(const QString &text, int vStart, int vEnd) const;

    // Key handling of rtfMain; true when the key was handled here.
    bool handleKeyDown(QKeyEvent *event);
    void handleKeyUp(QKeyEvent *event);
    void pasteText(const QString &text);
    void cutSelection();
    void autoIndentNewLine();
    bool handleTab(bool backwards);
    bool handleBackspace();

    // The block rewrite: adds or removes a marker on every selected line as one
    // undo step, with the redraw off.
    void rewriteBlock(const QString &marker, bool add);
    QString commentMarkerForBlock() const;
    QString indentUnit() const;
    // The box's styles: the font, the background and the colours of every style.
    void applyTextFont();
    void applyStyles();
    // The colour the document is drawn on: BackColor, and for the window-background
    // system colour one on which every text colour of the document stays readable.
    QColor documentBackground() const;
    void onEdited(qsizetype position, qsizetype removed, qsizetype added);
    // The box position of a public one: within the text, and never between the CR
    // and the LF of a line break (a position on the LF is the end of its line).
    qsizetype boxPosition(qsizetype position) const;
    void emitSelChangeIfMoved();
    void emitScrollIfMoved();
    void afterKey();
    void flushTyping();
    void startRun(bool html, bool respell);
    void loadWordLists(int mode);
    void updateColours();
    // A colour property's value as the document shows it (system colours resolved).
    ColourValue shownColour(quint32 value) const;
    void defineMarks();
    // Gives the whole text the colours of the runs (positions of Text), in place of
    // what a run under way or the typing path would give.
    void applyColourRuns(const std::vector<RtfColourRun> &runs);
    // Gives [from, from + length) the colours of the runs (positions from `from`);
    // the colours outside it stay.
    void styleRuns(qsizetype from, qsizetype length, const std::vector<RtfColourRun> &runs);
    // The colour runs of [from, to), at positions from `from`.
    std::vector<RtfColourRun> colourRuns(qsizetype from, qsizetype to) const;
    // Replaces the text (undo history emptied, changes not told), each line's break
    // remembered from the file's breaks.
    void setDocumentBytes(const QByteArray &bytes, const LineEnds *lineEnds);
    // An edit of the text that the control tells of: Modified, Change, colouring.
    void noteEdit(qsizetype position, qsizetype removed, qsizetype added);
    void select(qsizetype anchor, qsizetype caret);
    QString lineText(int line) const;
    // The text as SaveFile writes it, as bytes.
    QByteArray fileBytes() const;

    SourceEditBox *m_rtfMain = nullptr;
    std::unique_ptr<ScintillaText> m_text;
    StyleTable m_styles;
    QTimer *m_tmrInsert = nullptr;
    QTimer *m_tmrUpdate = nullptr;
    std::unique_ptr<DocumentColourer> m_colouring;
    // The selection in the snapshot of the last colouring run (rtfTemp's selection).
    qsizetype m_tempSelStart = 0;
    qsizetype m_tempSelEnd = 0;
    // The colours FontBackColour has given backgrounds in, one box indicator each.
    std::vector<quint32> m_backColours;

    QString m_fileName;
    QString m_commentMarker;
    LineEnd m_usualLineEnd = LineEnd::CRLF;
    // Some lines keep a break of their own (a file of mixed breaks): saving asks each
    // line for its break.
    bool m_ownLineEnds = false;
    int m_mode = 9;
    quint32 m_colourComment = 0x8000;
    quint32 m_colourKeyword = 0x7F0000;
    quint32 m_colourText = 0;
    quint32 m_backColour = 0x80000005u;
    bool m_border = false;
    bool m_autoIndent = true;
    int m_indentValue = 4;
    bool m_indentWithBlanks = false;
    bool m_ignoreVBHeader = true;
    bool m_saved = false;
    bool m_modified = false;
    bool m_busy = false;
    bool m_loading = false;
    bool m_flushQueued = false;
    // The two flags of the typing path: colouring that starts from a key or from a
    // paste raises no progress events.
    bool m_colouringFromKeys = false;
    bool m_colouringFromPaste = false;
    int m_viewMode = 0;
    int m_lastHScroll = 0;
    int m_lastVScroll = 0;
    qsizetype m_lastSelStart = -1;
    qsizetype m_lastSelLength = -1;
    struct CursorMemory
    {
        qsizetype start = 0;
        qsizetype length = 0;
        int vscroll = 0;
        int hscroll = 0;
        bool valid = false;
    } m_savedCursor;
};

} // namespace tessaro
