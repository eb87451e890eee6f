#pragma once

#include <QIcon>
#include <QObject>
#include <QVector>

namespace tessaro {

// The toolbar's image list `imlToolbarIcons`, drawn by the program itself:
// 0 cut, 1 copy, 2 paste, 3 delete, 4 undo, 5 redo, 6 new, 7 open, 8 save,
// 9 print preview, 10 properties, 11 help, 12 find, 13 replace, 14 print.
class ToolbarIcons : public QObject
{
    Q_OBJECT
public:
    explicit ToolbarIcons(QObject *parent = nullptr);

    int count() const { return int(m_icons.size()); }
    // The image at `index`; a null icon outside the list.
    QIcon icon(int index) const;

    // Paints image `index` into a square of `size` pixels (empty outside the list).
    static QImage render(int index, int size);
    static constexpr int kImageCount = 15;

private:
    QVector<QIcon> m_icons;
};

} // namespace tessaro
