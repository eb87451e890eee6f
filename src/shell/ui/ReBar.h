#pragma once

#include <QWidget>

class QVBoxLayout;

namespace tessaro {

// A band container: bands one below the other, each a row of its own as wide as the
// container, with a grip, an optional caption and the window it holds at its natural
// width (narrower when the row is too short for it). Bands are found by their key (the
// band's objectName is "<rebar name>_<key>").
class ReBar : public QWidget
{
    Q_OBJECT
public:
    explicit ReBar(QWidget *parent = nullptr);

    // Adds a band holding `child`; returns the band.
    QWidget *addBand(QWidget *child, const QString &caption, const QString &key);
    QWidget *band(const QString &key) const;
    int bandCount() const { return m_bands; }

private:
    QVBoxLayout *m_layout;
    int m_bands = 0;
};

} // namespace tessaro
