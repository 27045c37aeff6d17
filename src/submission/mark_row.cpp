#include "submission/mark_row.h"

#include "submission/submit_control.h"
#include "widgets/action_button.h"
#include "widgets/announcement.h"
#include "widgets/command_set.h"
#include "widgets/elided_label.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillon {

MarkRow::MarkRow(SubmitControl &control, const CommandSet &commands, QWidget *parent)
    : QWidget(parent)
    , m_control(control)
    , m_submittingToField(new ElidedLabel(u"submittingToField"_s))
    , m_hindrance(new QLabel)
{
    QFont bold = m_submittingToField->font();
    bold.setBold(true);
    m_submittingToField->setFont(bold);
    m_hindrance->setObjectName(u"hindrance"_s);
    m_hindrance->setTextFormat(Qt::PlainText);
    m_hindrance->setWordWrap(true);

    QPushButton *mark = newActionButton(*commands.action(u"mark"_s), u"markSubmittedButton"_s, this);
    // Wide enough for the longer of the titles that it takes in turn.
    mark->setMinimumWidth(mark->sizeHint().width() +
                          fontMetrics().horizontalAdvance(tr("Mark Re-Submitted")) -
                          fontMetrics().horizontalAdvance(mark->text()));
    auto *row = new QHBoxLayout;
    row->addWidget(m_submittingToField, 1);
    row->addWidget(mark);
    row->addWidget(newActionButton(*commands.action(u"removeMark"_s), u"removeMarkButton"_s, this));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_hindrance);

    connect(&control.sites(), &SubmissionSites::textsChanged, this, &MarkRow::showTexts);
    connect(&control, &SubmitControl::hindranceChanged, this, &MarkRow::showTexts);
    connect(&control, &SubmitControl::markChanged, this, [this](bool isMarked) {
        announce(*this, isMarked ? tr("Marked as submitted.") : tr("The mark is removed."));
    });
    showTexts();
}

void MarkRow::showTexts()
{
    m_submittingToField->setText(m_control.sites().submittingToField());
    const QString hindrance = m_control.hindrance();
    const bool isNew = hindrance != m_hindrance->text();
    m_hindrance->setText(hindrance);
    m_hindrance->setVisible(!hindrance.isEmpty());
    if (isNew)
        announce(*this, hindrance);
}

} // namespace quillon
