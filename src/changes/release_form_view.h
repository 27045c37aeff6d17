#pragma once

#include "changes/plan_form.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

/// What an author says of a new release.
class ReleaseFormView : public PlanForm
{
    Q_OBJECT
public:
    explicit ReleaseFormView(QWidget *parent = nullptr);

    [[nodiscard]] Result<ChangePreview::Planner> planner() const override;

private:
    QWidget *newFileRow();
    void chooseFile();

    QLineEdit *m_version;
    QDateEdit *m_date;
    QLineEdit *m_file;
    QComboBox *m_status;
    QCheckBox *m_addresses;
    QPlainTextEdit *m_changes;
};

} // namespace quillon
