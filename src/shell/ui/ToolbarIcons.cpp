#include "shell/ui/ToolbarIcons.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tessaro {

namespace {

const QColor kInk(40, 44, 52);
const QColor kPaper(255, 255, 255);
const QColor kFolder(230, 180, 60);
const QColor kBlue(52, 101, 164);
const QColor kRed(200, 50, 40);
const QColor kGreen(60, 140, 70);
const QColor kGlass(170, 210, 240);

QPen ink(qreal width = 1.0)
{
    return QPen(kInk, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// A sheet of paper with a folded corner.
void page(QPainter &p, const QRectF &r)
{
    QPainterPath path;
    path.moveTo(r.left(), r.top());
    path.lineTo(r.right() - 3, r.top());
    path.lineTo(r.right(), r.top() + 3);
    path.lineTo(r.right(), r.bottom());
    path.lineTo(r.left(), r.bottom());
    path.closeSubpath();
    p.setPen(ink());
    p.setBrush(kPaper);
    p.drawPath(path);
    p.drawLine(QPointF(r.right() - 3, r.top()), QPointF(r.right() - 3, r.top() + 3));
    p.drawLine(QPointF(r.right() - 3, r.top() + 3), QPointF(r.right(), r.top() + 3));
}

void textLines(QPainter &p, const QRectF &r, int lines)
{
    p.setPen(QPen(QColor(120, 130, 145), 1));
    for (int i = 0; i < lines; ++i)
        p.drawLine(QPointF(r.left(), r.top() + 2 * i), QPointF(r.right(), r.top() + 2 * i));
}

void magnifier(QPainter &p, QPointF centre, qreal radius)
{
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(centre + QPointF(radius * 0.7, radius * 0.7),
               centre + QPointF(radius * 1.9, radius * 1.9));
    p.setPen(ink(1.2));
    p.setBrush(kGlass);
    p.drawEllipse(centre, radius, radius);
}

void arrow(QPainter &p, bool forward)
{
    // A curved arrow over the top, pointing back (undo) or on (redo).
    QPainterPath path;
    if (forward) {
        path.moveTo(3, 12);
        path.cubicTo(3, 4, 12, 3, 13, 9);
    } else {
        path.moveTo(13, 12);
        path.cubicTo(13, 4, 4, 3, 3, 9);
    }
    p.setPen(QPen(kBlue, 2, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
    const QPointF tip = forward ? QPointF(13, 9) : QPointF(3, 9);
    const qreal side = forward ? -1 : 1;
    QPolygonF head(
        {tip + QPointF(0, 3), tip + QPointF(side * 3.5, -1), tip + QPointF(-side * 2.5, -1.5)});
    p.setPen(Qt::NoPen);
    p.setBrush(kBlue);
    p.drawPolygon(head);
}

void printer(QPainter &p)
{
    p.setPen(ink());
    p.setBrush(kPaper);
    p.drawRect(QRectF(4.5, 1.5, 7, 5));
    p.setBrush(QColor(200, 204, 210));
    p.drawRoundedRect(QRectF(1.5, 6.5, 13, 6), 1.5, 1.5);
    p.setBrush(kPaper);
    p.drawRect(QRectF(4.5, 10.5, 7, 4));
    p.setPen(QPen(kGreen, 1));
    p.drawPoint(QPointF(12.5, 8.5));
}

void paintImage(QPainter &p, int index)
{
    switch (index) {
    case 0: { // cut: scissors
        p.setPen(QPen(kInk, 1.3, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(5, 1.5), QPointF(10, 10));
        p.drawLine(QPointF(11, 1.5), QPointF(6, 10));
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(kRed, 1.5));
        p.drawEllipse(QPointF(4.5, 12.5), 2.3, 2.3);
        p.drawEllipse(QPointF(11.5, 12.5), 2.3, 2.3);
        break;
    }
    case 1: // copy: two sheets
        page(p, QRectF(1.5, 1.5, 8, 10));
        textLines(p, QRectF(3.5, 5.5, 4, 0), 2);
        page(p, QRectF(6.5, 4.5, 8, 10));
        textLines(p, QRectF(8.5, 8.5, 4, 0), 3);
        break;
    case 2: // paste: clipboard with a sheet
        p.setPen(ink());
        p.setBrush(QColor(180, 130, 80));
        p.drawRoundedRect(QRectF(1.5, 2.5, 10, 12), 1, 1);
        p.setBrush(QColor(200, 204, 210));
        p.drawRect(QRectF(4.5, 1.5, 4, 2.5));
        page(p, QRectF(7.5, 6.5, 7, 8));
        textLines(p, QRectF(9, 9.5, 4, 0), 2);
        break;
    case 3: // delete: a red cross
        p.setPen(QPen(kRed, 2.5, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(3.5, 3.5), QPointF(12.5, 12.5));
        p.drawLine(QPointF(12.5, 3.5), QPointF(3.5, 12.5));
        break;
    case 4: arrow(p, false); break; // undo
    case 5: arrow(p, true); break;  // redo
    case 6:                         // new: an empty sheet with a spark
        page(p, QRectF(2.5, 1.5, 10, 13));
        p.setPen(QPen(kFolder.darker(120), 1.2));
        p.drawLine(QPointF(12, 0.5), QPointF(12, 4.5));
        p.drawLine(QPointF(10, 2.5), QPointF(14, 2.5));
        break;
    case 7: { // open: a folder
        p.setPen(ink());
        p.setBrush(kFolder.darker(115));
        p.drawRect(QRectF(1.5, 3.5, 12, 10));
        p.drawRect(QRectF(1.5, 2.5, 5, 1));
        QPolygonF lid(
            {QPointF(3.5, 6.5), QPointF(15.5, 6.5), QPointF(13.5, 13.5), QPointF(1.5, 13.5)});
        p.setBrush(kFolder);
        p.drawPolygon(lid);
        break;
    }
    case 8: // save: a diskette
        p.setPen(ink());
        p.setBrush(kBlue);
        p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 1, 1);
        p.setBrush(kPaper);
        p.drawRect(QRectF(4, 1.5, 8, 5));
        p.setBrush(QColor(200, 204, 210));
        p.drawRect(QRectF(4.5, 9.5, 7, 5));
        p.setBrush(kInk);
        p.drawRect(QRectF(9, 2.5, 1.5, 3));
        break;
    case 9: // print preview: a sheet under a magnifier
        page(p, QRectF(1.5, 1.5, 9, 12));
        textLines(p, QRectF(3.5, 4.5, 5, 0), 4);
        magnifier(p, QPointF(9.5, 9.5), 3);
        break;
    case 10: { // properties: a sheet with ticked lines
        page(p, QRectF(2.5, 1.5, 11, 13));
        for (int i = 0; i < 3; ++i) {
            const qreal y = 5 + 3 * i;
            p.setPen(QPen(kGreen, 1.2));
            p.drawLine(QPointF(4, y), QPointF(5, y + 1));
            p.drawLine(QPointF(5, y + 1), QPointF(6.5, y - 1));
            p.setPen(QPen(QColor(120, 130, 145), 1));
            p.drawLine(QPointF(8, y + 0.5), QPointF(11.5, y + 0.5));
        }
        break;
    }
    case 11: { // help: a question mark in a circle
        p.setPen(ink());
        p.setBrush(kBlue);
        p.drawEllipse(QPointF(8, 8), 6.5, 6.5);
        QFont f = p.font();
        f.setPixelSize(11);
        f.setBold(true);
        p.setFont(f);
        p.setPen(kPaper);
        p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, QStringLiteral("?"));
        break;
    }
    case 12: magnifier(p, QPointF(6.5, 6.5), 4.5); break; // find
    case 13:                                              // replace: magnifier and arrow
        magnifier(p, QPointF(5.5, 5.5), 3.5);
        p.setPen(QPen(kGreen, 1.5, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(9, 13), QPointF(14.5, 13));
        p.drawLine(QPointF(12.5, 11), QPointF(14.5, 13));
        p.drawLine(QPointF(12.5, 15), QPointF(14.5, 13));
        break;
    case 14: printer(p); break; // print
    default: break;
    }
}

} // namespace

QImage ToolbarIcons::render(int index, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (index < 0 || index >= kImageCount)
        return image;
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 16.0, size / 16.0);
    paintImage(p, index);
    return image;
}

ToolbarIcons::ToolbarIcons(QObject *parent) : QObject(parent)
{
    setObjectName(QStringLiteral("imlToolbarIcons"));
    for (int i = 0; i < kImageCount; ++i) {
        QIcon icon;
        for (int size : {16, 24, 32})
            icon.addPixmap(QPixmap::fromImage(render(i, size)));
        m_icons.append(icon);
    }
}

QIcon ToolbarIcons::icon(int index) const
{
    return index >= 0 && index < m_icons.size() ? m_icons.at(index) : QIcon();
}

} // namespace tessaro
