#pragma once

#include <QDialog>

class QLabel;
class QListWidget;

namespace quillon {

/// Where the author switches rule packs on and off: those that come with Quillon, and files of his own. What
/// he does counts at once.
class RulePacksWindow : public QDialog
{
    Q_OBJECT
public:
    explicit RulePacksWindow(QWidget *parent = nullptr);

    /// Adds the pack in the file @p path, switched on; one that is there is only switched on. Says what is
    /// wrong with it when it is none.
    void add(const QString &path);

Q_SIGNALS:
    /// Other packs are switched on now.
    void chosen();

private:
    void addRow(const QString &name, const QString &title, bool isOn);
    void chooseFile();
    void store();

    QListWidget *m_packs;
    QLabel *m_outcome;
};

} // namespace quillon
