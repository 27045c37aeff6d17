#pragma once

#include <QAbstractListModel>

namespace quillon {

class CheckListControl;
class Editor;
enum class FieldId : quint8;

/// A check list of the editor as rows that can be ticked; a tick goes through the editor.
class CheckListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    CheckListModel(Editor &editor, FieldId list, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    Editor &m_editor;
    FieldId m_list;
};

} // namespace quillon
