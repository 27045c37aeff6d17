#pragma once

#include <QFileDialog>

namespace quillon {

/**
 * A file dialog for folders that the author knows as one item, by the extension of their names.
 *
 * Such a folder is chosen by a double-click as a file would be, and any other folder is opened. The desktop's
 * own dialogs know no such folders, so this is always Qt's.
 */
class FolderItemDialog : public QFileDialog
{
    Q_OBJECT
public:
    /// @p extension without the point. An existing folder is to be chosen.
    FolderItemDialog(const QString &extension, QWidget *parent);

    /// From now on a new folder is named, to which the extension is added where it is missing. Whether one
    /// that exists is to be replaced is asked.
    void setSaves();

    void accept() override;

private:
    [[nodiscard]] bool isItem(const QString &path) const;
    [[nodiscard]] QString withExtension(const QString &path) const;
    void openFolder(const QString &path);
    void chooseOrAsk(const QString &path);
    void choose(const QString &path);
    void askToReplace(const QString &path);
    void tellWhatToChoose();

    QString m_ending; ///< The extension with its point.
};

} // namespace quillon
