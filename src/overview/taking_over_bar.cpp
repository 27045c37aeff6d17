#include "overview/taking_over_bar.h"

#include "changes/edit_history.h"
#include "editor/editor.h"
#include "overview/taking_over.h"
#include "store/process_state.h"
#include "widgets/announcement.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

TakingOverBar::TakingOverBar(Editor &editor, EditHistory &edits, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_edits(edits), m_text(new QLabel)
{
    setObjectName(u"takingOverBar"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto *take = new QPushButton(tr("&Take Them Over"));
    take->setObjectName(u"takeOverButton"_s);
    auto *leave = new QPushButton(tr("&No"));
    leave->setObjectName(u"takeNothingButton"_s);
    leave->setAccessibleName(tr("Take nothing over"));
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(take);
    layout->addWidget(leave);
    connect(take, &QPushButton::clicked, this, &TakingOverBar::takeOver);
    connect(leave, &QPushButton::clicked, this, &QWidget::hide);
    connect(&editor, &Editor::formLoaded, this, &TakingOverBar::offer);
    connect(&editor, &Editor::checked, this, &TakingOverBar::hideWhenFilled);
    offer();
}

void TakingOverBar::offer()
{
    m_from.reset();
    if (mwqnSelSW && m_editor.loaded() && taking_over::isBare(change_sets::valuesOf(m_editor.form())))
        m_from = taking_over::lastTitle(*mwqnSelSW);
    setVisible(m_from.has_value());
    if (m_from)
        m_text->setText(tr("Company, author, contact and support are empty. Take over those of “%1”?")
                            .arg(m_from->title));
}

void TakingOverBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    announce(*this, m_text->text());
}

void TakingOverBar::hideWhenFilled()
{
    if (isVisibleTo(parentWidget()) && !taking_over::isBare(change_sets::valuesOf(m_editor.form())))
        hide();
}

void TakingOverBar::takeOver()
{
    m_edits.store();
    const auto changes = taking_over::changes(change_sets::valuesOf(m_editor.form()), *m_from);
    const auto applied = m_edits.apply(
        ChangeSet{.origin = history::origin::bulk, .label = taking_over::label(*m_from), .changes = changes});
    if (applied)
        return;
    m_text->setText(tr("Nothing was changed: %1").arg(applied.error().reason));
    announce(*this, m_text->text());
}

} // namespace quillon
