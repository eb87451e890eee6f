// The program's own icon on the application, its main window, its documents and its
// dialogs, and the desktop entry the windows belong to.
#include "app/ui/MainWindow.h"
#include "shell/ui/ApplicationIcon.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/frmDocument.h"

#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace tessaro;

namespace {

QImage imageAt(const QIcon &icon, int size)
{
    return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

// The rendered image as a window shows it (through a pixmap, as the icon keeps it).
QImage renderedIcon(int size)
{
    return QPixmap(QStringLiteral(":/icons/%1x%1/tessaro.png").arg(size))
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class ApplicationIconTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installApplicationIcon(); }

    void theIconHoldsEveryRenderedSize()
    {
        const QIcon icon = applicationIcon();
        QVERIFY(!icon.isNull());
        QList<int> sizes;
        for (const QSize &size : icon.availableSizes()) {
            QCOMPARE(size.width(), size.height());
            sizes << size.width();
        }
        std::sort(sizes.begin(), sizes.end());
        QCOMPARE(sizes, QList<int>({16, 32, 48, 64, 128, 256}));
        for (int size : sizes) {
            QVERIFY(!renderedIcon(size).isNull());
            QCOMPARE(imageAt(icon, size), renderedIcon(size));
        }
    }
    void theIconIsOurDrawingNotAPlainSquare()
    {
        // The amber tile at the top left and the dark slate between the tiles.
        const QImage image = renderedIcon(256);
        const QColor tile = image.pixelColor(60, 60);
        const QColor slate = image.pixelColor(94, 128);
        QVERIFY2(tile.red() > 200 && tile.green() > 120 && tile.blue() < 100,
                 qPrintable(tile.name()));
        QVERIFY2(slate.lightness() < 80, qPrintable(slate.name()));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0); // rounded corners
    }
    void theApplicationAndItsWindowsShowTheIcon()
    {
        resetApp();
        QCOMPARE(imageAt(QApplication::windowIcon(), 32), renderedIcon(32));
        MainWindow frame;
        frame.show();
        QCOMPARE(imageAt(frame.windowIcon(), 32), renderedIcon(32));
        QCOMPARE(imageAt(frame.windowIcon(), 16), renderedIcon(16));

        frmDocument *document = DocumentCommands::of(frame)->NewDocument();
        QVERIFY(document);
        QMdiSubWindow *child = frame.mdiArea()->activeSubWindow();
        QVERIFY(child);
        QCOMPARE(imageAt(child->windowIcon(), 16), renderedIcon(16));
        QCOMPARE(imageAt(document->windowIcon(), 16), renderedIcon(16));

        QDialog dialog(&frame);
        QCOMPARE(imageAt(dialog.windowIcon(), 32), renderedIcon(32));

        test::RecordingMessageBox box;
        box.answers = {mb::No};
        frame.mdiArea()->closeAllSubWindows();
    }
    void theWindowsBelongToTheDesktopEntry()
    {
        QCOMPARE(QGuiApplication::desktopFileName(), QString("tessaro"));
    }
};

TESSARO_TEST_MAIN(ApplicationIconTest)
#include "tst_applicationicon.moc"
