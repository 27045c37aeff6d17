#include "shell/message_box_sheets.h"

#include "platform/settings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QStringView folderKey = u"fileDialogs/folder";

/// A file dialog that begins in the folder of the last one and sees to its own end.
QFileDialog *newFileDialog(QWidget *parent, const FileRequest &request)
{
    auto *dialog = new QFileDialog(parent, request.prompt,
                                   settings().value(folderKey.toString(), QDir::homePath()).toString());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    const QString pattern = u"*."_s + request.extension;
    dialog->setNameFilters(
        {u"%1 files (%2 %3)"_s.arg(request.extension.toUpper(), pattern, pattern.toUpper()),
         u"All files (*)"_s});
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, [](const QStringList &paths) {
        settings().setValue(folderKey.toString(), QFileInfo(paths.value(0)).path());
    });
    return dialog;
}

} // namespace

void MessageBoxSheets::show(SheetWindow window, const Alert &alert, Answered answered)
{
    auto *box = new QMessageBox(widget(window));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(u"Quillon"_s);
    box->setTextFormat(Qt::PlainText);
    box->setText(alert.message);
    box->setInformativeText(alert.informativeText);
    box->setDetailedText(alert.details.join(u'\n'));
    box->setIcon(alert.alternateButton.isEmpty() ? QMessageBox::Information : QMessageBox::Question);
    box->setAccessibleName(alert.message);

    QPushButton *accept = box->addButton(alert.defaultButton, QMessageBox::AcceptRole);
    box->setDefaultButton(accept);
    if (!alert.alternateButton.isEmpty())
        box->setEscapeButton(box->addButton(alert.alternateButton, QMessageBox::RejectRole));
    QObject::connect(box, &QMessageBox::finished, box, [box, accept, answered = std::move(answered)] {
        if (answered)
            answered(box->clickedButton() == accept ? AlertAnswer::Default : AlertAnswer::Alternate);
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
