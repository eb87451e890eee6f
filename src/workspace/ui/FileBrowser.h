#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QComboBox;
class QListWidget;
class QListWidgetItem;

namespace tessaro {

class frmMain;

// The "File Browser" page: the drive list `Drive1`, the directory list `Dir1` and the
// file list `File1`, chained together: choosing a drive sets the
// directory list's folder, which sets the file list's folder. Double-clicking a file
// runs a ".exe" through Shell and opens anything else through the main window's
// timer. The current drive and folders are also kept as the widgets' "Drive" and
// "Path" properties, so other commands (Find in Files) can read them.
class FileBrowser : public QObject
{
    Q_OBJECT
public:
    // Connects the window's three lists without reading any folder: start-up fills
    // them once with showStartFolder. Calling it again returns the same object.
    static FileBrowser *install(frmMain &frame);
    static FileBrowser *of(const frmMain &frame);

    QString drive() const { return m_drive; }
    QString dirPath() const { return m_dirPath; }
    QString filePath() const { return m_filePath; }

    // Drive1.Drive = drive: selects it and runs Drive1_Change when it changed.
    void setDrive(const QString &drive);
    // Dir1.Path = folder: shows it and runs Dir1_Change. Raises 76 or 75 for a folder
    // that cannot be shown, leaving the lists as they were.
    void setDirPath(const QString &folder);
    // File1.Path = folder.
    void setFilePath(const QString &folder);
    // Fills the drive list and lists the start folder "/" in the directory and file
    // lists, each once (the start-up step that sets the browser's folder).
    void showStartFolder();
    // Moves the browser to a folder: its drive first, then the folder itself (what
    // the main window's timer does with a pending browser folder).
    void showFolder(const QString &folder);

    // The file list's selected entry (ListIndex) and its names (List(i)).
    int listIndex() const;
    void setListIndex(int index);

    void Drive1_Change();
    void Dir1_Change();
    // Runs or opens the selected file. A program that cannot be started ends the
    // program with the run-time error (this handler traps nothing).
    void File1_DblClick();

private:
    explicit FileBrowser(frmMain &frame);
    void fillDrives();
    void showDirectory();
    void showFiles();
    void selectDriveEntry(const QString &drive);
    void Dir1_DblClick(QListWidgetItem *item);

    frmMain &m_frame;
    QPointer<QComboBox> m_drive1;
    QPointer<QListWidget> m_dir1;
    QPointer<QListWidget> m_file1;
    QString m_drive;
    QString m_dirPath;
    QString m_filePath;
};

} // namespace tessaro
