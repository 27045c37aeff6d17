#include "changes/fix_form_view.h"

#include "changes/fixes.h"

#include <QBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillon {

FixFormView::FixFormView(QWidget *parent) : PlanForm(parent)
{
    auto *text = new QLabel(tr("What can be mended without guessing. Untick what you do not want."));
    text->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
}

Result<ChangePreview::Planner> FixFormView::planner() const
{
    return ChangePreview::Planner([](const QStringList &titles) { return fixes::plan(titles); });
}

} // namespace quillon
