#pragma once

#include "pad/field_catalogue.h"

#include <QListView>

class QLineEdit;

namespace quillon {

class Editor;

/// A check list of the editor with a field above it that narrows the list down to what holds the typed text.
class FieldCheckList : public QWidget
{
    Q_OBJECT
public:
    FieldCheckList(Editor &editor, FieldId field, QWidget *parent = nullptr);

    /// The list itself, which bears the field's name.
    [[nodiscard]] QListView *list() const { return m_list; }

    /// Shows the whole list from its top, as for another title.
    void showAll();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *m_filter;
    QListView *m_list;
};

} // namespace quillon
