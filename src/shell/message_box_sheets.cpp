#include "shell/message_box_sheets.h"

#include "platform/settings.h"
#include "shell/folder_item_dialog.h"
#include "widgets/focus_frame.h"

#include <QCheckBox>
#include <QChildEvent>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class MessageBoxSheetsText
{
    Q_DECLARE_TR_FUNCTIONS(MessageBoxSheets)
};

const QString folderKey = u"fileDialogs/folder"_s;
constexpr QSize detailsSize(640, 220);

/// What the author may choose by @p request in a file dialog.
QStringList nameFilters(const FileRequest &request)
{
    const QString all = MessageBoxSheetsText::tr("All files (*)");
    if (request.extension.isEmpty())
        return {all};
    const QString pattern = u"*."_s + request.extension;
    if (request.isFolder)
        return {MessageBoxSheetsText::tr("Backups (%1)").arg(pattern)};
    return {MessageBoxSheetsText::tr("%1 files (%2 %3)")
                .arg(request.extension.toUpper(), pattern, pattern.toUpper()),
            all};
}

/// @p path with the extension that @p request asks for. The dialog adds it to names without a point only.
QString withExtension(const QString &path, const FileRequest &request)
{
    const QString ending = u'.' + request.extension;
    const bool isNamedSo = request.extension.isEmpty() || path.endsWith(ending, Qt::CaseInsensitive);
    return isNamedSo ? path : QString(path + ending);
}

/// Has the questions that a file dialog asks by itself show the names of files as they stand.
class PlainQuestions final : public QObject
{
public:
    explicit PlainQuestions(QFileDialog &dialog) : QObject(&dialog) { dialog.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::ChildPolished)
            return false;
        if (auto *question = qobject_cast<QMessageBox *>(static_cast<QChildEvent *>(event)->child()))
            question->setTextFormat(Qt::PlainText);
        return false;
    }
};

/// Makes @p dialog ask for what @p request says, beginning in the folder of the last one, and see to its own
/// end.
void prepare(QFileDialog &dialog, const FileRequest &request)
{
    new PlainQuestions(dialog);
    dialog.setWindowTitle(request.prompt);
    dialog.setDirectory(settings().value(folderKey, QDir::homePath()).toString());
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setNameFilters(nameFilters(request));
    QObject::connect(&dialog, &QFileDialog::filesSelected, &dialog, [](const QStringList &paths) {
        settings().setValue(folderKey, QFileInfo(paths.value(0)).path());
    });
}

/// A dialog for existing files, or for one that is to be saved.
QFileDialog *newFileDialog(QWidget *parent, const FileRequest &request, QFileDialog::AcceptMode mode)
{
    auto *dialog = new QFileDialog(parent);
    prepare(*dialog, request);
    dialog->setAcceptMode(mode);
    if (mode == QFileDialog::AcceptSave) {
        dialog->setDefaultSuffix(request.extension);
        return dialog;
    }
    dialog->setFileMode(request.severalFiles ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, request.prompt);
    dialog->setOption(QFileDialog::ReadOnly); // No folder is made, renamed or deleted.
    return dialog;
}

/// Adds the check box that @p request asks for.
void addOption(QFileDialog &dialog, const FileRequest &request)
{
    // Only the toolkit's own dialog has a place for it.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    auto *grid = qobject_cast<QGridLayout *>(dialog.layout());
    if (!grid)
        return;
    auto *option = new QCheckBox(request.option);
    option->setObjectName(u"fileOption"_s);
    grid->addWidget(option, grid->rowCount(), 0, 1, grid->columnCount());
    QObject::connect(&dialog, &QFileDialog::fileSelected, option,
                     [option, chosen = request.optionChosen] { chosen(option->isChecked()); });
}

/// The same for a folder that is known as one item.
QFileDialog *newFolderDialog(QWidget *parent, const FileRequest &request, QFileDialog::AcceptMode mode)
{
    auto *dialog = new FolderItemDialog(request.extension, parent);
    prepare(*dialog, request);
    if (mode == QFileDialog::AcceptSave)
        dialog->setSaves();
    else
        dialog->setLabelText(QFileDialog::Accept, request.prompt);
    return dialog;
}

QFileDialog *newChooser(QWidget *parent, const FileRequest &request, QFileDialog::AcceptMode mode)
{
    return request.isFolder ? newFolderDialog(parent, request, mode) : newFileDialog(parent, request, mode);
}

/// A message box in which Escape and the frame's button press none of its buttons.
class SheetBox final : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Cancel))
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
    // QMessageBox would press a button; NOLINTNEXTLINE(bugprone-parent-virtual-call)
    void closeEvent(QCloseEvent *event) override { QDialog::closeEvent(event); }
};

AlertAnswer answerOf(const QMessageBox &box, const QAbstractButton *accept)
{
    if (box.buttons().size() == 1 || box.clickedButton() == accept)
        return AlertAnswer::Default;
    return box.clickedButton() ? AlertAnswer::Alternate : AlertAnswer::Closed;
}

/// Lays @p lines open between the texts and the buttons of @p box.
void addDetails(QMessageBox &box, const QStringList &lines)
{
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    auto *buttons = box.findChild<QDialogButtonBox *>();
    if (!grid || !buttons)
        return;
    auto *details = new WithFocusFrame<QPlainTextEdit>(lines.join(u'\n'));
    details->setObjectName(u"alertDetails"_s);
    details->setAccessibleName(MessageBoxSheetsText::tr("Details"));
    details->setReadOnly(true);
    details->setTabChangesFocus(true);
    details->setMinimumSize(detailsSize);
    grid->removeWidget(buttons);
    const int row = grid->rowCount();
    grid->addWidget(details, row, 0, 1, grid->columnCount());
    grid->addWidget(buttons, row + 1, 0, 1, grid->columnCount());
}

/// A message box with @p alert's texts and details, and no buttons.
QMessageBox *newMessageBox(QWidget *parent, const Alert &alert)
{
    auto *box = new SheetBox(parent);
    box->setObjectName(alert.name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(u"Quillon"_s);
    box->setTextFormat(Qt::PlainText);
    box->setText(alert.message);
    box->setInformativeText(alert.informativeText);
    // The box's own setting holds for its first text only.
    for (QLabel *label : box->findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    box->setIcon(alert.alternateButton.isEmpty() ? QMessageBox::Information : QMessageBox::Question);
    box->setAccessibleName(alert.message);
    if (!alert.details.isEmpty())
        addDetails(*box, alert.details);
    return box;
}

} // namespace

void MessageBoxSheets::show(SheetWindow window, const Alert &alert, Answered answered)
{
    QMessageBox *box = newMessageBox(widget(window), alert);
    QPushButton *accept = box->addButton(alert.defaultButton, QMessageBox::AcceptRole);
    box->setDefaultButton(accept);
    if (!alert.alternateButton.isEmpty())
        box->addButton(alert.alternateButton, QMessageBox::RejectRole);
    QObject::connect(box, &QMessageBox::finished, box, [box, accept, answered = std::move(answered)] {
        if (answered)
            answered(answerOf(*box, accept));
    });
    box->open();
}

void MessageBoxSheets::chooseFiles(SheetWindow window, const FileRequest &request, FilesChosen chosen)
{
    QFileDialog *dialog = newChooser(widget(window), request, QFileDialog::AcceptOpen);
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, std::move(chosen));
    dialog->open();
}

void MessageBoxSheets::chooseSaveFile(SheetWindow window, const FileRequest &request, FileChosen chosen)
{
    QFileDialog *dialog = newChooser(widget(window), request, QFileDialog::AcceptSave);
    dialog->selectFile(withExtension(request.proposedName, request));
    if (!request.option.isEmpty())
        addOption(*dialog, request);
    const auto take = [this, window, request, chosen = std::move(chosen)](const QString &path) {
        const QString file = withExtension(path, request);
        if (file == path || !QFileInfo::exists(file)) {
            chosen(file);
            return;
        }
        // The dialog has asked for the name as it was typed.
        const Alert question{MessageBoxSheetsText::tr("“%1” already exists. Do you want to replace it?")
                                 .arg(QFileInfo(file).fileName()),
                             MessageBoxSheetsText::tr("What it holds now will be lost."),
                             MessageBoxSheetsText::tr("Replace"), MessageBoxSheetsText::tr("Cancel")};
        show(window, question, [chosen, file](AlertAnswer answer) {
            if (answer == AlertAnswer::Default)
                chosen(file);
        });
    };
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, take);
    dialog->open();
}

QWidget *MessageBoxSheets::widget(SheetWindow window) const
{
    QWidget *widget = m_widgets.value(int(window));
    while (widget && !widget->isVisible() && widget->parentWidget())
        widget = widget->parentWidget()->window();
    return widget;
}

} // namespace quillon
