#pragma once

#include <QWidget>

class QLabel;

namespace quillon {

class Editor;

/// A line over the editor's pages that tells of a PAD file that cannot be read, with a button that reads it
/// again. Otherwise it takes no room.
class UnreadableFileBar : public QWidget
{
    Q_OBJECT
public:
    UnreadableFileBar(Editor &editor, QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void showState();
    void readAgain();

    Editor &m_editor;
    QLabel *m_text;
};

} // namespace quillon
