#pragma once

#include <QWidget>

class QLabel;

namespace quillon {

class ActivityIndicator;
class ElidedLabel;
class PageLoad;

/// How far the page's load is, and beside it the newest thing that the author should know.
class LoadStatusRow : public QWidget
{
    Q_OBJECT
public:
    /// @p load must outlive the row.
    explicit LoadStatusRow(PageLoad &load, QWidget *parent = nullptr);

    /// Shows @p text in one line, in place of what was there; empty for nothing.
    void showNotice(const QString &text);

    /// Has screen readers say that @p text was pasted; others see it in the page.
    void sayPasted(const QString &text);

    /// Shows @p text, which holds for every page, for good; empty for nothing.
    void showWarning(const QString &text);

private:
    void showLoadState();
    void sayEnd(const QString &failure);

    PageLoad &m_load;
    ElidedLabel *m_notice;
    QLabel *m_warning;
    ActivityIndicator *m_webViewLoadProgress;
};

} // namespace quillon
