#pragma once

#include "pad/field_catalogue.h"

#include <QHash>
#include <QObject>

class QMenu;
class QWidget;

namespace quillon {

class Editor;

/// What the widgets of all fields have in common: leaving one is told to the editor, the context menu of each
/// offers its earlier texts, and its tool tip says what is wrong with it, what would pass, and what is
/// advised.
class FieldWatch : public QObject
{
    Q_OBJECT
public:
    explicit FieldWatch(Editor &editor, QObject *parent = nullptr);

    /// Watches @p widget, which shows @p field, and what it consists of.
    void add(QWidget *widget, FieldId field);

    /// What the tool tip of @p field says; found when it is wanted, for a keystroke is not to wait for it.
    [[nodiscard]] QString told(FieldId field) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The focus has come into @p field.
    void entered(quillon::FieldId field);
    void earlierTextsRequested(quillon::FieldId field);

private:
    QMenu *newMenu(QObject *widget, FieldId field);

    Editor &m_editor;
    QHash<QObject *, FieldId> m_fields;
};

} // namespace quillon
