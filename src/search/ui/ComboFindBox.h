#pragma once

#include "search/core/FindController.h"

class QComboBox;

namespace tessaro::search {

// The main window's find box (fndText) as the find commands see it: the edit text,
// and a list to which entries are appended (duplicates allowed, never sorted).
class ComboFindBox : public FindBox
{
public:
    explicit ComboFindBox(QComboBox &combo) : m_combo(combo) {}
    QString text() const override;
    void addItem(const QString &text) override;

private:
    QComboBox &m_combo;
};

} // namespace tessaro::search
