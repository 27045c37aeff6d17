#include "editor/unreadable_file_bar.h"

#include "editor/editor.h"
#include "widgets/announcement.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

UnreadableFileBar::UnreadableFileBar(Editor &editor, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_text(new QLabel)
{
    m_text->setObjectName(u"unreadableFile"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto *again = new QPushButton(tr("Read &Again"));
    again->setObjectName(u"readAgainButton"_s);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(again);
    connect(again, &QPushButton::clicked, this, &UnreadableFileBar::readAgain);
    connect(&editor, &Editor::formLoaded, this, &UnreadableFileBar::showState);
    showState();
}

void UnreadableFileBar::showState()
{
    if (!m_editor.loaded())
        m_text->setText(tr("The PAD file cannot be read: %1.").arg(m_editor.loaded().error().reason));
    setVisible(!m_editor.loaded());
}

void UnreadableFileBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    announce(*this, m_text->text());
}

void UnreadableFileBar::readAgain()
{
    m_editor.loadPADData();
    m_editor.checkEntriesForErrors();
}

} // namespace quillon
