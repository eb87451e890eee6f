#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace tessaro {

// What a scanner found: a stretch of the scanned text and the colour it gets.
enum class StretchKind {
    Comment, // Colour_Comment
    Keyword, // a word of the blue list: Colour_Keyword
    Text,    // a word of the black list: Colour_Text
};

struct ColourStretch
{
    // 0-based position and length in the text given to the scanner (the editor's
    // text, where a line break is CR LF and counts two), not counting the blank the
    // scan puts in front of it.
    qsizetype start = 0;
    qsizetype length = 0;
    StretchKind kind = StretchKind::Comment;
    // For Keyword and Text: the list's spelling that replaces the word (as long as
    // the word). Empty for comments.
    QString spelling;

    bool operator==(const ColourStretch &o) const
    {
        return start == o.start && length == o.length && kind == o.kind && spelling == o.spelling;
    }
};

// A word list ("*if*else*while*") with an index built once, so that looking a word up
// gives the same answer as searching the list's text for "*" + word + "*" without
// regard to case, in a fraction of the time.
class WordListIndex
{
public:
    WordListIndex();
    explicit WordListIndex(const QString &listText);
    ~WordListIndex();
    WordListIndex(const WordListIndex &);
    WordListIndex &operator=(const WordListIndex &);

    const QString &text() const;
    // True when "*" + word + "*" occurs in the list (case-insensitive); spelling then
    // receives the list's characters from just after the opening "*", as many as the
    // word has.
    bool find(const QString &word, QString *spelling = nullptr) const;
    bool find(QStringView word, QString *spelling = nullptr) const;
    // The same look-up, giving the position in text() of the spelling's first
    // character, or -1 when the word is not in the list.
    qsizetype spellingPosition(QStringView word) const;
    bool isEmpty() const;

private:
    struct Data;
    std::shared_ptr<const Data> d;
};

// The editor's colouring modes.
namespace mode {
enum : int { VisualBasic = 0, Html = 1, Java = 2, JavaScript = 3, VBScript = 4, Perl = 5, C = 6,
             Typing = 7, None = 9 };
}

struct ScanRequest
{
    QString text; // the editor's text (without the scan's leading blank)
    int mode = mode::None;
    WordListIndex black;
    WordListIndex blue;
    bool ignoreVBHeader = true;
    bool html = false; // the HTML colouring runs only when asked for
};

// One colouring run over a text, done in time slices so the caller can serve its
// event loop between them. The scanner is chosen by the mode: 0 and 4 Visual Basic,
// 2, 3 and 6 C, 5 Perl, 1 HTML (only when asked for); any other mode colours nothing.
class ColourScan
{
public:
    explicit ColourScan(ScanRequest request);
    ~ColourScan();

    // Scans until the text ends, the scan is cancelled, or the time budget is spent.
    // Returns true when the scan has ended (finished or cancelled).
    bool runSlice(std::chrono::microseconds budget);
    void cancel();
    bool ended() const;
    bool cancelled() const;

    // The 1-based scan position and the scan length (the text's length + 1 for the
    // leading blank), and the progress percentage made of them.
    qsizetype position() const;
    qsizetype length() const;
    int percentComplete() const;

    // The stretches found so far, in scan order.
    const std::vector<ColourStretch> &stretches() const;
    // Hands the stretches over once the scan has ended (leaves none behind).
    std::vector<ColourStretch> takeStretches();

private:
    struct State;
    std::unique_ptr<State> s;
};

// Runs a whole scan in slices of the given length, calling progress with the
// percentage after each slice and stopping when *cancel becomes true (checked at
// every slice). Returns the stretches in scan order.
std::vector<ColourStretch> scanText(const ScanRequest &request,
                                    const std::function<void(int percent)> &progress = {},
                                    const bool *cancel = nullptr,
                                    std::chrono::microseconds slice = std::chrono::milliseconds(16));

} // namespace tessaro
