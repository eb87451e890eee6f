#include "search/ui/ComboFindBox.h"

#include <QComboBox>

namespace tessaro::search {

QString ComboFindBox::text() const
{
    return m_combo.currentText();
}

void ComboFindBox::addItem(const QString &text)
{
    // Adding the first entry makes it the current one, which would replace the edit
    // text; the box keeps showing what the user typed.
    const QString shown = m_combo.currentText();
    m_combo.addItem(text);
    if (m_combo.isEditable() && m_combo.currentText() != shown)
        m_combo.setEditText(shown);
}

} // namespace tessaro::search
