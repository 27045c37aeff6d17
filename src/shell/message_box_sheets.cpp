#include "shell/message_box_sheets.h"

#include "platform/settings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString folderKey = u"fileDialogs/folder"_s;
constexpr QSize detailsSize(640, 220);

/// A file dialog that begins in the folder of the last one and sees to its own end.
QFileDialog *newFileDialog(QWidget *parent, const FileRequest &request)
{
    auto *dialog =
        new QFileDialog(parent, request.prompt, settings().value(folderKey, QDir::homePath()).toString());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    const QString pattern = u"*."_s + request.extension;
    dialog->setNameFilters(
        {u"%1 files (%2 %3)"_s.arg(request.extension.toUpper(), pattern, pattern.toUpper()),
         u"All files (*)"_s});
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, [](const QStringList &paths) {
        settings().setValue(folderKey, QFileInfo(paths.value(0)).path());
    });
    return dialog;
}

/// A message box with @p alert's texts and no buttons; its details, if any, are laid open below them.
QMessageBox *newMessageBox(QWidget *parent, const Alert &alert)
{
    auto *box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(u"Quillon"_s);
    box->setTextFormat(Qt::PlainText);
    box->setText(alert.message);
    box->setInformativeText(alert.informativeText);
    box->setIcon(alert.alternateButton.isEmpty() ? QMessageBox::Information : QMessageBox::Question);
    box->setAccessibleName(alert.message);
    auto *grid = qobject_cast<QGridLayout *>(box->layout());
    if (grid && !alert.details.isEmpty()) {
        auto *details = new QPlainTextEdit(alert.details.join(u'\n'));
        details->setObjectName(u"alertDetails"_s);
        details->setAccessibleName(u"Details"_s);
        details->setReadOnly(true);
        details->setTabChangesFocus(true);
        details->setMinimumSize(detailsSize);
        grid->addWidget(details, grid->rowCount(), 0, 1, grid->columnCount());
    }
    return box;
}

} // namespace

void MessageBoxSheets::show(SheetWindow window, const Alert &alert, Answered answered)
{
    QMessageBox *box = newMessageBox(widget(window), alert);
    QPushButton *accept = box->addButton(alert.defaultButton, QMessageBox::AcceptRole);
    box->setDefaultButton(accept);
    if (!alert.alternateButton.isEmpty())
        box->setEscapeButton(box->addButton(alert.alternateButton, QMessageBox::RejectRole));
    QObject::connect(box, &QMessageBox::finished, box, [box, accept, answered = std::move(answered)] {
        const bool onlyOne = box->buttons().size() == 1;
        if (answered)
            answered(onlyOne || box->clickedButton() == accept ? AlertAnswer::Default
                                                               : AlertAnswer::Alternate);
    });
    box->open();
}

void MessageBoxSheets::chooseFiles(SheetWindow window, const FileRequest &request, FilesChosen chosen)
{
    QFileDialog *dialog = newFileDialog(widget(window), request);
    dialog->setFileMode(request.severalFiles ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, std::move(chosen));
    dialog->open();
}

void MessageBoxSheets::chooseSaveFile(SheetWindow window, const FileRequest &request, FileChosen chosen)
{
    QFileDialog *dialog = newFileDialog(widget(window), request);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(request.extension);
    dialog->selectFile(request.proposedName);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(chosen));
    dialog->open();
}

} // namespace quillon
