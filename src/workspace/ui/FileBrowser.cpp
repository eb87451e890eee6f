#include "workspace/ui/FileBrowser.h"

#include "platform/core/ErrorTraps.h"
#include "platform/core/Shell.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "workspace/core/FileBrowserModel.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyle>

namespace tessaro {

namespace {
const char kObjectName[] = "fileBrowser";
constexpr int PathRole = Qt::UserRole;
} // namespace

FileBrowser::FileBrowser(frmMain &frame)
    : QObject(&frame), m_frame(frame), m_drive1(frame.Drive1()), m_dir1(frame.Dir1()),
      m_file1(frame.File1())
{
    setObjectName(QLatin1String(kObjectName));
    connect(m_drive1, &QComboBox::activated, this,
            [this](int index) { setDrive(m_drive1->itemData(index).toString()); });
    // The lists open a folder and run a file on a double click.
    connect(m_dir1, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { Dir1_DblClick(item); });
    connect(m_file1, &QListWidget::itemDoubleClicked, this, [this] { File1_DblClick(); });
}

FileBrowser *FileBrowser::of(const frmMain &frame)
{
    return frame.findChild<FileBrowser *>(QLatin1String(kObjectName), Qt::FindDirectChildrenOnly);
}

FileBrowser *FileBrowser::install(frmMain &frame)
{
    if (FileBrowser *browser = of(frame))
        return browser;
    return new FileBrowser(frame);
}

void FileBrowser::showStartFolder()
{
    fillDrives();
    m_drive = browser::startFolder();
    selectDriveEntry(m_drive);
    trapped([this] { setDirPath(browser::startFolder()); });
}

void FileBrowser::fillDrives()
{
    if (!m_drive1)
        return;
    const QSignalBlocker blocker(m_drive1);
    m_drive1->clear();
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_DriveHDIcon);
    for (const QString &root : browser::driveList())
        m_drive1->addItem(icon, root, root);
}

void FileBrowser::selectDriveEntry(const QString &drive)
{
    if (!m_drive1)
        return;
    const QSignalBlocker blocker(m_drive1);
    int index = m_drive1->findData(drive);
    if (index < 0) {
        m_drive1->addItem(drive, drive);
        index = m_drive1->count() - 1;
    }
    m_drive1->setCurrentIndex(index);
    m_drive1->setProperty("Drive", drive);
}

void FileBrowser::setDrive(const QString &drive)
{
    if (drive == m_drive)
        return;
    m_drive = drive;
    selectDriveEntry(drive);
    Drive1_Change();
}

void FileBrowser::Drive1_Change()
{
    // A drive that cannot be read keeps the previous folder; the drive list goes back
    // to the drive of that folder.
    if (!trapped([this] { setDirPath(m_drive); })) {
        m_drive = browser::driveOf(m_dirPath.isEmpty() ? browser::startFolder() : m_dirPath);
        selectDriveEntry(m_drive);
    }
}

void FileBrowser::setDirPath(const QString &folder)
{
    browser::fileNames(folder); // raises for a folder that cannot be listed
    const QString path = browser::normalFolder(folder);
    const bool changed = path != m_dirPath;
    m_dirPath = path;
    showDirectory();
    if (changed)
        Dir1_Change();
}

void FileBrowser::showDirectory()
{
    if (!m_dir1)
        return;
    m_dir1->setProperty("Path", m_dirPath);
    QVector<browser::DirEntry> entries;
    if (!trapped([&] { entries = browser::dirEntries(m_dirPath); }))
        return;
    const QSignalBlocker blocker(m_dir1);
    m_dir1->clear();
    QStyle *style = QApplication::style();
    for (const browser::DirEntry &entry : entries) {
        auto *item = new QListWidgetItem(
            style->standardIcon(entry.open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon),
            QString(entry.depth * 2, QLatin1Char(' ')) + entry.name, m_dir1);
        item->setData(PathRole, entry.path);
        if (entry.path == m_dirPath)
            m_dir1->setCurrentItem(item);
    }
}

void FileBrowser::Dir1_DblClick(QListWidgetItem *item)
{
    if (!item)
        return;
    const QString path = item->data(PathRole).toString();
    trapped([&] { setDirPath(path); });
}

void FileBrowser::Dir1_Change()
{
    trapped([this] { setFilePath(m_dirPath); });
}

void FileBrowser::setFilePath(const QString &folder)
{
    browser::fileNames(folder);
    m_filePath = browser::normalFolder(folder);
    showFiles();
}

void FileBrowser::showFiles()
{
    if (!m_file1)
        return;
    m_file1->setProperty("Path", m_filePath);
    QStringList names;
    trapped([&] { names = browser::fileNames(m_filePath); });
    const QSignalBlocker blocker(m_file1);
    m_file1->clear();
    m_file1->addItems(names);
    m_file1->setCurrentRow(-1);
}

void FileBrowser::showFolder(const QString &folder)
{
    setDrive(browser::driveOf(folder));
    setDirPath(folder);
}

int FileBrowser::listIndex() const
{
    return m_file1 ? m_file1->currentRow() : -1;
}

void FileBrowser::setListIndex(int index)
{
    if (m_file1)
        m_file1->setCurrentRow(index);
}

void FileBrowser::File1_DblClick()
{
    untrapped([this] {
        const int index = listIndex();
        if (!m_file1 || index < 0 || index >= m_file1->count())
            return;
        const QString name = browser::fullName(m_filePath, m_file1->item(index)->text());
        if (browser::runsAsProgram(name)) {
            Shell(name, 1);
            return;
        }
        app().pendingOpenPath = name;
    });
}

} // namespace tessaro
