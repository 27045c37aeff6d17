#pragma once

#include "changes/plan_form.h"

namespace quillon {

/// Fixes need nothing to be filled in: it only says what is shown below.
class FixFormView : public PlanForm
{
    Q_OBJECT
public:
    explicit FixFormView(QWidget *parent = nullptr);

    [[nodiscard]] Result<ChangePreview::Planner> planner() const override;
};

} // namespace quillon
