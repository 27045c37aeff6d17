#include "shell/folder_item_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A message over @p parent that ends with it.
QMessageBox *newMessage(QMessageBox::Icon icon, const QString &text, QWidget *parent)
{
    auto *box = new QMessageBox(icon, u"Quillon"_s, text, QMessageBox::NoButton, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setTextFormat(Qt::PlainText);
    box->setAccessibleName(text);
    return box;
}

} // namespace

FolderItemDialog::FolderItemDialog(const QString &extension, QWidget *parent)
    : QFileDialog(parent), m_ending(u'.' + extension)
{
    setOption(DontUseNativeDialog);
    setOption(ShowDirsOnly);
    setFileMode(Directory);
    connect(this, &QFileDialog::directoryEntered, this, [this](const QString &path) {
        if (isItem(path)) {
            setDirectory(QFileInfo(path).path());
            chooseOrAsk(path);
        }
    });
}

void FolderItemDialog::setSaves()
{
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setLabelText(Accept, tr("Save"));
}

bool FolderItemDialog::isItem(const QString &path) const
{
    return path.endsWith(m_ending, Qt::CaseInsensitive) && QFileInfo(path).isDir();
}

QString FolderItemDialog::withExtension(const QString &path) const
{
    return path.endsWith(m_ending) ? path : path + m_ending;
}

void FolderItemDialog::accept()
{
    const QString path = QDir::cleanPath(selectedFiles().value(0));
    const bool isFolder = QFileInfo(path).isDir() && !isItem(path);
    if (isFolder && path != directory().path())
        openFolder(path);
    else if (!isFolder && acceptMode() == AcceptSave)
        chooseOrAsk(withExtension(path));
    else if (isItem(path))
        choose(path);
    else
        tellWhatToChoose();
}

void FolderItemDialog::openFolder(const QString &path)
{
    setDirectory(path);
    if (auto *name = findChild<QLineEdit *>(u"fileNameEdit"_s))
        name->clear();
    // What was selected in the other folder would still count as chosen.
    if (auto *list = findChild<QListView *>(u"listView"_s))
        list->clearSelection();
}

void FolderItemDialog::chooseOrAsk(const QString &path)
{
    const QFileInfo there(path);
    if (acceptMode() == AcceptSave && (there.exists() || there.isSymLink()))
        askToReplace(path);
    else
        choose(path);
}

void FolderItemDialog::choose(const QString &path)
{
    Q_EMIT filesSelected({path});
    Q_EMIT fileSelected(path);
    done(Accepted);
}

void FolderItemDialog::askToReplace(const QString &path)
{
    QMessageBox *box = newMessage(
        QMessageBox::Warning,
        tr("“%1” already exists. Do you want to replace it?").arg(QFileInfo(path).fileName()), this);
    box->setInformativeText(tr("What it holds now will be lost."));
    const QPushButton *replace = box->addButton(tr("Replace"), QMessageBox::AcceptRole);
    QPushButton *cancel = box->addButton(tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    connect(box, &QMessageBox::finished, this, [this, box, replace, path] {
        if (box->clickedButton() == replace)
            choose(path);
    });
    box->open();
}

void FolderItemDialog::tellWhatToChoose()
{
    const QString text = acceptMode() == AcceptSave
                             ? tr("Please enter a name for the backup.")
                             : tr("Please choose a backup, a folder whose name ends in “%1”.").arg(m_ending);
    QMessageBox *box = newMessage(QMessageBox::Information, text, this);
    box->addButton(tr("OK"), QMessageBox::AcceptRole);
    box->open();
}

} // namespace quillon
