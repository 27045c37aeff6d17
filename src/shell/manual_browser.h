#pragma once

#include "widgets/focus_frame.h"

#include <QTextBrowser>

namespace quillon {

class Desktop;

/// Shows pages of the manual, and nothing else: links to the web are opened in the author's own browser, and
/// no other file or address is read.
class ManualBrowser : public WithFocusFrame<QTextBrowser>
{
    Q_OBJECT
public:
    /// @p desktop must outlive it.
    explicit ManualBrowser(Desktop &desktop, QWidget *parent = nullptr);

    /// Marks every place of @p words on the page; none takes the marks away.
    void mark(const QStringList &words);

    QVariant loadResource(int type, const QUrl &name) override;

protected:
    /// Goes from link to link, and on to what comes next; backwards the toolkit would stay at the first one.
    bool focusNextPrevChild(bool next) override;

private:
    void follow(const QUrl &link);

    Desktop &m_desktop;
};

} // namespace quillon
