#pragma once

#include "widgets/focus_frame.h"

#include <QTextEdit>

namespace quillon {

/// A text to be read beside another one: what differs between the two is marked.
class MarkedTextView : public WithFocusFrame<QTextEdit>
{
    Q_OBJECT
public:
    enum class Side
    {
        Before, ///< What went is struck out.
        After   ///< What came is underlined.
    };

    MarkedTextView(const QString &name, Side side, QWidget *parent = nullptr);

    /// What its label is to say, with a mnemonic.
    [[nodiscard]] QString caption() const;

    /// Shows its side of what has become of @p before.
    void showChange(const QString &before, const QString &after);

private:
    const Side m_side;
};

} // namespace quillon
