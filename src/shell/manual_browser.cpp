#include "shell/manual_browser.h"

#include "manual/manual_pages.h"
#include "platform/desktop.h"

#include <QFile>
#include <QImage>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr double pictureWidth = 640; ///< Of what is wider: so that it fits beside the list.

/// @p picture no wider than that on a screen of @p ratio pixels to a point.
QImage fitted(const QImage &picture, double ratio)
{
    if (picture.width() <= pictureWidth)
        return picture;
    const int width = qMin(picture.width(), qRound(pictureWidth * ratio));
    QImage smaller = picture.scaledToWidth(width, Qt::SmoothTransformation);
    smaller.setDevicePixelRatio(width / pictureWidth);
    return smaller;
}

} // namespace

ManualBrowser::ManualBrowser(Desktop &desktop, QWidget *parent) : WithFocusFrame(parent), m_desktop(desktop)
{
    setObjectName(u"manualPage"_s);
    setOpenLinks(false); // Not before it is known where they lead.
    document()->setDefaultStyleSheet(u"h2 { margin-top: 18px; } td, th { padding: 3px 12px 3px 0; }"
                                     "pre { white-space: pre-wrap; } th { text-align: left; }"_s);
    connect(this, &QTextBrowser::anchorClicked, this, &ManualBrowser::follow);
}

void ManualBrowser::follow(const QUrl &link)
{
    if (manual::isPage(link))
        setSource(link);
    else
        m_desktop.openWebAddress(link);
}

QVariant ManualBrowser::loadResource(int type, const QUrl &name)
{
    QFile file(name.toLocalFile());
    if (type == QTextDocument::ImageResource && manual::isPicture(name))
        return fitted(QImage(file.fileName()), devicePixelRatioF());
    if (type != QTextDocument::HtmlResource || !manual::isPage(name) || !file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

bool ManualBrowser::focusNextPrevChild(bool next)
{
    const QTextCursor before = textCursor();
    if (!WithFocusFrame::focusNextPrevChild(next))
        return false;
    const QTextCursor now = textCursor();
    const bool isStuck = hasFocus() && now.anchor() == before.anchor() && now.position() == before.position();
    // What follows is another widget; NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return !isStuck || QAbstractScrollArea::focusNextPrevChild(next);
}

void ManualBrowser::mark(const QStringList &words)
{
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString &word : words) {
        for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at)) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(palette().color(QPalette::Highlight));
            mark.format.setForeground(palette().color(QPalette::HighlightedText));
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
}

} // namespace quillon
