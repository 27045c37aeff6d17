#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>

namespace quillon {

/// The windows that a sheet can belong to.
enum class SheetWindow
{
    Main,
    Submission,
    Preferences,
    DeletedTitles
};

/// What an alert sheet says. Every text is plain text, never markup.
struct Alert
{
    QString message = {};
    QString informativeText = {};
    QString defaultButton = QCoreApplication::translate("AlertSheets", "OK");
    QString alternateButton = {}; ///< Empty: there is only the default button.
    QStringList details = {};     ///< Lines that the reader may unfold.
    QString name = {};            ///< The sheet's object name, by which the manual knows its page.
};

enum class AlertAnswer
{
    Default,
    Alternate,
    Closed ///< By Escape or the sheet's frame, with two buttons to choose from.
};

/// What a file chooser asks for.
struct FileRequest
{
    QString prompt; ///< The title of the chooser and, where something that exists is chosen, of its button.
    QString extension; ///< Without the point; empty for files of any kind.
    QString proposedName = {};
    bool severalFiles = false;
    bool isFolder = false; ///< What is chosen is a folder that the author knows as one item.
    QString option = {};   ///< The text of a check box beside the place to save; empty for none.
    /// Told whether it is ticked, before the place is.
    std::function<void(bool isTicked)> optionChosen = {};
};

/**
 * Asks and tells the user, without waiting: every answer comes by a call. So no event loop is ever nested,
 * and tests answer for the user.
 */
class AlertSheets
{
public:
    using Answered = std::function<void(AlertAnswer)>;
    using FilesChosen = std::function<void(const QStringList &paths)>;
    using FileChosen = std::function<void(const QString &path)>;

    virtual ~AlertSheets() = default;

    /// Shows @p alert; @p answered may be empty. However a sheet of one button ends, that is its answer.
    virtual void show(SheetWindow window, const Alert &alert, Answered answered = {}) = 0;

    /// Lets the user choose existing files; no folder can be made meanwhile. @p chosen is not called when
    /// nothing is chosen.
    virtual void chooseFiles(SheetWindow window, const FileRequest &request, FilesChosen chosen) = 0;

    /// Lets the user choose where to save; the user has agreed to replace a file that exists. @p chosen is
    /// not called when nothing is chosen.
    virtual void chooseSaveFile(SheetWindow window, const FileRequest &request, FileChosen chosen) = 0;
};

} // namespace quillon
