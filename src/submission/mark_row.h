#pragma once

#include <QWidget>

class QLabel;

namespace quillon {

class CommandSet;
class ElidedLabel;
class SubmitControl;

/// Says which site the title is submitted to, with the buttons that mark it; below, what is in the way of
/// that.
class MarkRow : public QWidget
{
    Q_OBJECT
public:
    /// @p commands has "mark" and "removeMark"; both must outlive the row.
    MarkRow(SubmitControl &control, const CommandSet &commands, QWidget *parent = nullptr);

private:
    void showTexts();

    SubmitControl &m_control;
    ElidedLabel *m_submittingToField;
    QLabel *m_hindrance;
};

} // namespace quillon
