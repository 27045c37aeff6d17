#pragma once

#include "pad/field_catalogue.h"

#include <QLabel>

namespace quillon {

class Editor;

/// The line below a field that says what is expected, with the live counter. It keeps the room that its
/// longest text needs, so that nothing moves while the author types; a field that never has a hint has none.
class HintLabel : public QLabel
{
    Q_OBJECT
public:
    HintLabel(Editor &editor, FieldId field, QWidget *parent);

    [[nodiscard]] int heightForWidth(int width) const override;
    /// The same for every text, so that columns keep their widths.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QString m_longest; ///< Of all that the field's rules may say.
};

} // namespace quillon
