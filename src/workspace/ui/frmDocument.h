#pragma once

#include <QWidget>

namespace tessaro {

class srcText;

// A document window: one editor control, `code`, filling the window. The window's
// caption is the document's identity: the file's full path, or "Source " + a number
// for a document never saved. Closing it asks whether to save a changed text (Yes or
// No: closing cannot be stopped).
class frmDocument : public QWidget
{
    Q_OBJECT
public:
    explicit frmDocument(QWidget *parent = nullptr);

    srcText *code() const { return m_code; }

    QString caption() const { return windowTitle(); }
    void setCaption(const QString &caption) { setWindowTitle(caption); }

    // True after any change of the text since the window was loaded; saving does not
    // clear it.
    bool changed() const { return m_changed; }
    // Marks the text as changed (a text recovered from an earlier session).
    void markChanged() { m_changed = true; }
    // True when the document is a C source shown with C colouring.
    bool ccode = false;

    // Saves the text under its caption (a titled document).
    void saveUnderCaption();
    // Asks for a name (Save or Save As), takes it as the caption and saves. Raises
    // 32755 when the dialog is cancelled.
    void saveAs(const QString &dialogTitle);

    // The save-changes prompt of Form_Unload.
    void Form_Unload();

Q_SIGNALS:
    // Raised once the window is unloading, after its prompt. unsavedWorkKept is true
    // when the user chose to save but the file could not be written: the changes
    // exist nowhere but in the window.
    void unloaded(bool unsavedWorkKept);

public:
    // Shows the text with C colouring through the section-file line colourer: the
    // document's RTF is coloured line by line and the text takes the result's
    // colours. The text itself, its line breaks and its undo history stay as they
    // are, and the document is not marked changed.
    void switchToCColouring(const QString &sectionFile);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void Form_Load();
    void Form_Resize();

    srcText *m_code;
    bool m_changed = false;
    bool m_unloaded = false;
};

} // namespace tessaro
