#pragma once

#include "pad/field_catalogue.h"

#include <QHash>
#include <QObject>

class QMenu;
class QWidget;

namespace quillon {

class Editor;

/// What the widgets of all fields have in common: leaving one is told to the editor, and the context menu of
/// each offers its earlier texts.
class FieldWatch : public QObject
{
    Q_OBJECT
public:
    explicit FieldWatch(Editor &editor, QObject *parent = nullptr);

    /// Watches @p widget, which shows @p field, and what it consists of.
    void add(QWidget *widget, FieldId field);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void earlierTextsRequested(quillon::FieldId field);

private:
    QMenu *newMenu(QObject *widget, FieldId field);

    Editor &m_editor;
    QHash<QObject *, FieldId> m_fields;
};

} // namespace quillon
