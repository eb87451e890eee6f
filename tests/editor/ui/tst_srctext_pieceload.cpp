// A large text loaded piece by piece: the window is served between the pieces, and the
// control ends exactly as when the text goes in with one call; a window closed, or
// another text set, while the text goes in neither crashes nor mixes the texts.

#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using namespace tessaro;

namespace {

// Sets the load piece size for one test and puts it back after.
class PieceSize
{
public:
    explicit PieceSize(qsizetype chars) : m_before(srcText::loadPieceSize())
    {
        srcText::setLoadPieceSize(chars);
    }
    ~PieceSize() { srcText::setLoadPieceSize(m_before); }

private:
    qsizetype m_before;
};

// Everything a caller can see of a loaded control.
struct Loaded
{
    QString text;
    QString fileText;
    QString rtf;
    qsizetype selStart = -1;
    int lineCount = -1;
    int changes = -1;
    bool undoAvailable = true;
    bool modified = true;
    bool documentModified = true;
    bool redoAvailable = true;
    QList<int> lineStates;
    QList<QTextCharFormat> formats;
};

void waitForColouring(srcText &code)
{
    QTRY_VERIFY_WITH_TIMEOUT(!code.isColouring(), 120000);
}

Loaded load(const QString &file, qsizetype pieceSize)
{
    PieceSize size(pieceSize);
    srcText code;
    code.resize(400, 300);
    code.show();
    QSignalSpy changes(&code, &srcText::Change);
    code.LoadFile(file, 1);
    Loaded out;
    out.selStart = code.SelStart();
    waitForColouring(code);
    out.text = code.Text();
    out.fileText = code.fileText();
    out.rtf = code.TextRTF();
    out.lineCount = code.LineCount();
    out.changes = int(changes.count());
    out.undoAvailable = code.RTFBox()->document()->isUndoAvailable();
    out.modified = code.Modified();
    out.documentModified = code.RTFBox()->document()->isModified();
    out.redoAvailable = code.RTFBox()->document()->isRedoAvailable();
    QTextDocument *doc = code.RTFBox()->document();
    for (QTextBlock block = doc->begin(); block.isValid(); block = block.next()) {
        out.lineStates.append(block.userState());
        out.formats.append(block.charFormat());
        for (auto it = block.begin(); !it.atEnd(); ++it)
            out.formats.append(it.fragment().charFormat());
    }
    return out;
}

QByteArray cSource(int lines, const char *lineBreak)
{
    QByteArray out;
    for (int i = 0; i < lines; ++i) {
        out += "int value" + QByteArray::number(i) + " = " + QByteArray::number(i) +
               "; /* a comment";
        out += lineBreak;
        out += "   going on */ // while return" + QByteArray(lineBreak);
    }
    return out;
}

} // namespace

class SrcTextPieceLoadTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    QString write(const QString &name, const QByteArray &bytes) const
    {
        textfile::writeBytes(m_dir.filePath(name), bytes);
        return m_dir.filePath(name);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void piecesGiveWhatOneCallGives_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<qsizetype>("pieceSize");
        QTest::newRow("CR LF, many pieces") << "crlf.c" << cSource(300, "\r\n") << qsizetype(100);
        QTest::newRow("LF") << "lf.c" << cSource(300, "\n") << qsizetype(64);
        QTest::newRow("CR only") << "cr.c" << cSource(300, "\r") << qsizetype(64);
        QByteArray mixed = cSource(100, "\r\n") + cSource(100, "\n") + cSource(100, "\r");
        QTest::newRow("mixed") << "mixed.c" << mixed << qsizetype(50);
        // Every piece ends right on a CR whose LF comes next: the pair stays one break.
        QTest::newRow("CR LF at each piece end")
            << "pairs.c" << QByteArray("abcd\r\n").repeated(200) << qsizetype(4);
        QTest::newRow("empty") << "empty.c" << QByteArray() << qsizetype(1);
        QTest::newRow("no final break") << "open.c" << cSource(50, "\n") + "int last;"
                                        << qsizetype(10);
        QTest::newRow("one long line") << "long.c" << QByteArray(5000, 'x') << qsizetype(10);
        QTest::newRow("blank lines") << "blank.txt" << QByteArray("\n\n\r\n\r\r\n\n")
                                     << qsizetype(1);
        QTest::newRow("not C") << "plain.txt" << cSource(200, "\r\n") << qsizetype(80);
    }

    void piecesGiveWhatOneCallGives()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(qsizetype, pieceSize);
        const QString file = write(name, bytes);
        const Loaded whole = load(file, qsizetype(1) << 40);
        const Loaded pieces = load(file, pieceSize);
        QCOMPARE(pieces.text, whole.text);
        QCOMPARE(pieces.fileText, whole.fileText);
        QCOMPARE(pieces.fileText.toLatin1(), bytes);
        QCOMPARE(pieces.rtf, whole.rtf);
        QCOMPARE(pieces.selStart, whole.selStart);
        QCOMPARE(pieces.lineCount, whole.lineCount);
        QCOMPARE(pieces.changes, whole.changes);
        QCOMPARE(pieces.undoAvailable, false);
        QCOMPARE(whole.undoAvailable, false);
        QCOMPARE(pieces.modified, whole.modified);
        QCOMPARE(pieces.documentModified, whole.documentModified);
        QCOMPARE(pieces.redoAvailable, false);
        QCOMPARE(pieces.lineStates, whole.lineStates);
        QCOMPARE(pieces.formats.size(), whole.formats.size());
        for (qsizetype i = 0; i < whole.formats.size(); ++i)
            QVERIFY2(pieces.formats.at(i) == whole.formats.at(i), qPrintable(QString::number(i)));
    }

    void theEventLoopIsServedBetweenThePieces()
    {
        const QString file = write(QStringLiteral("served.c"), cSource(400, "\r\n"));
        int ticks = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, this, [&ticks] { ++ticks; });
        {
            PieceSize size(256);
            srcText code;
            ticker.start(0);
            code.LoadFile(file, 1);
            ticker.stop();
            QVERIFY(ticks > 5);
        }
        // A text of one piece goes in at once, as it always did.
        ticks = 0;
        {
            srcText code;
            ticker.start(0);
            code.LoadFile(file, 1);
            ticker.stop();
            QCOMPARE(ticks, 0);
        }
    }

    void aWindowClosedDuringALoadGoesAfterIt()
    {
        PieceSize size(64);
        const QByteArray bytes = cSource(200, "\n");
        const QString file = write(QStringLiteral("close.c"), bytes);
        QPointer<QWidget> window = new QWidget;
        window->setAttribute(Qt::WA_DeleteOnClose);
        auto *layout = new QVBoxLayout(window);
        QPointer<srcText> code = new srcText(window);
        layout->addWidget(code);
        window->show();
        QTimer::singleShot(0, window, [window] { window->close(); });
        QVERIFY(code->LoadFile(file, 1));
        // The caller still has its control, whole, when LoadFile returns.
        QVERIFY(code);
        QCOMPARE(code->fileText().toLatin1(), bytes);
        QCOMPARE(code->SelStart(), 0);
        QTRY_VERIFY(!window);
        QVERIFY(!code);
    }

    void aControlDeletedDuringALoadEndsIt()
    {
        PieceSize size(64);
        const QString file = write(QStringLiteral("deleted.c"), cSource(200, "\n"));
        auto *code = new srcText;
        QPointer<srcText> watch = code;
        QTimer::singleShot(0, [code] { delete code; });
        QVERIFY(!code->LoadFile(file, 1));
        QVERIFY(!watch);
    }

    void aSecondLoadDuringALoadWins()
    {
        PieceSize size(64);
        const QByteArray first = cSource(200, "\r\n");
        const QByteArray second = "int second;\nint other;\n";
        const QString firstFile = write(QStringLiteral("first.c"), first);
        const QString secondFile = write(QStringLiteral("second.txt"), second);
        srcText code;
        QSignalSpy loaded(&code, &srcText::FileLoaded);
        QTimer::singleShot(0, &code, [&] { code.LoadFile(secondFile, 1); });
        QVERIFY(code.LoadFile(firstFile, 1));
        QCOMPARE(code.fileText().toLatin1(), second);
        QCOMPARE(code.FileName(), secondFile);
        QCOMPARE(code.Mode(), 9);
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(loaded.at(0).at(0).toString(), secondFile);
        QVERIFY(!code.RTFBox()->document()->isUndoAvailable());
        // Edits after the loads are changes of the text again.
        QSignalSpy changes(&code, &srcText::Change);
        code.Append(QStringLiteral("x"));
        QCOMPARE(changes.count(), 1);
    }

    void aTextSetDuringALoadWins()
    {
        PieceSize size(64);
        const QString file = write(QStringLiteral("replaced.c"), cSource(200, "\r\n"));
        srcText code;
        QTimer::singleShot(0, &code, [&] { code.setText(QStringLiteral("set\r\ntext")); });
        QVERIFY(code.LoadFile(file, 1));
        QCOMPARE(code.Text(), QStringLiteral("set\r\ntext"));
        QSignalSpy changes(&code, &srcText::Change);
        code.Append(QStringLiteral("x"));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(code.Text(), QStringLiteral("set\r\ntextx"));
    }
};

QTEST_MAIN(SrcTextPieceLoadTest)
#include "tst_srctext_pieceload.moc"
