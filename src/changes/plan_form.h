#pragma once

#include "changes/change_preview.h"

#include <QWidget>

namespace quillon {

/// What an author fills in to say what is to become of titles; it stands above the preview of that. What
/// is filled in first has the focus in it.
class PlanForm : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// What has been filled in. Refused, with a sentence, when that is not enough or makes no sense.
    [[nodiscard]] virtual Result<ChangePreview::Planner> planner() const = 0;

Q_SIGNALS:
    /// Something else is filled in.
    void changed();
};

} // namespace quillon
