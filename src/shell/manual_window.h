#pragma once

#include "manual/manual_pages.h"
#include "widgets/command_set.h"

#include <QWidget>

class QLineEdit;
class QTreeWidget;

namespace quillon {

class Desktop;
class ManualBrowser;

/// The manual in a window: on the left its contents, or what a search found; on the right a page.
class ManualWindow : public QWidget
{
    Q_OBJECT
public:
    /// Shows the manual that is installed. @p desktop must outlive the window.
    explicit ManualWindow(Desktop &desktop);
    ~ManualWindow() override;

    /// Shows @p page, which may end in "#" and an anchor, and brings the window to the front.
    void open(const QString &page);

private:
    [[nodiscard]] QList<Command> commands();
    [[nodiscard]] QWidget *newBar();
    [[nodiscard]] QWidget *newSides();
    void readPages();
    /// Lists the contents, or where the words stand that are looked for.
    void showList();
    void showContents();
    void showHits(const QString &words);
    void showChosen();
    void openInBrowser();

    Desktop &m_desktop;
    ManualPages m_manual;
    CommandSet *m_commands;
    QLineEdit *m_search;
    QTreeWidget *m_list;
    ManualBrowser *m_browser;
};

} // namespace quillon
