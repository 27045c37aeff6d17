#pragma once

#include "platform/alert_sheets.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

namespace quillon {

/// Alert sheets as window-modal message boxes and file dialogs of the desktop.
class MessageBoxSheets final : public AlertSheets
{
public:
    /// Sheets for @p window belong to @p widget, or to the window that it belongs to while it is closed;
    /// without one they stand alone.
    void setWidget(SheetWindow window, QWidget *widget) { m_widgets[int(window)] = widget; }

    void show(SheetWindow window, const Alert &alert, Answered answered) override;
    void chooseFiles(SheetWindow window, const FileRequest &request, FilesChosen chosen) override;
    void chooseSaveFile(SheetWindow window, const FileRequest &request, FileChosen chosen) override;

private:
    [[nodiscard]] QWidget *widget(SheetWindow window) const;

    QHash<int, QPointer<QWidget>> m_widgets;
};

} // namespace quillon
